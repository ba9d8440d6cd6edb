// How tunings are spelled and found on the list, how a typed tuning is read,
// and how its strings are picked from their lists.
#include <gtest/gtest.h>

#include "tunings/StringPicks.h"
#include "tunings/TuningList.h"
#include "tunings/TuningText.h"

using namespace zt::tunings;

namespace {

struct SpellingCase {
    const char* name;
    const char* shown;
};

class SpellingTest : public ::testing::TestWithParam<SpellingCase> {};

TEST_P(SpellingTest, NotesAreSpacedInTheKeyTheNameGives) {
    const TuningList list;
    const int index = list.find(GetParam().name);
    ASSERT_GE(index, 0) << GetParam().name;
    const Entry& entry = list.at(index);
    EXPECT_EQ(spacedNotes(entry.notes, entry.flats), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Catalogue, SpellingTest,
                         ::testing::Values(SpellingCase{"Standard", "E A D G B E"},
                                           SpellingCase{"Double Drop Bb", "Bb F Bb Eb G Bb"},
                                           SpellingCase{"Drop Bb", "Bb F Bb Eb G C"},
                                           SpellingCase{"Eb (Hendrix)", "Eb Ab Db Gb Bb Eb"},
                                           SpellingCase{"Open Eb", "Eb Bb Eb G Bb Eb"},
                                           SpellingCase{"Open G Minor", "D G D G Bb D"},
                                           SpellingCase{"Crossnote G", "D G D G Bb D"},
                                           SpellingCase{"Crossnote F", "F Ab C F C F"},
                                           SpellingCase{"Double Drop C#", "C# G# C# F# A# C#"},
                                           SpellingCase{"Drop C#", "C# G# C# F# A# D#"},
                                           SpellingCase{"Open A (2)", "E A C# E A C#"},
                                           SpellingCase{"Baritone", "B E A D F# B"},
                                           SpellingCase{"Open C#", "C# G# C# F G# C#"}),
                         [](const auto& info) {
                             std::string tag;
                             for (char c : std::string(info.param.name))
                                 tag += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
                             return tag;
                         });

TEST(FilterTest, NarrowsByNameOrNotesWhateverTheCase) {
    const struct {
        const char* query;
        std::vector<std::string> found;
    } cases[] = {
        {"open g", {"Open G", "Open G Minor"}},
        {"DADGAD", {"D modal"}},
        {"dadgad", {"D modal"}},
        {"D A D G A D", {"D modal"}},
        {"  gambale ", {"Gambale"}},
        {"Bb F Bb", {"Double Drop Bb", "Drop Bb"}},
        {"A#FA#D#GA#", {"Double Drop Bb"}},
        {"hendrix", {"Eb (Hendrix)"}},
        {"standart", {"New Standart"}},
        {"xyz", {}},
    };
    const TuningList list;
    for (const auto& c : cases) {
        std::vector<std::string> found;
        for (const auto& entry : list.entries()) {
            if (matchesFilter(c.query, entry.name, entry.notes))
                found.push_back(entry.name);
        }
        EXPECT_EQ(found, c.found) << c.query;
    }
    int drops = 0;
    for (const auto& entry : list.entries())
        drops += matchesFilter("drop", entry.name, entry.notes);
    EXPECT_EQ(drops, 13) << "six double drops and seven drops";
    EXPECT_TRUE(matchesFilter("   ", "Standard", "E2&A2&D3&G3&B3&E4"));
}

struct TypedCase {
    const char* typed;
    const char* notes;  // "" when refused
    bool flats;
    const char* error;  // a part of the message
};

class TypedTest : public ::testing::TestWithParam<TypedCase> {};

TEST_P(TypedTest, SixNotesNearTheStandardStringsAreTakenOthersExplained) {
    const TypedCase& c = GetParam();
    const TypedTuning got = parseTyped(c.typed);
    EXPECT_EQ(got.notes, c.notes);
    EXPECT_EQ(got.flats, c.flats);
    if (*c.error == '\0')
        EXPECT_EQ(got.error, "");
    else
        EXPECT_NE(got.error.find(c.error), std::string::npos) << got.error;
    if (*c.notes != '\0')
        EXPECT_EQ(parseTyped(typedForm(got.notes, got.flats)).notes, got.notes)
            << "the typed form reads back";
}

INSTANTIATE_TEST_SUITE_P(
    Parser, TypedTest,
    ::testing::Values(
        TypedCase{"D2 A2 D3 G3 A3 D4", "D2&A2&D3&G3&A3&D4", false, ""},
        TypedCase{"d2, a2, d3, g3, a3, d4", "D2&A2&D3&G3&A3&D4", false, ""},
        TypedCase{"E2&A2&D3&G3&B3&E4", "E2&A2&D3&G3&B3&E4", false, ""},
        TypedCase{"Eb2 Ab2 Db3 Gb3 Bb3 Eb4", "D#2&G#2&C#3&F#3&A#3&D#4", true, ""},
        TypedCase{"E\u266D2 A2 D3 G3 B3 E4", "D#2&A2&D3&G3&B3&E4", true, ""},
        TypedCase{"C#2 F#2 B2 E3 G#3 C#4", "C#2&F#2&B2&E3&G#3&C#4", false, ""},
        TypedCase{"Cb3 A2 D3 G3 B3 E4", "B2&A2&D3&G3&B3&E4", true, ""},
        TypedCase{"B#1 A2 D3 G3 B3 E4", "C2&A2&D3&G3&B3&E4", false, ""},
        TypedCase{"E1 A2 D3 G3 B3 E5", "E1&A2&D3&G3&B3&E5", false, ""},
        TypedCase{"H2 A2 D3 G3 B3 E4", "", false, "String 6: \"H2\" is not a note"},
        TypedCase{"E2 A2 D3 G3 B3 E", "", false, "String 1: \"E\" is not a note"},
        TypedCase{"E2 A2 D3 G3 B3 E44", "", false, "\"E44\" is not a note"},
        TypedCase{"E2 A2 D3 G3 B3 Ex4", "", false, "\"Ex4\" is not a note"},
        TypedCase{"D#1 A2 D3 G3 B3 E4", "", false, "String 6: D#1 is more than an octave"},
        TypedCase{"E2 A2 D3 G3 B3 F5", "", false, "String 1: F5 is more than an octave from E4"},
        TypedCase{"E2 A2 D3 G3 B3", "", false, "there are 5"},
        TypedCase{"E2 A2 D3 G3 B3 E4 A4", "", false, "there are 7"},
        TypedCase{"", "", false, "there are 0"}));

struct PicksCase {
    const char* typed;
    StringRows rows;
    std::array<bool, 6> known;
    bool flats;
};

void PrintTo(const PicksCase& c, std::ostream* os) {
    *os << '"' << c.typed << '"';
}

class ReadPicksTest : public ::testing::TestWithParam<PicksCase> {};

TEST_P(ReadPicksTest, EachWordWithinReachMovesItsStringAndTheOthersStay) {
    const PicksCase& c = GetParam();
    const StringRows before = {0, 1, 2, 3, 4, 5};
    const StringPicks got = readPicks(c.typed, before);
    EXPECT_EQ(got.rows, c.rows);
    EXPECT_EQ(got.known, c.known);
    EXPECT_EQ(got.flats, c.flats);
}

constexpr bool T = true;
constexpr bool F = false;
constexpr std::array<bool, 6> kAll = {T, T, T, T, T, T};

INSTANTIATE_TEST_SUITE_P(
    Picker, ReadPicksTest,
    ::testing::Values(
        PicksCase{"E2 A2 D3 G3 B3 E4", {12, 12, 12, 12, 12, 12}, kAll, false},
        PicksCase{"d2, a2, d3, g3, a3, d4", {10, 12, 12, 12, 10, 10}, kAll, false},
        PicksCase{"E1 A1 D4 G2 B4 E5", {0, 0, 24, 0, 24, 24}, kAll, false},
        PicksCase{"Eb2&Ab2&Db3&Gb3&Bb3&Eb4", {11, 11, 11, 11, 11, 11}, kAll, true},
        PicksCase{"E\u266D2 A2 D3 G3 B3 E4", {11, 12, 12, 12, 12, 12}, kAll, true},
        PicksCase{"D#1 A2 D3 G3 B3 F5", {0, 12, 12, 12, 12, 5}, {F, T, T, T, T, F}, false},
        PicksCase{"H2 A2 D3 G3 B3 E", {0, 12, 12, 12, 12, 5}, {F, T, T, T, T, F}, false},
        PicksCase{"E2 A2", {12, 12, 2, 3, 4, 5}, {T, T, F, F, F, F}, false},
        PicksCase{"E2 A2 D3 G3 B3 E4 A4", {12, 12, 12, 12, 12, 12}, kAll, false},
        PicksCase{"", {0, 1, 2, 3, 4, 5}, {}, false}));

TEST(StringChoicesTest, AnOctaveEitherSideOfTheStandardStringInTheTextsSpelling) {
    const struct {
        int string;
        bool flats;
        std::vector<const char*> some;  // rows 0, 1, 12, 24
    } cases[] = {
        {0, false, {"E1", "F1", "E2", "E3"}},
        {1, true, {"A1", "Bb1", "A2", "A3"}},
        {4, false, {"B2", "C3", "B3", "B4"}},
        {5, true, {"E3", "F3", "E4", "E5"}},
    };
    for (const auto& c : cases) {
        const auto choices = stringChoices(c.string, c.flats);
        ASSERT_EQ(choices.size(), std::size_t(kChoiceCount)) << c.string;
        EXPECT_EQ(std::vector<std::string>({choices[0], choices[1], choices[12], choices[24]}),
                  std::vector<std::string>(c.some.begin(), c.some.end()))
            << c.string;
    }
    EXPECT_TRUE(stringChoices(-1, false).empty());
    EXPECT_TRUE(stringChoices(6, false).empty());
}

TEST(StringChoicesTest, EveryPickIsATuningTheEditorTakesAndReadsBackToTheSameRow) {
    for (int string = 0; string < kStringCount; ++string) {
        for (int row = 0; row < kChoiceCount; ++row) {
            for (bool flats : {false, true}) {
                const std::string typed =
                    pickInto("E2 A2 D3 G3 B3 E4", string, row, standardRows(), flats);
                const TypedTuning parsed = parseTyped(typed);
                EXPECT_EQ(parsed.error, "") << typed;
                StringRows rows = standardRows();
                rows[static_cast<std::size_t>(string)] = row;
                EXPECT_EQ(readPicks(typed, standardRows()).rows, rows) << typed;
            }
        }
    }
}

TEST(PickIntoTest, OneWordIsReplacedInPlaceOrTheSixAreWrittenAfresh) {
    const struct {
        const char* typed;
        int string;
        int row;
        const char* written;
    } cases[] = {
        {"D2 A2 D3 G3 A3 D4", 5, 12, "D2 A2 D3 G3 A3 E4"},
        {"d2,  a2, d3, g3, a3, d4", 0, 8, "C2,  a2, d3, g3, a3, d4"},
        {"E2&A2&D3&G3&B3&E4", 3, 11, "E2&A2&D3&F#3&B3&E4"},
        {"Eb2 Ab2 Db3 Gb3 Bb3 Eb4", 2, 13, "Eb2 Ab2 Eb3 Gb3 Bb3 Eb4"},
        {"E\u266D2 A2 D3 G3 B3 E4", 0, 10, "D2 A2 D3 G3 B3 E4"},
        {"E\u266D2 A2 D3 G3 B3 E4", 1, 11, "E\u266D2 Ab2 D3 G3 B3 E4"},
        {"H2 A2 D3 G3 B3 E4", 0, 12, "E2 A2 D3 G3 B3 E4"},
        {"D2 A2 D3", 1, 14, "D2 B2 D3 G3 B3 E4"},
        {"", 5, 0, "E2 A2 D3 G3 B3 E3"},
        {"E2 A2 D3 G3 B3 E4 A4", 5, 11, "E2 A2 D3 G3 B3 D#4"},
        {"E2 A2 D3 G3 B3 E4", 6, 0, "E2 A2 D3 G3 B3 E4"},
        {"E2 A2 D3 G3 B3 E4", -1, 0, "E2 A2 D3 G3 B3 E4"},
        {"E2 A2 D3 G3 B3 E4", 0, 25, "E2 A2 D3 G3 B3 E4"},
        {"E2 A2 D3 G3 B3 E4", 0, -1, "E2 A2 D3 G3 B3 E4"},
    };
    for (const auto& c : cases) {
        const StringPicks picks = readPicks(c.typed, standardRows());
        EXPECT_EQ(pickInto(c.typed, c.string, c.row, picks.rows, picks.flats), c.written)
            << c.typed << " string " << c.string << " row " << c.row;
    }
}

}  // namespace
