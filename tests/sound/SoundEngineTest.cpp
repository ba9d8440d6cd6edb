// What the engine actually plays: group cutting, overlap, looping, stopping
// and unloading; loading past unreadable files; the streaming voices; and the
// shipped strings played through MediaProxy at equal-tempered pitch (the
// metronome-only build has no strings to play).
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <numbers>
#include <thread>

#include "framework/Facade.h"
#include "framework/Log.h"
#include "framework/ManualLoop.h"
#include "sound/MediaProxy.h"
#include "sound/SoundTesting.h"

using namespace zt;
using namespace zt::testing;
using namespace std::chrono_literals;

namespace {

// Test tones: one second at 500 and 800 Hz, and 0.1 s at 500 Hz to loop.
constexpr int kLow = 1, kHigh = 2, kShortLow = 3;

struct Step {
    enum Action { Play, Loop, Stop, Unload } action;
    int sound;
    int group;
};

// Steps run 150 ms apart; the check listens 400 to 550 ms after the first
// sound starts, when both long tones would still sound had nothing cut them.
struct GroupRow {
    const char* name;
    std::vector<Step> steps;
    bool lowHeard, highHeard;
};
void PrintTo(const GroupRow& row, std::ostream* os) {
    *os << row.name;
}

class SoundEngineGroups : public ::testing::TestWithParam<GroupRow> {};

struct SineRenderer : StreamRenderer {
    explicit SineRenderer(double hertz = 1000.0, float amplitude = 0.5f)
        : hertz(hertz), amplitude(amplitude) {}
    void render(float* out, int frames, std::int64_t firstFrame) override {
        if (firstFrame != next)
            ++clockBreaks;
        for (int i = 0; i < frames; ++i) {
            out[i] = amplitude * std::sin(2 * std::numbers::pi * hertz * (firstFrame + i) / 44100);
        }
        next = firstFrame + frames;
    }
    double hertz;
    float amplitude;
    // Written on the stream's thread, read by the test.
    std::atomic<std::int64_t> next{0};
    std::atomic<int> clockBreaks{0};
};

struct NoteRow {
    const char* name;
    const char* displayName;
    int string, fret;
    double hertz;  // what the string must sound at that fret; 0 for silence
};
void PrintTo(const NoteRow& row, std::ostream* os) {
    *os << row.name;
}

class MediaProxyNotes : public ::testing::TestWithParam<NoteRow> {
protected:
    void SetUp() override {
        Facade::reset();
        MainLoop::install(&loop_);
        setLogQuiet(true);
    }
    void TearDown() override {
        Facade::reset();
        MainLoop::install(nullptr);
        setLogQuiet(false);
    }

    ManualLoop loop_;
    WaveRecorder recorder_;
};

}  // namespace

TEST_P(SoundEngineGroups, LateWindowHoldsOnlyWhatShouldStillSound) {
    WaveRecorder recorder;
    SoundEngine& engine = recorder.engine();
    ASSERT_TRUE(engine.hasDevice());
    const std::vector<std::filesystem::path> files{scratchPath("low.wav"), scratchPath("high.wav"),
                                                   scratchPath("short.wav")};
    writeTone(files[0], 500, 1.0);
    writeTone(files[1], 800, 1.0);
    writeTone(files[2], 500, 0.1);
    engine.defineSourceGroups({1, 1, 1});
    engine.loadBuffersAsync({{kLow, files[0]}, {kHigh, files[1]}, {kShortLow, files[2]}});
    ASSERT_TRUE(recorder.waitLoaded());

    for (const Step& step : GetParam().steps) {
        if (step.action == Step::Play || step.action == Step::Loop) {
            EXPECT_TRUE(engine.playSound(step.sound, step.group, 1.0f, 0.0f, 1.0f,
                                         step.action == Step::Loop));
        }
        if (step.action == Step::Stop)
            engine.stopSourceGroup(step.group);
        if (step.action == Step::Unload)
            engine.unloadBuffer(step.sound);
        std::this_thread::sleep_for(150ms);
    }
    std::this_thread::sleep_for(700ms - 150ms * static_cast<int>(GetParam().steps.size()));
    const Recording played = recorder.finish();
    for (const auto& file : files)
        std::filesystem::remove(file);

    const size_t start = onset(played.samples, 0.05f);
    const auto late = played.window(start, 0.40, 0.55);
    ASSERT_GT(late.size(), 6000u) << "nothing was played";
    EXPECT_EQ(toneAmplitude(late, played.rate, 500) > 0.1, GetParam().lowHeard);
    EXPECT_EQ(toneAmplitude(late, played.rate, 800) > 0.1, GetParam().highHeard);
    if (!GetParam().lowHeard && !GetParam().highHeard) {
        EXPECT_LT(rms(late), 1e-3);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Scripts, SoundEngineGroups,
    ::testing::Values(
        GroupRow{
            "NewSoundCutsItsGroup", {{Step::Play, kLow, 0}, {Step::Play, kHigh, 0}}, false, true},
        GroupRow{"GroupsOverlap", {{Step::Play, kLow, 0}, {Step::Play, kHigh, 1}}, true, true},
        GroupRow{"ShortSoundEnds", {{Step::Play, kShortLow, 2}}, false, false},
        GroupRow{"LoopKeepsSounding", {{Step::Loop, kShortLow, 2}}, true, false},
        GroupRow{"StopSilencesOnlyItsGroup",
                 {{Step::Loop, kShortLow, 0}, {Step::Play, kHigh, 1}, {Step::Stop, 0, 0}},
                 false,
                 true},
        GroupRow{"UnloadStopsItsSound",
                 {{Step::Loop, kShortLow, 0}, {Step::Unload, kShortLow, 0}},
                 false,
                 false}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(SoundEngineLoading, UnreadableFilesStaySilentAndLoadingCompletes) {
    std::vector<std::string> lines;
    setLogSink([&](const std::string& line) { lines.push_back(line); });
    WaveRecorder recorder;
    SoundEngine& engine = recorder.engine();
    const auto good = scratchPath("good.wav"), corrupt = scratchPath("corrupt.caf");
    const std::filesystem::path missing = "/nonexistent/E4_.caf";
    writeTone(good, 500, 0.2);
    std::ofstream(corrupt) << "caff but not really";

    engine.defineSourceGroups({1});
    engine.loadBuffersAsync({{1, good}, {2, missing}, {3, corrupt}, {4, good}});
    EXPECT_TRUE(recorder.waitLoaded());
    setLogSink({});
    EXPECT_NE(engine.decodedSamples(4), nullptr);
    for (const auto& [id, path] : {std::pair{2, missing}, std::pair{3, corrupt}}) {
        EXPECT_EQ(engine.decodedSamples(id), nullptr);
        EXPECT_FALSE(engine.playSound(id, 0, 1.0f, 0.0f, 1.0f, false));
        EXPECT_TRUE(std::any_of(
            lines.begin(), lines.end(),
            [&](const std::string& line) { return line.find(path.string()) != std::string::npos; }))
            << "no log line names " << path;
    }
    engine.unloadBuffer(4);
    engine.unloadBuffer(4);
    EXPECT_EQ(engine.decodedSamples(4), nullptr);
    std::filesystem::remove(good);
    std::filesystem::remove(corrupt);
}

TEST(SoundEngineStream, PlaysTheRendererWithoutGaps) {
    WaveRecorder recorder;
    SineRenderer renderer;
    ASSERT_TRUE(recorder.engine().startStream(&renderer));
    std::this_thread::sleep_for(300ms);
    const std::int64_t heard = recorder.engine().streamPosition(&renderer);
    EXPECT_GT(heard, 44100 / 10);
    EXPECT_LE(heard, renderer.next.load());
    std::this_thread::sleep_for(200ms);
    recorder.engine().stopStream(&renderer);
    EXPECT_EQ(renderer.clockBreaks, 0);
    const Recording played = recorder.finish();

    const auto steady = played.window(onset(played.samples, 0.05f), 0.05, 0.45);
    ASSERT_GT(steady.size(), 44100u / 4);
    EXPECT_LT(std::abs(cents(toneFrequency(steady, played.rate, 1000), 1000)), 0.1);
    // An underrun would leave a hole: every 2 ms stretch must carry the tone.
    for (size_t at = 0; at + 88 <= steady.size(); at += 88) {
        ASSERT_GT(rms(steady.subspan(at, 88)), 0.2) << "gap at frame " << at;
    }
}

// A renderer that stalls once for longer than the queue lasts: the source
// runs dry and stops, and the stream must pick up again and still stop when
// asked (it once spun forever re-queueing buffers on the stopped source).
struct StallingRenderer : SineRenderer {
    void render(float* out, int frames, std::int64_t firstFrame) override {
        if (firstFrame == 44100 / 5 / frames * frames)
            std::this_thread::sleep_for(150ms);
        SineRenderer::render(out, frames, firstFrame);
    }
};

TEST(SoundEngineStream, RecoversFromAnUnderrun) {
    WaveRecorder recorder;
    StallingRenderer renderer;
    ASSERT_TRUE(recorder.engine().startStream(&renderer));
    std::this_thread::sleep_for(600ms);
    const std::int64_t before = recorder.engine().streamPosition(&renderer);
    std::this_thread::sleep_for(300ms);
    const std::int64_t advanced = recorder.engine().streamPosition(&renderer) - before;
    EXPECT_GT(advanced, 44100 / 5) << "the stream did not resume";
    EXPECT_LT(advanced, 44100 / 2) << "the stream clock ran ahead of the sound";

    std::atomic<bool> stopped{false};
    std::thread watchdog([&stopped] {
        for (int i = 0; i < 100 && !stopped; ++i)
            std::this_thread::sleep_for(100ms);
        if (!stopped) {
            std::fprintf(stderr, "the stream thread did not stop after an underrun\n");
            std::_Exit(1);
        }
    });
    recorder.engine().stopStream(&renderer);
    stopped = true;
    watchdog.join();
}

TEST(SoundEngineStream, RenderersStreamTogetherAndStopApart) {
    WaveRecorder recorder;
    SineRenderer high(1000.0, 0.25f), low(600.0, 0.25f);
    ASSERT_TRUE(recorder.engine().startStream(&high));
    ASSERT_TRUE(recorder.engine().startStream(&low));
    std::this_thread::sleep_for(400ms);
    recorder.engine().stopStream(&high);
    EXPECT_EQ(recorder.engine().streamPosition(&high), 0);
    EXPECT_GT(recorder.engine().streamPosition(&low), 0);
    std::this_thread::sleep_for(400ms);
    recorder.engine().stopStream(&low);
    const Recording played = recorder.finish();

    const size_t start = onset(played.samples, 0.05f);
    const auto both = played.window(start, 0.05, 0.30);
    const auto lowOnly = played.window(start, 0.55, 0.75);
    ASSERT_GT(lowOnly.size(), 44100u / 10) << "the second stream stopped with the first";
    EXPECT_GT(toneAmplitude(both, played.rate, 1000), 0.2);
    EXPECT_GT(toneAmplitude(both, played.rate, 600), 0.2);
    EXPECT_LT(toneAmplitude(lowOnly, played.rate, 1000), 0.01);
    EXPECT_GT(toneAmplitude(lowOnly, played.rate, 600), 0.2);
}

TEST_P(MediaProxyNotes, StringSoundsAtItsFretsPitch) {
    const auto& row = GetParam();
    ASSERT_TRUE(recorder_.engine().hasDevice());
    auto proxy = makeProxy<MediaProxy>(row.displayName, recorder_.engine());
    proxy->loadSoundBuffers();
    ASSERT_TRUE(loop_.runUntil([&] { return proxy->isBuffersLoaded(); }, 5s));
    proxy->playSoundByFret(row.fret, row.string, false);
    std::this_thread::sleep_for(450ms);
    proxy.reset();
    const Recording played = recorder_.finish();

    const size_t start = onset(played.samples, 0.02f);
    if (row.hertz == 0.0) {
        EXPECT_EQ(start, played.samples.size()) << "something sounded";
        return;
    }
    const auto tone = played.window(start, 0.05, 0.40);
    ASSERT_GT(tone.size(), 44100u / 4) << "nothing was played";
    const double measured = toneFrequency(tone, played.rate, row.hertz);
    RecordProperty("cents", std::to_string(cents(measured, row.hertz)));
    EXPECT_LT(std::abs(cents(measured, row.hertz)), 1.0) << measured << " Hz";
}

INSTANTIATE_TEST_SUITE_P(Frets, MediaProxyNotes,
                         ::testing::Values(NoteRow{"HighEOpen", "ZebTools", 0, 0, 329.63},
                                           NoteRow{"HighEFret7", "ZebTools", 0, 7, 329.63 * 1.4983},
                                           NoteRow{"LowETwoBelow", "ZebTools", 5, -2, 73.416},
                                           NoteRow{"MetronomeBuildHasNoStrings", "Metronome", 0, 0,
                                                   0.0}),
                         [](const auto& info) { return std::string(info.param.name); });
