// The metronome's fixed tables checked whole, each against its own written
// form (tempo names as ranges, pack ids, subdivision masks), and a stop that
// arrives while a restart is still under way.
#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <optional>
#include <string>
#include <vector>

#include "ClickTrack.h"
#include "framework/Log.h"
#include "framework/TickClock.h"
#include "metronome/ClickSounds.h"
#include "metronome/MetronomeCore.h"
#include "metronome/SubdivisionPattern.h"
#include "metronome/TempoRules.h"
#include "sound/SoundBank.h"

namespace zt::test {
namespace {

struct NameRange {
    int from, to;
    const char* name;
};

// The names by tempo range, both ends included.
const NameRange kNames[] = {
    {20, 39, "Larghissimo"}, {40, 59, "Largo"},         {60, 65, "Larghetto"}, {66, 75, "Adagio"},
    {76, 107, "Andante"},    {108, 119, "Moderato"},    {120, 139, "Allegro"}, {140, 159, "Vivace"},
    {160, 199, "Presto"},    {200, 240, "Prestissimo"},
};

TEST(TempoNameTable, EveryTempoOfTheWheelHasTheNameOfItsRange) {
    int covered = 0;
    for (const auto& range : kNames) {
        std::string upper = range.name;
        for (char& c : upper)
            c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        for (int tempo = range.from; tempo <= range.to; ++tempo, ++covered) {
            EXPECT_EQ(tempoName(tempo), range.name) << tempo;
            EXPECT_EQ(tempoLabel(tempo), upper) << tempo;
        }
    }
    EXPECT_EQ(covered, kWheelRows);
}

TEST(TempoNameTable, DigitsOfEveryTempo) {
    for (int tempo = kMinTempo; tempo <= kMaxTempo; ++tempo) {
        const std::string text = (tempo < 100 ? "0" : "") + std::to_string(tempo);
        EXPECT_EQ(tempoDigitsText(tempo), text);
        const std::array<int, 3> digits = {tempo < 100 ? -1 : tempo / 100, tempo / 10 % 10,
                                           tempo % 10};
        EXPECT_EQ(tempoDigits(tempo), digits) << tempo;
    }
}

TEST(TempoNameTable, PlusAndMinusAtBothEndsOfTheWheel) {
    const struct {
        int row;
        std::optional<int> plus;
        int minus;
    } rows[] = {{0, 1, 0}, {1, 2, 0}, {219, 220, 218}, {220, std::nullopt, 219}};
    for (const auto& r : rows) {
        EXPECT_EQ(rowAfterPlus(r.row), r.plus) << r.row;
        EXPECT_EQ(rowAfterMinus(r.row), r.minus) << r.row;
    }
}

TEST(ClickPackTable, IdsOfEveryPackAndTheFallback) {
    const struct {
        int asked, pack, tick, tock, subtick;
        const char* tickFile;
    } rows[] = {
        {1, 1, 51, 52, 53, "1_tick.caf"}, {2, 2, 54, 55, 56, "2_tick.caf"},
        {3, 3, 57, 58, 59, "3_tick.caf"}, {4, 4, 60, 61, 62, "4_tick.caf"},
        {5, 5, 63, 64, 65, "5_tick.caf"}, {0, 1, 51, 52, 53, "1_tick.caf"},
        {6, 1, 51, 52, 53, "1_tick.caf"}, {-1, 1, 51, 52, 53, "1_tick.caf"},
    };
    for (const auto& r : rows) {
        EXPECT_EQ(clickSoundsForPack(r.asked), (ClickSounds{r.pack, r.tick, r.tock, r.subtick}))
            << "pack " << r.asked;
        EXPECT_EQ(SoundBank::fileName(r.tick), r.tickFile);
        const std::string prefix = std::to_string(r.pack) + "_";
        EXPECT_EQ(SoundBank::fileName(r.tock), prefix + "tock.caf");
        EXPECT_EQ(SoundBank::fileName(r.subtick), prefix + "subtick.caf");
    }
}

TEST(SubdivisionTable, SlotsAndMaskOfEveryPattern) {
    const struct {
        int pattern;
        std::vector<bool> mask;  // empty: no subdivision
    } rows[] = {
        {0, {}},
        {1, {}},
        {2, {false, true}},
        {3, {false, true, true}},
        {4, {false, true, true, true}},
        {5, {false, false, false, true}},
        {6, {false, false, true}},
        {7, {}},
    };
    for (const auto& r : rows) {
        const SubdivisionPattern p = subdivisionPattern(r.pattern);
        EXPECT_EQ(p.slotsPerBeat, int(r.mask.size())) << r.pattern;
        for (int slot = 0; slot < SubdivisionPattern::kMaxSlots; ++slot) {
            const bool on = slot < int(r.mask.size()) && r.mask[size_t(slot)];
            EXPECT_EQ(p.mask[size_t(slot)], on) << "pattern " << r.pattern << " slot " << slot;
        }
    }
}

// At 60 beats per minute in 4/4 with no subdivision (a beat every 44100
// frames, bars from frame 0), the tempo wheel moves to 120 at 2.5 beats: one
// new period after the beat at 2.0, so the next beat (the bar's 4th) sounds
// at once. What follows is given to the core `after` blocks of 441 frames
// later. Onsets from the change on.
struct LateCommand {
    const char* name;
    int after;  // blocks after the tempo change
    void (*act)(MetronomeCore&);
    std::vector<Onset> heard;  // every onset before 4.5 beats
    bool running;              // still running at 8 beats
};

class AfterATempoChange : public ::testing::TestWithParam<LateCommand> {
protected:
    void SetUp() override { setLogQuiet(true); }
    void TearDown() override { setLogQuiet(false); }
};

TEST_P(AfterATempoChange, TheLastCommandDecides) {
    const auto& c = GetParam();
    SyntheticClicks clicks;
    MetronomeEngine engine(kRate, clicks.bank());
    ManualTickClock clock;
    MetronomeCore core(engine, clock);
    core.setSavedData({{"BPM", 40}, {"timeSig1Value", 4}});
    core.startMetronome();
    Render render(engine, {441});
    const std::int64_t change = std::int64_t(2.5 * kRate);
    render.to(change);
    ASSERT_TRUE(core.selectRow(100));
    render.to(change + 441LL * c.after);
    c.act(core);
    render.to(std::int64_t(4.5 * kRate));
    EXPECT_EQ(render.onsetsFrom(change), c.heard);
    render.to(8 * kRate);
    EXPECT_EQ(engine.isRunning(), c.running);
}

const std::int64_t kChange = 5 * kRate / 2;
const std::int64_t kHalf = kRate / 2;
const std::int64_t kQuarter = kRate / 4;

INSTANTIATE_TEST_SUITE_P(
    Commands, AfterATempoChange,
    ::testing::Values(
        // Without subdivision a stop still lets the next beat sound, once.
        LateCommand{"StopInTheSameBlock",
                    0,
                    [](MetronomeCore& m) { m.stopMetronome(); },
                    {{kChange, 51}},
                    false},
        LateCommand{"StopLaterInTheBeat",
                    20,
                    [](MetronomeCore& m) { m.stopMetronome(); },
                    {{kChange, 51}, {kChange + kHalf, 52}},
                    false},
        LateCommand{"PauseInTheSameBlock",
                    0,
                    [](MetronomeCore& m) { m.endMetronome(); },
                    {{kChange, 51}},
                    false},
        LateCommand{"PackFromTheNextBeat",
                    0,
                    [](MetronomeCore& m) { m.setCurrentPack(4); },
                    {{kChange, 60},
                     {kChange + kHalf, 61},
                     {kChange + 2 * kHalf, 60},
                     {kChange + 3 * kHalf, 60}},
                    true},
        LateCommand{"AccentOffFromTheNextBar",
                    10,
                    [](MetronomeCore& m) { m.setIsFirstBeatNeed(false); },
                    {{kChange, 51},
                     {kChange + kHalf, 51},
                     {kChange + 2 * kHalf, 51},
                     {kChange + 3 * kHalf, 51}},
                    true},
        // 240 a minute: one new period after the beat at 2.5, the bar going on.
        LateCommand{"TempoAgainOneNewPeriodOn",
                    5,
                    [](MetronomeCore& m) { m.selectRow(220); },
                    {{kChange, 51},
                     {kChange + kQuarter, 52},
                     {kChange + 2 * kQuarter, 51},
                     {kChange + 3 * kQuarter, 51},
                     {kChange + 4 * kQuarter, 51},
                     {kChange + 5 * kQuarter, 52},
                     {kChange + 6 * kQuarter, 51},
                     {kChange + 7 * kQuarter, 51}},
                    true}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace zt::test
