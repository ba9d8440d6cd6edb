// What the engine actually plays: group cutting, overlap, looping,
// stopping, unloading, and loading past unreadable files.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <fstream>
#include <numbers>
#include <string>
#include <thread>
#include <vector>

#include "framework/Log.h"
#include "sound/EngineRecorder.h"

using namespace zt;
using namespace zt::testing;
using namespace std::chrono_literals;

namespace {

constexpr int kRate = 44100;
constexpr double kLow = 500.0, kHigh = 800.0;
// Sound ids of the test tones: one second each, and a 0.1 s one made to loop.
constexpr int kLongLow = 1, kLongHigh = 2, kShortLow = 3;

std::filesystem::path writeTone(const std::string& name, double hertz, double seconds) {
    const auto path = std::filesystem::temp_directory_path() /
                      ("zt-engine-" + name + "-" + std::to_string(getpid()) + ".wav");
    SF_INFO info{};
    info.samplerate = kRate;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    std::vector<float> samples(static_cast<size_t>(seconds * kRate));
    for (size_t i = 0; i < samples.size(); ++i) {
        samples[i] = static_cast<float>(0.5 * std::sin(2 * std::numbers::pi * hertz * i / kRate));
    }
    sf_writef_float(file, samples.data(), static_cast<sf_count_t>(samples.size()));
    sf_close(file);
    return path;
}

struct Step {
    enum Action { Play, PlayLooped, StopGroup, Unload } action;
    int sound;
    int group;
};

// Steps run 150 ms apart from the first sound; the check listens from
// 400 to 550 ms after it, when every test tone would still be sounding if
// nothing had cut it.
struct GroupRow {
    const char* name;
    std::vector<Step> steps;
    bool lowHeard;
    bool highHeard;
};

void PrintTo(const GroupRow& row, std::ostream* os) {
    *os << row.name;
}

class SoundEngineGroups : public ::testing::TestWithParam<GroupRow> {
protected:
    void SetUp() override {
        files_ = {writeTone("low", kLow, 1.0), writeTone("high", kHigh, 1.0),
                  writeTone("short", kLow, 0.1)};
        ASSERT_TRUE(recorder_.engine().hasDevice());
        recorder_.engine().defineSourceGroups({1, 1, 1});
        recorder_.engine().loadBuffersAsync(
            {{kLongLow, files_[0]}, {kLongHigh, files_[1]}, {kShortLow, files_[2]}});
        ASSERT_TRUE(recorder_.waitLoaded());
    }
    void TearDown() override {
        for (const auto& file : files_)
            std::filesystem::remove(file);
    }

    EngineRecorder recorder_;
    std::vector<std::filesystem::path> files_;
};

}  // namespace

TEST_P(SoundEngineGroups, LateWindowHoldsOnlyWhatShouldStillSound) {
    SoundEngine& engine = recorder_.engine();
    for (const Step& step : GetParam().steps) {
        switch (step.action) {
            case Step::Play:
            case Step::PlayLooped:
                EXPECT_TRUE(engine.playSound(step.sound, step.group, 1.0f, 0.0f, 1.0f,
                                             step.action == Step::PlayLooped));
                break;
            case Step::StopGroup:
                engine.stopSourceGroup(step.group);
                break;
            case Step::Unload:
                engine.unloadBuffer(step.sound);
                break;
        }
        std::this_thread::sleep_for(150ms);
    }
    std::this_thread::sleep_for(700ms - 150ms * static_cast<int>(GetParam().steps.size()));
    const Recording played = recorder_.finish();

    const size_t start = onset(played.samples, 0.05f);
    ASSERT_LT(start, played.samples.size()) << "nothing was played";
    const auto late = window(played, start, 0.40, 0.55);
    ASSERT_GT(late.size(), 6000u);
    const double low = toneAmplitude(late, played.rate, kLow);
    const double high = toneAmplitude(late, played.rate, kHigh);
    EXPECT_EQ(low > 0.1, GetParam().lowHeard) << "500 Hz at " << low;
    EXPECT_EQ(high > 0.1, GetParam().highHeard) << "800 Hz at " << high;
    if (!GetParam().lowHeard && !GetParam().highHeard) {
        EXPECT_LT(rms(late), 1e-3);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Scripts, SoundEngineGroups,
    ::testing::Values(
        GroupRow{"NewSoundCutsItsGroup",
                 {{Step::Play, kLongLow, 0}, {Step::Play, kLongHigh, 0}},
                 false,
                 true},
        GroupRow{
            "GroupsOverlap", {{Step::Play, kLongLow, 0}, {Step::Play, kLongHigh, 1}}, true, true},
        GroupRow{"ShortSoundEnds", {{Step::Play, kShortLow, 2}}, false, false},
        GroupRow{"LoopKeepsSounding", {{Step::PlayLooped, kShortLow, 2}}, true, false},
        GroupRow{
            "StopSilencesOnlyItsGroup",
            {{Step::PlayLooped, kShortLow, 0}, {Step::Play, kLongHigh, 1}, {Step::StopGroup, 0, 0}},
            false,
            true},
        GroupRow{"UnloadStopsItsSound",
                 {{Step::PlayLooped, kShortLow, 0}, {Step::Unload, kShortLow, 0}},
                 false,
                 false}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(SoundEngineLoading, UnreadableFilesStaySilentAndLoadingCompletes) {
    std::vector<std::string> lines;
    setLogSink([&](const std::string& line) { lines.push_back(line); });
    EngineRecorder recorder;
    SoundEngine& engine = recorder.engine();
    const auto good = writeTone("good", kLow, 0.2);
    const auto corrupt = std::filesystem::temp_directory_path() /
                         ("zt-engine-corrupt-" + std::to_string(getpid()) + ".caf");
    std::ofstream(corrupt) << "caff but not really";
    const std::filesystem::path missing = "/nonexistent/E4_.caf";

    engine.defineSourceGroups({1});
    engine.loadBuffersAsync({{1, good}, {2, missing}, {3, corrupt}, {4, good}});
    EXPECT_TRUE(recorder.waitLoaded());
    EXPECT_EQ(engine.loadProgress(), 1.0f);

    EXPECT_NE(engine.decodedSamples(1), nullptr);
    EXPECT_NE(engine.decodedSamples(4), nullptr);
    for (int silent : {2, 3}) {
        EXPECT_EQ(engine.decodedSamples(silent), nullptr);
        EXPECT_FALSE(engine.playSound(silent, 0, 1.0f, 0.0f, 1.0f, false));
    }
    for (const auto& path : {missing, corrupt}) {
        EXPECT_TRUE(std::any_of(
            lines.begin(), lines.end(),
            [&](const std::string& line) { return line.find(path.string()) != std::string::npos; }))
            << "no log line names " << path;
    }
    engine.unloadBuffer(1);
    engine.unloadBuffer(1);
    EXPECT_EQ(engine.decodedSamples(1), nullptr);
    setLogSink({});
    std::filesystem::remove(good);
    std::filesystem::remove(corrupt);
}
