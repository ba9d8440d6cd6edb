// Where the engine puts its clicks, read back from the rendered audio.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <functional>
#include <optional>

#include "ClickTrack.h"
#include "metronome/SubdivisionPattern.h"

namespace zt::test {
namespace {

constexpr int kTick = 51, kTock = 52, kSub = 53;

struct TempoCase {
    int tempo;
    int denominator;
    int playedBpm;
};

class BeatIntervals : public ::testing::TestWithParam<TempoCase> {};

TEST_P(BeatIntervals, EveryBeatLandsOnItsSample) {
    const auto c = GetParam();
    SyntheticClicks clicks;
    MetronomeEngine engine(kRate, clicks.bank());
    engine.start(setupAt(c.tempo, 4, 1, c.denominator));
    const int beats = 12;
    Render render(engine);
    render.to(idealFrame(beats - 1, 1, c.playedBpm) + 1);

    // The first beat on the very first sample of the run.
    const auto& onsets = render.onsets();
    ASSERT_EQ(onsets.size(), size_t(beats));
    const double period = 60.0 * kRate / c.playedBpm;
    for (int k = 0; k < beats; ++k) {
        EXPECT_EQ(onsets[k].frame, idealFrame(k, 1, c.playedBpm)) << "beat " << k;
        if (k > 0) {
            EXPECT_NEAR(double(onsets[k].frame - onsets[k - 1].frame), period, 1.0) << k;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Tempos, BeatIntervals,
                         ::testing::Values(TempoCase{20, 4, 20}, TempoCase{80, 4, 80},
                                           TempoCase{120, 4, 120}, TempoCase{240, 4, 240},
                                           TempoCase{80, 8, 160}, TempoCase{133, 8, 266},
                                           TempoCase{240, 8, 480}),
                         [](const auto& info) {
                             return std::to_string(info.param.tempo) + "_over_" +
                                    std::to_string(info.param.denominator);
                         });

struct PatternCase {
    int pattern;
    int tempo;
    int denominator;
    int slots;               // slots per beat
    std::vector<int> heard;  // the slots that click
};

class SubdivisionSlots : public ::testing::TestWithParam<PatternCase> {};

TEST_P(SubdivisionSlots, ClicksSitExactlyOnTheirSlots) {
    const auto c = GetParam();
    SyntheticClicks clicks;
    MetronomeEngine engine(kRate, clicks.bank());
    const MetronomeSetup setup = setupAt(c.tempo, 4, c.pattern, c.denominator);
    ASSERT_EQ(setup.notesPerBeat, c.pattern);
    engine.start(setup);
    const int bpm = setup.beatsPerMinute();
    const int beats = 9;
    Render render(engine, {97, 256, 1031});
    render.to(idealFrame(beats, 1, bpm));

    // Beats on every beat instant from the start, each bar of four accented.
    std::vector<Onset> expected;
    for (int beat = 0; beat < beats; ++beat) {
        expected.push_back({idealFrame(beat, 1, bpm), beat % 4 == 0 ? kTock : kTick});
        for (int slot : c.heard) {
            expected.push_back(
                {idealFrame(std::int64_t(beat) * c.slots + slot, c.slots, bpm), kSub});
        }
    }
    EXPECT_EQ(render.onsets(), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Patterns, SubdivisionSlots,
    ::testing::Values(PatternCase{2, 60, 4, 2, {1}}, PatternCase{3, 60, 4, 3, {1, 2}},
                      PatternCase{4, 60, 4, 4, {1, 2, 3}}, PatternCase{5, 60, 4, 4, {3}},
                      PatternCase{6, 60, 4, 3, {2}}, PatternCase{3, 97, 4, 3, {1, 2}},
                      PatternCase{4, 240, 4, 4, {1, 2, 3}}, PatternCase{6, 133, 8, 3, {2}},
                      PatternCase{2, 240, 8, 2, {1}}),
    [](const auto& info) {
        return "pattern" + std::to_string(info.param.pattern) + "_at" +
               std::to_string(info.param.tempo) + "_over" + std::to_string(info.param.denominator);
    });

struct AccentCase {
    int numerator;
    bool accent;
    std::string heard;  // T plain tick, A accent, one letter per beat
};

class Accents : public ::testing::TestWithParam<AccentCase> {};

TEST_P(Accents, FollowTheBarFromTheFirstBeat) {
    const auto c = GetParam();
    SyntheticClicks clicks;
    MetronomeEngine engine(kRate, clicks.bank());
    MetronomeSetup setup = setupAt(240, c.numerator);
    setup.isFirstBeatNeed = c.accent;
    engine.start(setup);
    Render render(engine);
    render.to(idealFrame(int(c.heard.size()) - 1, 1, 240) + 1);
    std::string heard;
    for (const auto& o : render.onsets())
        heard += o.soundId == kTock ? 'A' : o.soundId == kTick ? 'T' : '?';
    EXPECT_EQ(heard, c.heard);
}

INSTANTIATE_TEST_SUITE_P(Bars, Accents,
                         ::testing::Values(AccentCase{4, true, "ATTTATTTATTTA"},
                                           AccentCase{2, true, "ATATATAT"},
                                           AccentCase{3, true, "ATTATTATT"},
                                           AccentCase{1, true, "TTTTTTTT"},
                                           AccentCase{4, false, "TTTTTTTTT"},
                                           AccentCase{16, true, "A" + std::string(15, 'T') + "A"}));

// Heard from when a command is given: a letter per click, '-' for a slot
// that stays silent. T tick, A accent, S subdivision.
std::vector<Onset> clicksOf(const std::string& heard, const std::function<std::int64_t(int)>& at) {
    std::vector<Onset> out;
    for (size_t i = 0; i < heard.size(); ++i) {
        if (heard[i] != '-')
            out.push_back({at(int(i)), heard[i] == 'A' ? kTock : heard[i] == 'S' ? kSub : kTick});
    }
    return out;
}

// 4/4 at 60 beats per minute from frame 0 (one beat = 44100 frames), in
// blocks of 441, up to the moment a test gives its command.
template <class Case>
class WhilePlaying : public ::testing::TestWithParam<Case> {
protected:
    std::int64_t playUntil(int pattern, double seconds) {
        engine.start(setupAt(60, 4, pattern));
        const auto frame = std::int64_t(seconds * kRate);
        render.to(frame);
        return frame;
    }

    SyntheticClicks clicks;
    MetronomeEngine engine{kRate, clicks.bank()};
    Render render{engine, {441}};
};

// Stop, start and changes of the bar, given while the bar plays.
struct TransportCase {
    const char* name;
    int pattern;
    double actAt;                         // seconds
    bool stop;                            // a stop is asked first
    std::optional<MetronomeSetup> start;  // then a start with this setup
    double firstHeard;                    // seconds, then one click every
    double step;                          // step seconds, up to 10 s:
    std::string heard;
};

class Transport : public WhilePlaying<TransportCase> {};

TEST_P(Transport, StopStartAndNewBarsSoundAsDocumented) {
    const auto c = GetParam();
    const std::int64_t actAt = playUntil(c.pattern, c.actAt);
    if (c.stop)
        engine.stop();
    if (c.start)
        engine.start(*c.start);
    render.to(10 * kRate);

    const auto expected =
        clicksOf(c.heard, [&](int i) { return std::llround((c.firstHeard + c.step * i) * kRate); });
    EXPECT_EQ(render.onsetsFrom(actAt), expected);
    EXPECT_EQ(engine.isRunning(), c.start.has_value());
}

INSTANTIATE_TEST_SUITE_P(
    Commands, Transport,
    ::testing::Values(
        // Without subdivision the next beat still sounds, once.
        TransportCase{"StopPlaysOneLastBeat", 1, 2.5, true, {}, 3.0, 1.0, "T"},
        // With one, the next instant of either kind ends it silently.
        TransportCase{"StopBeforeASubdivision", 2, 2.25, true, {}, 0, 0, ""},
        TransportCase{"StopBeforeABeat", 2, 2.75, true, {}, 0, 0, ""},
        // A start, or a new time signature or pattern, sounds a new bar at once.
        TransportCase{"StartAfterStopIsABarAtOnce", 1, 2.5, true, setupAt(60), 2.5, 1.0,
                      "ATTTATTT"},
        TransportCase{"NewSignatureIsABarAtOnce", 2, 2.25, false, setupAt(60, 3, 2), 2.25, 0.5,
                      "ASTSTSASTSTSASTS"},
        TransportCase{"NewPatternIsABarAtOnce", 1, 2.5, false, setupAt(60, 4, 3), 2.5, 1.0 / 3,
                      "ASSTSSTSSTSSASSTSSTSSTS"},
        // The same settings again change nothing.
        TransportCase{"SameSetupGoesOn", 1, 2.5, false, setupAt(60), 3.0, 1.0, "TATTTAT"}),
    [](const auto& info) { return std::string(info.param.name); });

// A new tempo while the bar plays: the bar goes on, and
// the next beat comes one new period after the last (at once when that is
// past). Clicks from the command on lie on the new grid, which starts one
// new period before the next beat (anchor).
struct TempoChangeCase {
    const char* name;
    int pattern;
    int tempo;      // the new tempo
    double actAt;   // seconds
    double anchor;  // seconds
    int firstSlot;  // the first slot heard after the anchor
    std::string heard;
};

class TempoChange : public WhilePlaying<TempoChangeCase> {};

TEST_P(TempoChange, TakesOverAtTheNextBeatWithoutANewBar) {
    const auto c = GetParam();
    const std::int64_t actAt = playUntil(c.pattern, c.actAt);
    const MetronomeSetup changed = setupAt(c.tempo, 4, c.pattern);
    engine.start(changed);
    const int slots = std::max(subdivisionPattern(c.pattern).slotsPerBeat, 1);
    const auto anchor = std::llround(c.anchor * kRate);
    const auto expected = clicksOf(c.heard, [&](int i) {
        return idealFrame(c.firstSlot + i, slots, changed.beatsPerMinute(), anchor);
    });
    render.to(expected.back().frame + 1);
    EXPECT_EQ(render.onsetsFrom(actAt), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Tempos, TempoChange,
    ::testing::Values(TempoChangeCase{"FasterAfterOneNewBeat", 1, 120, 2.25, 2.0, 1, "TATTTA"},
                      TempoChangeCase{"SlowerAfterOneNewBeat", 1, 30, 2.25, 2.0, 1, "TATTT"},
                      TempoChangeCase{"MuchFasterAtOnce", 1, 240, 2.5, 2.25, 1, "TATTTATTTA"},
                      TempoChangeCase{"EighthsOnTheNewGrid", 2, 120, 2.25, 2.0, 1, "STSASTSTSTSA"},
                      TempoChangeCase{"TripletsSlower", 3, 90, 2.5, 2.0, 3, "TSSASSTSSTSST"},
                      TempoChangeCase{"ShuffleResumesMidBeat", 6, 120, 2.2, 2.0, 2,
                                      "ST-SA-ST-ST-ST-SA"},
                      TempoChangeCase{"SlightlySlower", 1, 45, 2.5, 2.0, 1, "TATTTA"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(LiveChanges, PackAndAccentTakeEffectAtTheNextTickWithoutRestart) {
    SyntheticClicks clicks;
    MetronomeEngine engine(kRate, clicks.bank());
    engine.start(setupAt(60, 2, 2));
    Render render(engine, {441});
    render.to(std::int64_t(2.25 * kRate));
    engine.setCurrentPack(3);  // ids 57, 58, 59
    render.to(std::int64_t(3.75 * kRate));
    engine.setIsFirstBeatNeed(false);
    engine.setCurrentPack(9);  // unknown: pack 1
    render.to(6 * kRate);
    const std::vector<Onset> expected = {{idealFrame(5, 2, 60), 59}, {idealFrame(6, 2, 60), 57},
                                         {idealFrame(7, 2, 60), 59}, {idealFrame(8, 2, 60), 51},
                                         {idealFrame(9, 2, 60), 53}, {idealFrame(10, 2, 60), 51},
                                         {idealFrame(11, 2, 60), 53}};
    EXPECT_EQ(render.onsetsFrom(std::int64_t(2.25 * kRate)), expected);
}

// Ten minutes in blocks of every kind: each instant on its own exact sample,
// never more than half a sample from the ideal time.
class LongRun : public ::testing::TestWithParam<std::vector<int>> {};

TEST_P(LongRun, DoesNotDriftInTenMinutes) {
    SyntheticClicks clicks;
    MetronomeEngine engine(kRate, clicks.bank());
    const MetronomeSetup setup = setupAt(113, 7, 3, 8);  // 226 per minute, triplets
    engine.start(setup);
    Render render(engine, GetParam());
    const std::int64_t end = 600LL * kRate;
    render.to(end);

    const int bpm = setup.beatsPerMinute();
    const double slot = 60.0 * kRate / (bpm * 3.0);
    double worst = 0.0;
    std::int64_t slotIndex = 0;
    for (const auto& o : render.onsets()) {
        ASSERT_EQ(o.frame, idealFrame(slotIndex, 3, bpm)) << "slot " << slotIndex;
        worst = std::max(worst, std::abs(o.frame - slotIndex * slot));
        ++slotIndex;
    }
    EXPECT_LE(worst, 0.5);
    EXPECT_GE(slotIndex * slot, double(end) - slot);
    std::printf("largest offline onset error over 10 min: %.3f samples (%.4f ms)\n", worst,
                worst * 1000.0 / kRate);
}

INSTANTIATE_TEST_SUITE_P(BlockSizes, LongRun,
                         ::testing::Values(std::vector<int>{256}, std::vector<int>{441},
                                           std::vector<int>{4096},
                                           std::vector<int>{1, 77, 512, 3, 2049, 128}));

TEST(StreamClock, AJumpOfTheClockKeepsThePulseOfTheRenderedSound) {
    SyntheticClicks clicks;
    MetronomeEngine engine(kRate, clicks.bank());
    engine.start(setupAt(120, 4));
    std::vector<float> block(500);
    OnsetScanner scanner;
    for (int i = 0; i < 400; ++i) {
        // The stream restarts its clock at 0 halfway through.
        const std::int64_t clock = i < 200 ? i * 500LL : (i - 200) * 500LL;
        engine.render(block.data(), 500, clock);
        scanner.feed(block.data(), 500);
    }
    const auto& o = scanner.onsets();
    ASSERT_GE(o.size(), 8u);
    for (size_t i = 1; i < o.size(); ++i)
        EXPECT_EQ(o[i].frame - o[i - 1].frame, 22050);
}

TEST(ClickMixer, AClickCutsItsOwnGroupAndAddsToTheOther) {
    const std::vector<float> a(100, 0.25f), b(100, 0.5f), c(100, 0.125f);
    ClickMixer mixer;
    mixer.setGroupGain(2, 0.5f);
    std::vector<float> out(20, 0.0f);
    mixer.play(1, a);
    mixer.mixInto(out.data(), 10);
    mixer.play(1, b);  // cuts a
    mixer.play(2, c);
    mixer.mixInto(out.data() + 10, 10);
    EXPECT_FLOAT_EQ(out[9], 0.25f);
    EXPECT_FLOAT_EQ(out[10], 0.5f + 0.0625f);
    mixer.stopAll();
    EXPECT_TRUE(mixer.isSilent());
}

}  // namespace
}  // namespace zt::test
