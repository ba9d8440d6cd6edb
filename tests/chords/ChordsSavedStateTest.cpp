// The chords screen's saved section: written with every key in its form,
// and read back from anything a file may hold onto the nearest valid state.
#include <gtest/gtest.h>

#include <climits>
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
    std::string label;
    int rootRow, typeRow, index;
    bool notes;
};

class Restore : public ::testing::TestWithParam<RestoreCase> {};

TEST_P(Restore, OpensOnTheNearestValidState) {
    const auto& c = GetParam();
    const ChordsState state = restoredState(c.saved, roots(), types());
    EXPECT_EQ(state.choice.label(), c.label);
    EXPECT_EQ(state.choice.rootRow, c.rootRow);
    EXPECT_EQ(state.choice.typeRow, c.typeRow);
    EXPECT_EQ(state.currentVariationsIndex, c.index);
    EXPECT_EQ(state.notes, c.notes);
}

INSTANTIATE_TEST_SUITE_P(
    Sections, Restore,
    ::testing::Values(
        RestoreCase{"AMinor", {{"chordPart1", "A"}, {"chordPart2", "m"}}, "Am", 9, 1, 0, false},
        RestoreCase{
            "BlackKeyWithTheSharpSign", {{"chordPart1", "C\u266F"}}, "C\u266F", 1, 0, 0, false},
        RestoreCase{"BlackKeyWithAnAsciiSharp",
                    {{"chordPart1", "F#"}, {"chordPart2", "7"}},
                    "F\u266F7",
                    6,
                    5,
                    0,
                    false},
        RestoreCase{"UnknownRootFallsBackOnItsWheelRow",
                    {{"chordPart1", "H"}, {"pickerComponent0Row", "4"}},
                    "E",
                    4,
                    0,
                    0,
                    false},
        RestoreCase{"UnknownTypeFallsBackOnItsWheelRow",
                    {{"chordPart2", "xyz"}, {"pickerComponent1Row", "1"}},
                    "Cm",
                    0,
                    1,
                    0,
                    false},
        RestoreCase{
            "RowsOutOfRangeGiveTheDefault",
            {{"chordPart1", 5}, {"pickerComponent0Row", "99"}, {"pickerComponent1Row", "-1"}},
            "C",
            0,
            0,
            0,
            false},
        RestoreCase{"RowsAsNumbers",
                    {{"pickerComponent0Row", 2}, {"pickerComponent1Row", 3.0}},
                    "Daug",
                    2,
                    3,
                    0,
                    false},
        RestoreCase{"TheChordWinsOverItsRows",
                    {{"chordPart1", "G"}, {"chordPart2", ""}, {"pickerComponent0Row", "0"}},
                    "G",
                    7,
                    0,
                    0,
                    false},
        RestoreCase{"NegativeIndex", {{"currentVariationsIndex", "-3"}}, "C", 0, 0, 0, false},
        RestoreCase{
            "HugeIndex", {{"currentVariationsIndex", "99999999999999"}}, "C", 0, 0, INT_MAX, false},
        RestoreCase{
            "IndexInExponentForm", {{"currentVariationsIndex", "1e30"}}, "C", 0, 0, INT_MAX, false},
        RestoreCase{"IndexWithSpaces", {{"currentVariationsIndex", " 12 "}}, "C", 0, 0, 12, false},
        RestoreCase{"IndexAsAnInteger", {{"currentVariationsIndex", 7}}, "C", 0, 0, 7, false},
        RestoreCase{"IndexNotANumber", {{"currentVariationsIndex", "seven"}}, "C", 0, 0, 0, false},
        RestoreCase{"IndexInfinite", {{"currentVariationsIndex", "inf"}}, "C", 0, 0, 0, false},
        RestoreCase{"NotesAsABoolean", {{"notes", true}}, "C", 0, 0, 0, true},
        RestoreCase{"NotesAsAString", {{"notes", "1"}}, "C", 0, 0, 0, true},
        RestoreCase{"NotesGarbage", {{"notes", "maybe"}}, "C", 0, 0, 0, false},
        RestoreCase{
            "ADictionaryForAString", {{"chordPart1", Dictionary{{"A", 1}}}}, "C", 0, 0, 0, false}),
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
