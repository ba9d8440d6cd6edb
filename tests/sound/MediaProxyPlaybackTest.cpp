// The shipped bank played through MediaProxy: open strings and fretted
// notes sound at equal-tempered pitch, and the metronome-only build loads
// no strings.
#include <gtest/gtest.h>

#include <cmath>
#include <thread>

#include "framework/Facade.h"
#include "framework/Log.h"
#include "framework/ManualLoop.h"
#include "sound/EngineRecorder.h"
#include "sound/MediaProxy.h"
#include "sound/SoundBank.h"

using namespace zt;
using namespace zt::testing;
using namespace std::chrono_literals;

namespace {

class MediaProxyPlayback : public ::testing::Test {
protected:
    void SetUp() override {
        Facade::reset();
        MainLoop::install(&loop_);
        setLogQuiet(true);
    }
    void TearDown() override {
        proxy_.reset();
        Facade::reset();
        MainLoop::install(nullptr);
        setLogQuiet(false);
    }
    void load(const char* displayName) {
        ASSERT_TRUE(recorder_.engine().hasDevice());
        proxy_ = makeProxy<MediaProxy>(displayName, recorder_.engine());
        proxy_->loadSoundBuffers();
        ASSERT_TRUE(loop_.runUntil([this] { return proxy_->isBuffersLoaded(); }, 5s));
    }

    ManualLoop loop_;
    EngineRecorder recorder_;
    std::shared_ptr<MediaProxy> proxy_;
};

struct NoteRow {
    const char* name;
    int string;
    int fret;
    double hertz;  // what the string must sound at that fret
};

void PrintTo(const NoteRow& row, std::ostream* os) {
    *os << row.name;
}

class MediaProxyNotes : public MediaProxyPlayback, public ::testing::WithParamInterface<NoteRow> {};

}  // namespace

TEST_P(MediaProxyNotes, FrettedStringSoundsAtItsPitch) {
    const auto& row = GetParam();
    load("ZebTools");
    proxy_->playSoundByFret(row.fret, row.string, false);
    std::this_thread::sleep_for(450ms);
    const Recording played = recorder_.finish();

    const size_t start = onset(played.samples, 0.02f);
    const auto tone = window(played, start, 0.05, 0.40);
    ASSERT_GT(tone.size(), 44100u / 4) << "nothing was played";
    const double measured = toneFrequency(tone, played.rate, row.hertz);
    RecordProperty("cents", std::to_string(cents(measured, row.hertz)));
    EXPECT_LT(std::abs(cents(measured, row.hertz)), 1.0) << measured << " Hz";
}

INSTANTIATE_TEST_SUITE_P(Frets, MediaProxyNotes,
                         ::testing::Values(NoteRow{"HighEOpen", 0, 0, 329.63},
                                           NoteRow{"HighEFret7", 0, 7, 329.63 * 1.4983},
                                           NoteRow{"HighEFret12", 0, 12, 659.26},
                                           NoteRow{"LowEOpen", 5, 0, 82.407},
                                           NoteRow{"LowEDownTwo", 5, -2, 73.416}),
                         [](const auto& info) { return std::string(info.param.name); });

namespace {

struct BuildRow {
    const char* displayName;
    bool hasStrings;
};

void PrintTo(const BuildRow& row, std::ostream* os) {
    *os << row.displayName;
}

class MediaProxyBuilds : public MediaProxyPlayback,
                         public ::testing::WithParamInterface<BuildRow> {};

}  // namespace

TEST_P(MediaProxyBuilds, LoadsTheSoundsOfItsBuild) {
    const auto& row = GetParam();
    load(row.displayName);
    SoundEngine& engine = recorder_.engine();
    for (const auto& entry : SoundBank::kEntries) {
        const bool expected = row.hasStrings || !SoundBank::isStringSound(entry.id);
        EXPECT_EQ(engine.decodedSamples(entry.id) != nullptr, expected) << entry.file;
    }
    proxy_->unloadSoundBuffers();
    for (const auto& entry : SoundBank::kEntries) {
        EXPECT_EQ(engine.decodedSamples(entry.id), nullptr) << entry.file;
    }
}

INSTANTIATE_TEST_SUITE_P(Builds, MediaProxyBuilds,
                         ::testing::Values(BuildRow{"ZebTools", true},
                                           BuildRow{"Metronome", false}),
                         [](const auto& info) { return std::string(info.param.displayName); });
