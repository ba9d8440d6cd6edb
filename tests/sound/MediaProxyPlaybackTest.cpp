// The shipped bank played through MediaProxy: open and fretted strings sound
// at equal-tempered pitch; the metronome-only build has no strings to play.
#include <gtest/gtest.h>

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
                                           NoteRow{"HighEFret12", "ZebTools", 0, 12, 659.26},
                                           NoteRow{"LowEOpen", "ZebTools", 5, 0, 82.407},
                                           NoteRow{"LowETwoBelow", "ZebTools", 5, -2, 73.416},
                                           NoteRow{"MetronomeBuildHasNoStrings", "Metronome", 0, 0,
                                                   0.0}),
                         [](const auto& info) { return std::string(info.param.name); });
