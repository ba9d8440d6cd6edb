// The metronome's rules that the screen relies on: tempo wheel, read-outs,
// tap tempo, saved settings and the choices of time signature and pattern.
#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "framework/Log.h"
#include "metronome/MachTimer.h"
#include "metronome/MetronomeSetup.h"
#include "metronome/TapTempo.h"
#include "metronome/TempoRules.h"

namespace zt {
namespace {

class Quiet : public ::testing::Test {
protected:
    void SetUp() override { setLogQuiet(true); }
    void TearDown() override { setLogQuiet(false); }
};

struct ReadOut {
    int tempo;
    const char* text;
    std::array<int, 3> digits;
    const char* label;
};

TEST(TempoReadOut, DigitsAndNamesByTempo) {
    const std::vector<ReadOut> rows = {
        {20, "020", {-1, 2, 0}, "LARGHISSIMO"}, {39, "039", {-1, 3, 9}, "LARGHISSIMO"},
        {40, "040", {-1, 4, 0}, "LARGO"},       {60, "060", {-1, 6, 0}, "LARGHETTO"},
        {65, "065", {-1, 6, 5}, "LARGHETTO"},   {66, "066", {-1, 6, 6}, "ADAGIO"},
        {80, "080", {-1, 8, 0}, "ANDANTE"},     {99, "099", {-1, 9, 9}, "ANDANTE"},
        {100, "100", {1, 0, 0}, "ANDANTE"},     {108, "108", {1, 0, 8}, "MODERATO"},
        {120, "120", {1, 2, 0}, "ALLEGRO"},     {140, "140", {1, 4, 0}, "VIVACE"},
        {160, "160", {1, 6, 0}, "PRESTO"},      {199, "199", {1, 9, 9}, "PRESTO"},
        {200, "200", {2, 0, 0}, "PRESTISSIMO"}, {240, "240", {2, 4, 0}, "PRESTISSIMO"},
    };
    for (const auto& r : rows) {
        EXPECT_EQ(tempoDigitsText(r.tempo), r.text) << r.tempo;
        EXPECT_EQ(tempoDigits(r.tempo), r.digits) << r.tempo;
        EXPECT_EQ(tempoLabel(r.tempo), r.label) << r.tempo;
    }
}

TEST(TempoWheel, PlusStopsAtTheTopAndMinusLeansOnTheWheel) {
    EXPECT_EQ(rowAfterPlus(219), 220);
    EXPECT_EQ(rowAfterPlus(220), std::nullopt);
    EXPECT_EQ(rowAfterMinus(1), 0);
    EXPECT_EQ(rowAfterMinus(0), 0);
    EXPECT_EQ(tempoForRow(60), 80);
}

// Each step: seconds since the previous tap, then the row the tap selects (-1 for none).
struct TapCase {
    const char* name;
    std::vector<std::pair<double, int>> taps;
    bool cancelRearmAfterFirst = false;
};

class Taps : public Quiet, public ::testing::WithParamInterface<TapCase> {};

TEST_P(Taps, OneIntervalMakesOneTempo) {
    ManualTickClock clock;
    TapTempo tap(clock);
    bool first = true;
    for (const auto& [wait, row] : GetParam().taps) {
        clock.advance(wait);
        const auto result = tap.tap();
        EXPECT_EQ(result.value_or(-1), row) << "after " << wait << " s";
        if (first && GetParam().cancelRearmAfterFirst)
            tap.cancelRearm();
        first = false;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Intervals, Taps,
    ::testing::Values(TapCase{"TooFastIsIgnored", {{0, -1}, {0.2, -1}, {0.5, -1}, {0.5, 100}}},
                      TapCase{"QuarterSecondIs240", {{0, -1}, {0.25, 220}}},
                      TapCase{"ThreeSecondsIs20", {{0, -1}, {3.0, 0}}},
                      TapCase{"JustOverThreeIsIgnored", {{0, -1}, {3.05, -1}, {1.0, -1}}},
                      TapCase{"ThirdTapStartsAfresh", {{0, -1}, {0.5, 100}, {0.6, -1}, {0.7, 65}}},
                      TapCase{"TruncatesTheTempo", {{0, -1}, {0.7, 65}}},
                      TapCase{"FirstTapForgottenAfter3_1s", {{0, -1}, {3.2, -1}, {1.0, 40}}},
                      // A stop drops the re-arm: the late tap measures, and is too long.
                      TapCase{"StopKeepsTheFirstTap", {{0, -1}, {3.2, -1}, {1.0, -1}}, true}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(MachTimer, CountsTicksOfTheClockAndConvertsWithItsRatio) {
    struct SlowClock : TickClock {
        std::uint64_t ticks = 1000;
        std::uint64_t now() const override { return ticks; }
        std::uint32_t numerator() const override { return 125; }
        std::uint32_t denominator() const override { return 3; }
    } clock;
    MachTimer timer(clock);
    clock.ticks += 24'000'000;  // 24e6 * 125 / 3 ns = 1 s
    EXPECT_EQ(timer.elapsed(), 24'000'000u);
    EXPECT_FLOAT_EQ(timer.elapsedSec(), 1.0f);
    timer.start();
    EXPECT_EQ(timer.elapsed(), 0u);
}

struct SavedCase {
    const char* name;
    Dictionary saved;
    const char* state;
};

class SavedData : public Quiet, public ::testing::WithParamInterface<SavedCase> {};

TEST_P(SavedData, ReadsBackWithFallbacks) {
    MetronomeSetup setup;
    setup.setSavedData(GetParam().saved);
    EXPECT_EQ(setup.currentState(), GetParam().state);
    // Whatever was read, saving and reading again changes nothing.
    MetronomeSetup again;
    again.setSavedData(setup.savedData());
    EXPECT_EQ(again, setup);
}

INSTANTIATE_TEST_SUITE_P(
    Dictionaries, SavedData,
    ::testing::Values(
        SavedCase{"EmptyGivesDefaults", {}, "1-2-4-1-1-0-60"},
        SavedCase{"AllKeys",
                  {{"packNumber", 3},
                   {"timeSig1Value", 7},
                   {"timeSig2Value", 8},
                   {"notesPerBeat", 6},
                   {"isFirstBeatNeed", false},
                   {"isTempoX2", true},
                   {"BPM", 100},
                   {"state", "ignored"}},
                  "3-7-8-6-0-1-100"},
        SavedCase{"UnknownPackIsPackOne", {{"packNumber", 9}}, "1-2-4-1-1-0-60"},
        SavedCase{"NumeratorZeroIsTheDefault", {{"timeSig1Value", 0}}, "1-2-4-1-1-0-60"},
        SavedCase{"NumeratorPastSixteenIsTheDefault", {{"timeSig1Value", 40}}, "1-2-4-1-1-0-60"},
        SavedCase{"RowPastTheWheelIsClamped", {{"BPM", 500}}, "1-2-4-1-1-0-220"},
        SavedCase{"NegativeRowIsClamped", {{"BPM", -4}}, "1-2-4-1-1-0-0"},
        SavedCase{"RowThatIsNoNumber", {{"BPM", "fast"}}, "1-2-4-1-1-0-60"},
        SavedCase{"OddDenominator", {{"timeSig2Value", 5}, {"isTempoX2", true}}, "1-2-4-1-1-0-60"},
        SavedCase{"EighthNoteTimeDoubles", {{"timeSig2Value", 8}}, "1-2-8-1-1-1-60"},
        SavedCase{"PatternFourInEighthNoteTime",
                  {{"timeSig2Value", 8}, {"notesPerBeat", 4}, {"isTempoX2", true}},
                  "1-2-8-3-1-1-60"},
        SavedCase{"PatternOutOfRange", {{"notesPerBeat", 7}}, "1-2-4-1-1-0-60"},
        SavedCase{"NumbersAsText",
                  {{"packNumber", "2"}, {"isFirstBeatNeed", "0"}, {"BPM", "60"}},
                  "2-2-4-1-0-0-60"},
        // Practice keys: absent means off, and the code stays what it was.
        SavedCase{"BeatsOfTheBar",
                  {{"timeSig1Value", 4}, {"beatAccents", "nans"}},
                  "1-4-4-1-1-0-60-AANSNNNNNNNNNNNN-0-60-120-5-4-0-3-1"},
        SavedCase{"SilentFirstBeatWithTheSwitchOn",
                  {{"beatAccents", "SN"}, {"isFirstBeatNeed", true}},
                  "1-2-4-1-1-0-60"},
        SavedCase{"SilentFirstBeatWithTheSwitchOff",
                  {{"beatAccents", "SN"}, {"isFirstBeatNeed", false}},
                  "1-2-4-1-0-0-60-SNNNNNNNNNNNNNNN-0-60-120-5-4-0-3-1"},
        SavedCase{"AccentedFirstBeatFollowsTheSwitch",
                  {{"beatAccents", "AA"}, {"isFirstBeatNeed", false}},
                  "1-2-4-1-0-0-60-NANNNNNNNNNNNNNN-0-60-120-5-4-0-3-1"},
        SavedCase{"BadBeatsAreIgnored", {{"beatAccents", "AXN"}}, "1-2-4-1-1-0-60"},
        SavedCase{"Trainer",
                  {{"trainerOn", true},
                   {"trainerStart", 80},
                   {"trainerEnd", 60},
                   {"trainerStep", 2},
                   {"trainerBars", 8}},
                  "1-2-4-1-1-0-60-ANNNNNNNNNNNNNNN-1-80-60-2-8-0-3-1"},
        SavedCase{"TrainerOutOfRangeFallsBack",
                  {{"trainerOn", true}, {"trainerStart", 300}, {"trainerBars", 0}},
                  "1-2-4-1-1-0-60-ANNNNNNNNNNNNNNN-1-60-120-5-4-0-3-1"},
        SavedCase{"MutedBars",
                  {{"muteOn", true}, {"mutePlayBars", 2}, {"muteSilentBars", 6}},
                  "1-2-4-1-1-0-60-ANNNNNNNNNNNNNNN-0-60-120-5-4-1-2-6"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(SavedData, CurrentSettingsAddTheStateCode) {
    MetronomeSetup setup;
    setup.BPM = 100;
    const Dictionary settings = setup.currentSettings();
    EXPECT_EQ(settings.size(), 8u);
    EXPECT_EQ(valueFor(settings, "state").toString(), "1-2-4-1-1-0-100");
    EXPECT_EQ(valueFor(settings, "BPM").toInt(), 100);
    EXPECT_EQ(setup.tempo(), 120);

    // Presets carry practice keys once they are used.
    setup.setBeatKind(3, BeatKind::Silent);
    EXPECT_EQ(setup.currentSettings().size(), 17u);
    EXPECT_EQ(valueFor(setup.currentSettings(), "beatAccents").toString(), "ANSNNNNNNNNNNNNN");
    setup.setBeatKind(3, BeatKind::Normal);
    EXPECT_EQ(setup.currentSettings().size(), 8u);
    // The saved section is merged, so it always carries them.
    EXPECT_EQ(valueFor(setup.savedData(), "beatAccents").toString(), "ANNNNNNNNNNNNNNN");
}

// Beat 1 and the accent switch are one setting seen two ways.
TEST(BeatKinds, BeatOneAndTheAccentSwitchAgree) {
    MetronomeSetup setup;
    std::string seen;
    for (int tap = 0; tap < 4; ++tap) {
        setup.setBeatKind(1, nextBeatKind(setup.beatKind(1)));
        seen += beatLetter(setup.beatKind(1));
        seen += setup.isFirstBeatNeed ? '1' : '0';
    }
    EXPECT_EQ(seen, "N0S0A1N0");
    setup.setBeatKind(1, BeatKind::Silent);
    setup.setIsFirstBeatNeed(true);
    EXPECT_EQ(setup.beatKind(1), BeatKind::Accented);
    setup.setIsFirstBeatNeed(false);
    EXPECT_EQ(setup.beatKind(1), BeatKind::Normal);
}

TEST(Choices, EighthNoteTimeOffersPatternsOneTwoThreeAndSix) {
    MetronomeSetup setup;
    ASSERT_TRUE(setup.setNotesPerBeat(4));
    ASSERT_TRUE(setup.setTimeSig2Value(8));
    EXPECT_EQ(setup.notesPerBeat, 3);
    EXPECT_TRUE(setup.isTempoX2);
    EXPECT_EQ(setup.beatsPerMinute(), 160);
    for (int p = 1; p <= 6; ++p)
        EXPECT_EQ(setup.isPatternOffered(p), p != 4 && p != 5) << p;
    EXPECT_FALSE(setup.setNotesPerBeat(5));
    ASSERT_TRUE(setup.setNotesPerBeat(6));
    ASSERT_TRUE(setup.setTimeSig2Value(8));
    EXPECT_EQ(setup.notesPerBeat, 6);
    ASSERT_TRUE(setup.setTimeSig2Value(4));
    EXPECT_FALSE(setup.isTempoX2);
    EXPECT_FALSE(setup.setTimeSig2Value(2));
    EXPECT_FALSE(setup.setTimeSig1Value(17));
    EXPECT_FALSE(setup.setTimeSig1Value(0));
}

}  // namespace
}  // namespace zt
