// Beats of the bar, muted bars and the speed trainer, read back from the
// rendered audio.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "ClickTrack.h"
#include "metronome/SubdivisionPattern.h"

namespace zt::test {
namespace {

constexpr int kTick = 51, kTock = 52, kSub = 53;

// FNV-1a over the bits of every sample.
std::uint64_t hashOf(MetronomeEngine& engine, std::int64_t frames, const std::vector<int>& blocks) {
    std::uint64_t hash = 1469598103934665603ULL;
    std::vector<float> buffer(8192);
    std::int64_t at = 0;
    for (size_t i = 0; at < frames; ++i) {
        const int n = int(std::min<std::int64_t>(blocks[i % blocks.size()], frames - at));
        engine.render(buffer.data(), n, at);
        for (int k = 0; k < n; ++k) {
            std::uint32_t bits;
            std::memcpy(&bits, &buffer[k], sizeof bits);
            for (int b = 0; b < 4; ++b) {
                hash ^= (bits >> (8 * b)) & 0xffu;
                hash *= 1099511628211ULL;
            }
        }
        at += n;
    }
    return hash;
}

// Clicks long enough to overlap, so that the mixing is covered too.
struct DefaultCase {
    int tempo, numerator, pattern, denominator;
    bool accent;
    std::uint64_t hash;  // of what the metronome rendered before it had practice settings
};

class DefaultSound : public ::testing::TestWithParam<DefaultCase> {};

TEST_P(DefaultSound, IsBitForBitWhatItWas) {
    const auto c = GetParam();
    SyntheticClicks clicks(3000);
    MetronomeEngine engine(kRate, clicks.bank());
    MetronomeSetup setup = setupAt(c.tempo, c.numerator, c.pattern, c.denominator);
    setup.isFirstBeatNeed = c.accent;
    engine.start(setup);
    EXPECT_EQ(hashOf(engine, 20LL * kRate, {97, 512, 1031}), c.hash);

    // Practice settings that ask for nothing new sound the same: every beat
    // as the switch has it, a trainer that stays at the wheel's tempo.
    MetronomeEngine neutral(kRate, clicks.bank());
    setup.practice.setBeatsText(std::string(16, 'N'));
    setup.practice.trainerOn = true;
    setup.practice.trainerStart = setup.practice.trainerEnd = c.tempo;
    neutral.start(setup);
    EXPECT_EQ(hashOf(neutral, 20LL * kRate, {441}), c.hash);
}

INSTANTIATE_TEST_SUITE_P(Setups, DefaultSound,
                         ::testing::Values(DefaultCase{120, 4, 1, 4, true, 0x099526160f7c0b5fULL},
                                           DefaultCase{97, 3, 6, 8, true, 0xd1b7097d7415d893ULL},
                                           DefaultCase{200, 7, 4, 4, false, 0x644e968ca4a2032eULL},
                                           DefaultCase{60, 1, 5, 4, true, 0x6bdc61f10b787433ULL}));

// A bar as heard: one letter per slot (slots per beat as the pattern has
// them), A accent, T tick, S subdivision, '-' silence.
std::string heardSlots(const std::vector<Onset>& onsets, int slots, int bpm, int count) {
    std::string heard(count, '-');
    for (const auto& o : onsets) {
        for (int i = 0; i < count; ++i) {
            if (o.frame == idealFrame(i, slots, bpm))
                heard[i] = o.soundId == kTock   ? 'A'
                           : o.soundId == kTick ? 'T'
                           : o.soundId == kSub  ? 'S'
                                                : '?';
        }
    }
    return heard;
}

struct BeatsCase {
    const char* name;
    int numerator;
    int pattern;
    bool accent;        // the first-beat switch, applied after the letters
    const char* beats;  // one letter a beat
    int muteOn;         // play:silent bars when above 0
    int play, silent;
    std::string heard;  // from the start, slot by slot
};

class BeatsAndMutedBars : public ::testing::TestWithParam<BeatsCase> {};

TEST_P(BeatsAndMutedBars, SoundOnlyWhereTheyShouldAndKeepTheGrid) {
    const auto c = GetParam();
    SyntheticClicks clicks;
    MetronomeEngine engine(kRate, clicks.bank());
    MetronomeSetup setup = setupAt(120, c.numerator, c.pattern);
    ASSERT_TRUE(setup.practice.setBeatsText(c.beats));
    setup.setIsFirstBeatNeed(c.accent);
    setup.practice.muteOn = c.muteOn > 0;
    setup.practice.mutePlayBars = c.play;
    setup.practice.muteSilentBars = c.silent;
    engine.start(setup);
    const int slots = std::max(subdivisionPattern(c.pattern).slotsPerBeat, 1);
    const int count = int(c.heard.size());
    Render render(engine, {441, 97});
    render.to(idealFrame(count, slots, 120));
    EXPECT_EQ(heardSlots(render.onsets(), slots, 120, count), c.heard);

    // Every beat is reported, sounding or not, on its own instant.
    std::int64_t beat = 0;
    while (auto reported = engine.takeRenderedBeat()) {
        EXPECT_EQ(reported->frame, idealFrame(beat, 1, 120)) << "beat " << beat;
        EXPECT_EQ(reported->beatInBar, int(beat % c.numerator) + 1);
        const char letter = c.heard[beat * slots];
        EXPECT_EQ(reported->sounding, letter != '-') << "beat " << beat;
        EXPECT_EQ(reported->accented, letter == 'A') << "beat " << beat;
        ++beat;
    }
    EXPECT_EQ(beat, (count + slots - 1) / slots);
}

INSTANTIATE_TEST_SUITE_P(
    Bars, BeatsAndMutedBars,
    ::testing::Values(
        BeatsCase{"LastBeatSilent", 4, 1, true, "ANNS", 0, 0, 0, "ATT-ATT-A"},
        BeatsCase{"AccentsAnywhere", 4, 1, false, "NANA", 0, 0, 0, "TATATATA"},
        // The switch off turns an accented beat 1 plain; on, it accents a silent one.
        BeatsCase{"SwitchOffPlainsBeatOne", 3, 1, false, "ANN", 0, 0, 0, "TTTTTT"},
        BeatsCase{"SwitchOnSoundsBeatOne", 3, 1, true, "SNN", 0, 0, 0, "ATTATT"},
        BeatsCase{"SilentBeatOne", 3, 1, false, "SNA", 0, 0, 0, "-TA-TA"},
        BeatsCase{"OneBeatBarNeverAccents", 1, 1, true, "A", 0, 0, 0, "TTTT"},
        BeatsCase{"BeatsBeyondTheBarIgnored", 2, 1, true, "ANSSSS", 0, 0, 0, "ATATAT"},
        // A silent beat silences its subdivisions; sounding beats keep theirs.
        BeatsCase{"EighthsInSoundingBeats", 3, 2, true, "ASN", 0, 0, 0, "AS--TSAS--TS"},
        BeatsCase{"ShuffleAroundARest", 2, 6, true, "AS", 0, 0, 0, "A-S---A-S---"},
        BeatsCase{"ThreeBarsOnOneOff", 2, 1, true, "AN", 1, 3, 1, "ATATAT--ATATAT--AT"},
        BeatsCase{"OneOnTwoOffWithTriplets", 2, 3, true, "AN", 1, 1, 2, "ASSTSS------------ASSTSS"},
        BeatsCase{"MutedAndSilentBeats", 3, 1, true, "ASN", 1, 2, 1, "A-TA-T---A-T"}),
    [](const auto& info) { return std::string(info.param.name); });

// The trainer from a start: the wheel tempo of each bar and what is left
// before the next step, as reported with each bar's first beat, and every
// click on a grid that starts anew on the first beat of each step.
struct TrainerCase {
    const char* name;
    int numerator, pattern, denominator;
    int start, end, step, every;
    std::vector<int> tempos;  // bar by bar
    std::vector<int> barsToStep;
};

// Where every click of bars with the given tempos lands, and its sound,
// computed on its own: the exact time of each bar is the sum of the bars
// before it, each instant the nearest sample to its exact time.
std::vector<Onset> trainerClicks(int numerator, int pattern, bool eighths,
                                 const std::vector<int>& tempos) {
    const SubdivisionPattern sub = subdivisionPattern(pattern);
    const int slots = std::max(sub.slotsPerBeat, 1);
    std::vector<Onset> out;
    double barStart = 0.0;
    for (int tempo : tempos) {
        const double slot = 60.0 * kRate / ((eighths ? 2 * tempo : tempo) * slots);
        for (int b = 0; b < numerator; ++b) {
            for (int s = 0; s < slots; ++s) {
                const auto frame = std::llround(barStart + (b * slots + s) * slot);
                if (s == 0)
                    out.push_back({frame, b == 0 && numerator > 1 ? kTock : kTick});
                else if (sub.mask[s])
                    out.push_back({frame, kSub});
            }
        }
        barStart += numerator * slots * slot;
    }
    return out;
}

class Trainer : public ::testing::TestWithParam<TrainerCase> {};

TEST_P(Trainer, StepsExactlyOnBarStartsAndHoldsAtTheEnd) {
    const auto c = GetParam();
    SyntheticClicks clicks;
    MetronomeEngine engine(kRate, clicks.bank());
    MetronomeSetup setup = setupAt(200, c.numerator, c.pattern, c.denominator);
    setup.practice.trainerOn = true;
    setup.practice.trainerStart = c.start;
    setup.practice.trainerEnd = c.end;
    setup.practice.trainerStep = c.step;
    setup.practice.trainerBars = c.every;
    engine.start(setup);

    const auto expected = trainerClicks(c.numerator, c.pattern, c.denominator == 8, c.tempos);
    // The clicks of all the bars listed, then the next bar's first beat.
    std::vector<int> more = c.tempos;
    more.push_back(c.tempos.back());
    const std::int64_t end =
        trainerClicks(c.numerator, 1, c.denominator == 8, more)[c.tempos.size() * c.numerator]
            .frame;
    Render render(engine, {441, 1024, 13});
    std::vector<int> tempos, barsToStep;
    for (std::int64_t at = 0; at < end; at = std::min(end, at + 4410)) {
        render.to(std::min(end, at + 4410));
        while (auto beat = engine.takeRenderedBeat()) {
            if (beat->beatInBar == 1 && beat->frame < end) {
                tempos.push_back(beat->tempo);
                barsToStep.push_back(beat->barsToStep);
            }
        }
    }
    EXPECT_EQ(render.onsets(), expected);
    EXPECT_EQ(tempos, c.tempos);
    EXPECT_EQ(barsToStep, c.barsToStep);
}

INSTANTIATE_TEST_SUITE_P(
    Climbs, Trainer,
    ::testing::Values(
        TrainerCase{"UpByFiveEveryTwoBars",
                    2,
                    1,
                    4,
                    60,
                    70,
                    5,
                    2,
                    {60, 60, 65, 65, 70, 70, 70},
                    {2, 1, 2, 1, 0, 0, 0}},
        TrainerCase{
            "DownEveryBar", 3, 1, 4, 120, 97, 10, 1, {120, 110, 100, 97, 97}, {1, 1, 1, 0, 0}},
        TrainerCase{
            "LastStepStopsAtTheEnd", 4, 1, 4, 100, 103, 2, 1, {100, 102, 103, 103}, {1, 1, 0, 0}},
        TrainerCase{"TripletsFollowTheSteps", 2, 3, 4, 61, 79, 9, 1, {61, 70, 79}, {1, 1, 0}},
        TrainerCase{"EighthNoteBeatPlaysTwice", 3, 6, 8, 50, 60, 7, 1, {50, 57, 60}, {1, 1, 0}},
        TrainerCase{"OneBeatBars",
                    1,
                    2,
                    4,
                    200,
                    240,
                    13,
                    3,
                    {200, 200, 200, 213, 213, 213, 226},
                    {3, 2, 1, 3, 2, 1, 3}}),
    [](const auto& info) { return std::string(info.param.name); });

// While the trainer runs the wheel is not played; a change of the trainer
// starts it again from its start tempo with a new bar.
TEST(TrainerWhilePlaying, IgnoresTheWheelAndRestartsOnItsOwnChange) {
    SyntheticClicks clicks;
    MetronomeEngine engine(kRate, clicks.bank());
    MetronomeSetup setup = setupAt(100, 2);
    setup.practice.trainerOn = true;
    setup.practice.trainerStart = 60;
    setup.practice.trainerEnd = 120;
    setup.practice.trainerBars = 1;
    engine.start(setup);
    Render render(engine, {441});
    render.to(std::int64_t(1.5 * kRate));
    setup.BPM = 200;  // the wheel
    engine.start(setup);
    render.to(std::int64_t(2.7 * kRate));
    setup.practice.trainerStep = 10;
    engine.start(setup);
    render.to(std::int64_t(5 * kRate));
    // 60 then 65 for the second bar; at 2.7 s a new run from 60, then 70.
    const std::vector<Onset> expected = {{0, kTock},      {44100, kTick},  {88200, kTock},
                                         {119070, kTock}, {163170, kTick}, {207270, kTock}};
    EXPECT_EQ(render.onsets(), expected);
}

// Ten minutes of a trainer climbing 60 to 180 by 4 every 2 bars with three
// bars played and one muted, in blocks of every size: every click on the
// sample nearest its exact time, bar starts summed from the bars before.
TEST(PracticeLongRun, EveryClickOnItsSampleForTenMinutes) {
    SyntheticClicks clicks;
    MetronomeEngine engine(kRate, clicks.bank());
    MetronomeSetup setup = setupAt(100, 4, 2);
    setup.practice.setBeatsText("ANSN");
    setup.practice.trainerOn = true;
    setup.practice.trainerStart = 60;
    setup.practice.trainerEnd = 180;
    setup.practice.trainerStep = 4;
    setup.practice.trainerBars = 2;
    setup.practice.muteOn = true;
    setup.practice.mutePlayBars = 3;
    setup.practice.muteSilentBars = 1;
    engine.start(setup);
    const std::int64_t end = 600LL * kRate;
    Render render(engine, {1, 77, 512, 3, 2049, 128});
    render.to(end);

    struct Expected {
        double time;
        int soundId;
    };
    std::vector<Expected> expected;
    double barStart = 0.0;
    for (int bar = 0; barStart < double(end); ++bar) {
        const int tempo = std::min(180, 60 + 4 * (bar / 2));
        const double half = 60.0 * kRate / tempo / 2;
        for (int beat = 0; beat < 4 && bar % 4 != 3; ++beat) {
            if (beat == 2)
                continue;
            expected.push_back({barStart + 2 * beat * half, beat == 0 ? kTock : kTick});
            expected.push_back({barStart + (2 * beat + 1) * half, kSub});
        }
        barStart += 8 * half;
    }
    while (!expected.empty() && std::llround(expected.back().time) >= end)
        expected.pop_back();

    const auto& onsets = render.onsets();
    ASSERT_EQ(onsets.size(), expected.size());
    double worst = 0.0;
    for (size_t i = 0; i < onsets.size(); ++i) {
        ASSERT_EQ(onsets[i], (Onset{std::llround(expected[i].time), expected[i].soundId}))
            << "click " << i;
        worst = std::max(worst, std::abs(double(onsets[i].frame) - expected[i].time));
    }
    EXPECT_LE(worst, 0.5);
    std::printf(
        "trainer and muted bars, 10 min: %zu clicks each on its sample, largest error "
        "%.3f samples (%.4f ms)\n",
        onsets.size(), worst, worst * 1000.0 / kRate);
}

}  // namespace
}  // namespace zt::test
