// What a guitarist would check in the generator's output: the familiar open
// and barre shapes with their fingers, the groups by bass note, the order
// within a group, and the fingers and barres of single shapes.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "ChordTesting.h"
#include "chords/FingerAssignment.h"

namespace zt::test {
namespace {

struct KnownShape {
    const char* tuning;
    const char* root;
    const char* type;
    const char* frets;    // 6th string to 1st
    const char* fingers;  // same order, 0 open, x muted
    const char* bass;     // the group it belongs to
    bool first;           // shown first of all
};

TEST(Generator, FamiliarShapesComeWithTheirFingersInTheirBassGroup) {
    const std::vector<KnownShape> rows = {
        {"Standard", "C", "", "x 3 2 0 1 0", "x 3 2 0 1 0", "C", true},
        {"Standard", "C", "", "0 3 2 0 1 0", "0 3 2 0 1 0", "E", false},
        {"Standard", "A", "m", "x 0 2 2 1 0", "x 0 2 3 1 0", "A", true},
        {"Standard", "E", "", "0 2 2 1 0 0", "0 2 3 1 0 0", "E", true},
        {"Standard", "G", "", "3 2 0 0 0 3", "2 1 0 0 0 3", "G", true},
        {"Standard", "F", "", "1 3 3 2 1 1", "1 3 4 2 1 1", "F", false},
        {"Standard", "B", "m", "x 2 4 4 3 2", "x 1 3 4 2 1", "B", true},
        {"Standard", "C", "dim7", "x x 1 2 1 2", "x x 1 2 1 3", "C", true},
        {"Drop D", "D", "", "0 0 0 2 3 2", "0 0 0 1 2 1", "D", true},
        // Above the lowest fret the fingers go from the bass up.
        {"Standard", "C", "6", "5 3 5 5 5 5", "3 1 4 4 4 4", "A", false},
        {"Standard", "C", "9", "x 3 2 3 3 3", "x 2 1 3 3 3", "C", false},
    };
    ChordLibrary library;
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.tuning) + " " + row.root + row.type + " " + row.frets);
        useTuning(library, row.tuning);
        VariationSet set = library.getVariations(row.root, row.type);
        sortVariations(set);
        const int at = find(set, row.frets);
        ASSERT_GE(at, 0);
        EXPECT_EQ(fingersOf(set.records[at]), row.fingers);
        EXPECT_EQ(at == 0, row.first);
        int group = 0;
        while (set.groupStart[group + 1] <= at)
            ++group;
        EXPECT_EQ(bassName(set, group, row.root), row.bass);
    }
}

TEST(Generator, GroupsFollowTheStoredOrderOfTheChordTones) {
    const std::vector<std::pair<const char*, std::vector<std::string>>> rows = {
        {"", {"C", "E", "G"}},
        {"add9", {"C", "E", "G", "D"}},
        {"2", {"C", "D", "E", "G"}},
        {"dim7", {"C"}},  // a dim7 is its own inversions: one group
    };
    ChordLibrary library;
    for (const auto& [type, basses] : rows) {
        const VariationSet set = library.getVariations("C", type);
        std::vector<std::string> got;
        for (int g = 0; g < set.groupCount; ++g)
            got.emplace_back(bassName(set, g, "C"));
        EXPECT_EQ(got, basses) << "C" << type;
        EXPECT_EQ(set.records[0].bassNote, -1) << "the root's group comes first";
    }
}

TEST(Generator, AChordWithoutShapesGivesAnEmptySet) {
    ChordLibrary library;
    useTuning(library, "Csus2");
    for (const auto& [root, type] :
         std::vector<std::pair<const char*, const char*>>{{"D", "dim7"}, {"H", ""}, {"C", "xyz"}}) {
        const VariationSet set = library.getVariations(root, type);
        EXPECT_EQ(set.count, 0) << root << type;
        EXPECT_EQ(set.groupCount, 1);
        EXPECT_EQ(set.groupStart[1], 0);
        EXPECT_EQ(bassName(set, 0, root), "");
    }
}

ChordVariation record(const std::string& frets, int lowestFret, int openStrings, int fingersUsed) {
    const Positions p = positions(frets);
    ChordVariation v{};
    v.firstString = p.firstString;
    v.lastString = p.firstString - p.played + 1;
    v.frets = p.frets;
    v.lowestFret = lowestFret;
    v.openStrings = openStrings;
    v.fingersUsed = fingersUsed;
    return v;
}

TEST(VariationOrder, FourKeysThenLowerFretsFromTheSixthString) {
    struct Row {
        const char* why;
        ChordVariation first, second;
    };
    const std::vector<Row> rows = {
        {"lower position", record("x 5 7 7 6 5", 5, 0, 4), record("x 7 9 9 8 7", 7, 0, 4)},
        {"more open strings", record("x 0 2 2 1 0", 0, 2, 3), record("x 0 2 2 1 4", 0, 1, 3)},
        {"more strings", record("3 3 5 5 5 3", 3, 0, 3), record("x 3 5 5 5 3", 3, 0, 3)},
        {"fewer fingers", record("x 3 5 5 5 3", 3, 0, 2), record("x 3 5 5 5 5", 3, 0, 3)},
        {"lower frets", record("x 3 5 5 5 3", 3, 0, 3), record("x 3 5 5 5 5", 3, 0, 3)},
        {"muted before open", record("x 0 2 2 1 0", 0, 2, 3), record("0 2 2 1 0 x", 0, 2, 3)},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(showsBefore(row.first, row.second)) << row.why;
        EXPECT_FALSE(showsBefore(row.second, row.first)) << row.why;
    }
    EXPECT_FALSE(showsBefore(rows[0].first, rows[0].first));
}

TEST(VariationOrder, EveryRunShowsTheSameOrderWhateverTheSearchOrder) {
    ChordLibrary library;
    VariationSet sorted = library.getVariations("G", "7");
    sortVariations(sorted);
    VariationSet shuffled = library.getVariations("G", "7");
    std::mt19937 random(7);
    for (int g = 0; g < shuffled.groupCount; ++g) {
        std::shuffle(shuffled.records.begin() + shuffled.groupStart[g],
                     shuffled.records.begin() + shuffled.groupStart[g + 1], random);
    }
    sortVariations(shuffled);
    ASSERT_EQ(shuffled.count, sorted.count);
    for (int i = 0; i < sorted.count; ++i)
        EXPECT_EQ(fretsOf(shuffled.records[i]), fretsOf(sorted.records[i])) << i;
}

struct FingerRow {
    const char* frets;  // 6th string to 1st
    const char* fingers;
    std::vector<std::array<int, 4>> barres;  // fret, finger, from string, to string
};

TEST(FingerAssignment, FingersAndBarresOfSingleShapes) {
    const std::vector<FingerRow> rows = {
        // The barre at the lowest fret, the rest fret by fret from the bass.
        {"1 3 3 2 1 1", "1 3 4 2 1 1", {{1, 1, 6, 1}}},
        {"x 2 4 4 3 2", "x 1 3 4 2 1", {{2, 1, 5, 1}}},
        // Open strings break the barre: only the run after the last counts,
        // and a string on the bass side of it takes the next finger.
        {"1 0 3 2 1 1", "2 0 4 3 1 1", {{1, 1, 2, 1}}},
        {"x 0 2 2 1 0", "x 0 2 3 1 0", {}},
        // A middle fret used: nothing to spread.
        {"x 3 2 0 1 0", "x 3 2 0 1 0", {}},
        // Spread: the top fret moves up past an empty fret...
        {"x 3 5 5 x x", "x 1 3 3 x x", {{5, 3, 4, 3}}},
        // ...by two with two fingers over three frets...
        {"x x 2 2 2 5", "x x 1 1 1 4", {{2, 1, 4, 2}}},
        // ...by one when only the fret above the lowest is used...
        {"x x 2 3 5 x", "x x 1 2 4 x", {}},
        // ...and the two top frets by one when only the one below the top is.
        {"x x 2 4 5 x", "x x 1 3 4 x", {}},
        // Above the lowest fret, fingers and barres take their numbers from
        // the bass up: a string on the bass side of a barre at its fret
        // comes first.
        {"5 3 5 5 5 5", "3 1 4 4 4 4", {{5, 4, 4, 1}}},
        {"12 10 10 12 12 12", "3 1 1 4 4 4", {{10, 1, 5, 4}, {12, 4, 3, 1}}},
        {"x 3 1 3 3 3", "x 3 1 4 4 4", {{3, 4, 3, 1}}},
        {"8 6 8 6 8 8", "2 1 3 1 4 4", {{6, 1, 5, 3}, {8, 4, 2, 1}}},
        // A higher barre with a bass-side string pressed above it is dropped.
        {"x 3 6 5 5 x", "x 1 4 2 3 x", {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.frets);
        const Positions p = positions(row.frets);
        FingerAssignment a = assignFingers(p.frets, p.played, p.lowestFretted);
        spreadFingers(a, p.frets, p.played, p.lowestFretted);
        ChordVariation v{};
        v.firstString = p.firstString;
        v.lastString = p.firstString - p.played + 1;
        v.frets = p.frets;
        v.fingers = a.fingers;
        v.barres = a.barres;
        EXPECT_EQ(fingersOf(v), row.fingers);
        const ChordShape shape = shapeOf(v);
        ASSERT_EQ(shape.barreCount, static_cast<int>(row.barres.size()));
        for (int b = 0; b < shape.barreCount; ++b) {
            const auto& got = shape.barres[b];
            EXPECT_EQ((std::array<int, 4>{got.fret, got.finger, got.from, got.to}), row.barres[b]);
        }
    }
}

TEST(FingerAssignment, AShapeNeedingAFifthFingerIsMarked) {
    const Positions p = positions("1 3 3 2 4 1");
    const FingerAssignment a = assignFingers(p.frets, p.played, p.lowestFretted);
    EXPECT_EQ(a.fingers[0], fingercode::kMuted);
    EXPECT_EQ(a.fingerCount, 6);
}

}  // namespace
}  // namespace zt::test
