// The chord catalogue checked whole: the 24 types with their formulas in
// stored order, the notes of every type on every root worked out from the
// semitones alone, and both picker lists.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "chords/ChordCatalogue.h"

namespace zt::chords {
namespace {

struct TypeRow {
    const char* key;
    std::vector<int> degrees;    // as stored
    std::vector<int> semitones;  // above the tonic, same order
};

// In stored order.
const TypeRow kTypes[] = {
    {"", {1, 5, 8}, {0, 4, 7}},
    {"7", {1, 5, 8, 11}, {0, 4, 7, 10}},
    {"maj7", {1, 5, 8, 12}, {0, 4, 7, 11}},
    {"6", {1, 5, 8, 10}, {0, 4, 7, 9}},
    {"m", {1, 4, 8}, {0, 3, 7}},
    {"m7", {1, 4, 8, 11}, {0, 3, 7, 10}},
    {"m/maj7", {1, 4, 8, 12}, {0, 3, 7, 11}},
    {"m6", {1, 4, 8, 10}, {0, 3, 7, 9}},
    {"sus2", {1, 3, 8}, {0, 2, 7}},
    {"sus4", {1, 6, 8}, {0, 5, 7}},
    {"7sus2", {1, 3, 8, 11}, {0, 2, 7, 10}},
    {"7sus4", {1, 6, 8, 11}, {0, 5, 7, 10}},
    {"dim", {1, 4, 7}, {0, 3, 6}},
    {"dim7", {1, 4, 7, 10}, {0, 3, 6, 9}},
    {"aug", {1, 5, 9}, {0, 4, 8}},
    {"5", {1, 8}, {0, 7}},
    {"2", {1, 3, 5, 8}, {0, 2, 4, 7}},
    {"7+5", {1, 5, 9, 11}, {0, 4, 8, 10}},
    {"9", {1, 5, 8, 11, 3}, {0, 4, 7, 10, 2}},
    {"-9", {1, 5, 8, 11, 2}, {0, 4, 7, 10, 1}},
    {"m-9", {1, 4, 8, 11, 2}, {0, 3, 7, 10, 1}},
    {"m9", {1, 4, 8, 11, 3}, {0, 3, 7, 10, 2}},
    {"maj9", {1, 5, 8, 12, 3}, {0, 4, 7, 11, 2}},
    {"add9", {1, 5, 8, 3}, {0, 4, 7, 2}},
};

const char* const kChromatic[] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};

TEST(ChordTypeTable, KeysAndFormulasInStoredOrder) {
    ASSERT_EQ(std::size(kTypes), typeKeys().size());
    for (std::size_t t = 0; t < std::size(kTypes); ++t) {
        const auto& row = kTypes[t];
        EXPECT_EQ(typeKeys()[t], row.key) << "type " << t;
        const Formula& f = formula(int(t));
        ASSERT_EQ(f.size, int(row.degrees.size())) << row.key;
        for (int i = 0; i < f.size; ++i) {
            EXPECT_EQ(f.degrees[size_t(i)], row.degrees[size_t(i)]) << row.key << " tone " << i;
            EXPECT_EQ(f.semitones(i), row.semitones[size_t(i)]) << row.key << " tone " << i;
        }
    }
}

TEST(ChordTypeTable, EveryTypeOnEveryRoot) {
    for (int root = 0; root < 12; ++root) {
        for (const auto& row : kTypes) {
            const std::string name = std::string(kChromatic[root]) + row.key;
            std::vector<std::string> notes;
            for (int s : row.semitones)
                notes.push_back(kChromatic[(root + s) % 12]);
            const auto info = chordInfo(name);
            ASSERT_TRUE(info) << name;
            EXPECT_EQ(info->tonic, kChromatic[root]) << name;
            EXPECT_EQ(info->type, row.key) << name;
            EXPECT_EQ(info->notes, notes) << name;
        }
    }
}

TEST(ChordTypeTable, PickerListsInTheirOrder) {
    const std::vector<std::string> types = {"major", "minor", "dim",  "aug",    "2",    "7",
                                            "m7",    "maj7",  "dim7", "m/maj7", "7+5",  "7sus2",
                                            "7sus4", "6",     "m6",   "9",      "-9",   "m9",
                                            "m-9",   "maj9",  "sus2", "sus4",   "add9", "5"};
    EXPECT_EQ(std::vector<std::string>(typeLabels().begin(), typeLabels().end()), types);
    for (const auto& label : types) {
        const std::string key = label == "major" ? "" : label == "minor" ? "m" : label;
        EXPECT_EQ(typeKeyForLabel(label), key) << label;
    }

    const std::string sharp = "\u266F", flat = "\u266D";
    const std::vector<std::string> roots = {"C",
                                            "C" + sharp + " (D" + flat + ")",
                                            "D",
                                            "D" + sharp + " (E" + flat + ")",
                                            "E",
                                            "F",
                                            "F" + sharp + " (G" + flat + ")",
                                            "G",
                                            "G" + sharp + " (A" + flat + ")",
                                            "A",
                                            "A" + sharp + " (B" + flat + ")",
                                            "B"};
    EXPECT_EQ(std::vector<std::string>(rootLabels().begin(), rootLabels().end()), roots);
    for (int pc = 0; pc < 12; ++pc)
        EXPECT_EQ(rootForLabel(roots[size_t(pc)]), kChromatic[pc]);
}

}  // namespace
}  // namespace zt::chords
