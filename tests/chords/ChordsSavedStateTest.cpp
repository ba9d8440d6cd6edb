// The chords screen's saved section: written with every key in its form,
// and read back from anything a file may hold onto the nearest valid state.
#include <gtest/gtest.h>

#include <string>

#include "chords/ChordCatalogue.h"
#include "chords/ui/ChordsSavedState.h"

namespace zt::test {
namespace {

template <class Case>
requires requires(const Case& c) {
    c.name;
}
void PrintTo(const Case& c, std::ostream* os) {
    *os << c.name;
}

const std::vector<std::string>& roots() {
    static const std::vector<std::string> list(chords::rootLabels().begin(),
                                               chords::rootLabels().end());
    return list;
}

const std::vector<std::string>& types() {
    static const std::vector<std::string> list(chords::typeLabels().begin(),
                                               chords::typeLabels().end());
    return list;
}

TEST(ChordsSavedState, EveryKeyIsWrittenInItsForm) {
    ChordsState state;
    state.choice = *choiceAt(roots(), types(), 1, 6);  // C♯ m7
    state.currentVariationsIndex = 12;
    state.canPlayString = {true, true, true, true, false, false};
    state.lockedString = {false, false, true, false, false, false};
    state.notes = true;
    const Dictionary saved = savedDictionary(state);

    EXPECT_EQ(saved.size(), 19u);
    EXPECT_EQ(saved.at("ChordName"), Value("C\u266Fm7"));
    EXPECT_EQ(saved.at("chordPart1"), Value("C\u266F"));
    EXPECT_EQ(saved.at("chordPart2"), Value("m7"));
    EXPECT_EQ(saved.at("currentVariationsIndex"), Value("12"));
    EXPECT_EQ(saved.at("pickerComponent0Row"), Value("1"));
    EXPECT_EQ(saved.at("pickerComponent1Row"), Value("6"));
    EXPECT_EQ(saved.at("notes"), Value(true));
    for (int n = 1; n <= 6; ++n) {
        EXPECT_EQ(saved.at("canPlayString" + std::to_string(n)), Value(n <= 4 ? "1" : "0")) << n;
        EXPECT_EQ(saved.at("lockedString" + std::to_string(n)), Value(n == 3 ? "1" : "0")) << n;
    }
    EXPECT_EQ(restoredState(saved, roots(), types()), state);
}

TEST(ChordsSavedState, AnEmptySectionIsTheDefaults) {
    const ChordsState state = restoredState({}, roots(), types());
    EXPECT_EQ(state, ChordsState{});
    EXPECT_EQ(state.choice.label(), "C");
    EXPECT_EQ(state.choice.chordPartTwo, "");
}

struct RestoreCase {
    const char* name;
    Dictionary saved;
    // The chord, the wheel rows, the index and the mode it opens on.
    const char* opens;
};

std::string described(const ChordsState& state) {
    return state.choice.label() + " rows " + std::to_string(state.choice.rootRow) + " " +
           std::to_string(state.choice.typeRow) + " index " +
           std::to_string(state.currentVariationsIndex) + (state.notes ? " notes" : "");
}

class Restore : public ::testing::TestWithParam<RestoreCase> {};

TEST_P(Restore, OpensOnTheNearestValidState) {
    EXPECT_EQ(described(restoredState(GetParam().saved, roots(), types())), GetParam().opens);
}

INSTANTIATE_TEST_SUITE_P(
    Sections, Restore,
    ::testing::Values(
        RestoreCase{"AMinor", {{"chordPart1", "A"}, {"chordPart2", "m"}}, "Am rows 9 1 index 0"},
        RestoreCase{"BlackKeyWithAnAsciiSharp",
                    {{"chordPart1", "F#"}, {"chordPart2", "7"}},
                    "F\u266F7 rows 6 5 index 0"},
        RestoreCase{"UnknownRootFallsBackOnItsWheelRow",
                    {{"chordPart1", "H"}, {"pickerComponent0Row", "4"}},
                    "E rows 4 0 index 0"},
        RestoreCase{"UnknownTypeFallsBackOnItsWheelRow",
                    {{"chordPart2", "xyz"}, {"pickerComponent1Row", "1"}},
                    "Cm rows 0 1 index 0"},
        RestoreCase{
            "RowsOutOfRangeGiveTheDefault",
            {{"chordPart1", 5}, {"pickerComponent0Row", "99"}, {"pickerComponent1Row", "-1"}},
            "C rows 0 0 index 0"},
        RestoreCase{"RowsAsNumbers",
                    {{"pickerComponent0Row", 2}, {"pickerComponent1Row", 3.0}},
                    "Daug rows 2 3 index 0"},
        RestoreCase{"TheChordWinsOverItsRows",
                    {{"chordPart1", "G"}, {"chordPart2", ""}, {"pickerComponent0Row", "0"}},
                    "G rows 7 0 index 0"},
        RestoreCase{"NegativeIndex", {{"currentVariationsIndex", "-3"}}, "C rows 0 0 index 0"},
        RestoreCase{"HugeIndex",
                    {{"currentVariationsIndex", "99999999999999"}},
                    "C rows 0 0 index 2147483647"},
        RestoreCase{"IndexInExponentForm",
                    {{"currentVariationsIndex", "1e30"}},
                    "C rows 0 0 index 2147483647"},
        RestoreCase{"IndexNotANumber", {{"currentVariationsIndex", "seven"}}, "C rows 0 0 index 0"},
        RestoreCase{"IndexInfinite", {{"currentVariationsIndex", "inf"}}, "C rows 0 0 index 0"},
        RestoreCase{"NotesAsABoolean", {{"notes", true}}, "C rows 0 0 index 0 notes"},
        RestoreCase{"NotesGarbage", {{"notes", "maybe"}}, "C rows 0 0 index 0"},
        RestoreCase{
            "ADictionaryForAString", {{"chordPart1", Dictionary{{"A", 1}}}}, "C rows 0 0 index 0"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(ChordsSavedState, FlagsReadBackFromAnyNumberFormAndKeepDefaultsOtherwise) {
    const ChordsState state = restoredState({{"canPlayString1", "0"},
                                             {"canPlayString2", 0},
                                             {"canPlayString3", "banana"},
                                             {"canPlayString4", false},
                                             {"lockedString5", "1"},
                                             {"lockedString6", "yes"}},
                                            roots(), types());
    EXPECT_EQ(state.canPlayString, (std::array<bool, 6>{false, false, true, false, true, true}));
    EXPECT_EQ(state.lockedString, (std::array<bool, 6>{false, false, false, false, true, false}));
}

}  // namespace
}  // namespace zt::test
