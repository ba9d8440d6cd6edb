// Chord names taken apart, note tokens, the tuning as the generator reads
// it, and the picker labels.
#include <gtest/gtest.h>

#include <set>

#include "chords/ChordCatalogue.h"
#include "chords/ChordLibrary.h"

namespace zt::chords {
namespace {

struct NameRow {
    const char* name;
    const char* tonic;  // nullptr: not a chord
    const char* type;
    std::vector<std::string> notes;
};

TEST(ChordCatalogue, ChordNamesGiveTonicTypeAndTonesInStoredOrder) {
    const std::vector<NameRow> rows = {
        {"C", "C", "", {"C", "E", "G"}},
        {"C#", "C#", "", {"C#", "F", "G#"}},
        {"C#m7", "C#", "m7", {"C#", "E", "G#", "B"}},
        {"Bmaj9", "B", "maj9", {"B", "D#", "F#", "A#", "C#"}},
        {"Cadd9", "C", "add9", {"C", "E", "G", "D"}},
        {"C2", "C", "2", {"C", "D", "E", "G"}},
        {"Am", "A", "m", {"A", "C", "E"}},
        {"G7+5", "G", "7+5", {"G", "B", "D#", "F"}},
        {"Ddim7", "D", "dim7", {"D", "F", "G#", "B"}},
        {"E5", "E", "5", {"E", "B"}},
        {"F#m/maj7", "F#", "m/maj7", {"F#", "A", "C#", "F"}},
        {"Cxyz", nullptr, "", {}},
        {"Bb", nullptr, "", {}},       // flats are not understood
        {"C\u266F", nullptr, "", {}},  // nor the sharp sign
        {"E#", nullptr, "", {}},
        {"H7", nullptr, "", {}},
        {"", nullptr, "", {}},
    };
    for (const auto& row : rows) {
        const auto info = chordInfo(row.name);
        if (!row.tonic) {
            EXPECT_FALSE(info) << row.name;
            continue;
        }
        ASSERT_TRUE(info) << row.name;
        EXPECT_EQ(info->tonic, row.tonic) << row.name;
        EXPECT_EQ(info->type, row.type) << row.name;
        EXPECT_EQ(info->notes, row.notes) << row.name;
    }
}

TEST(ChordCatalogue, NoteTokensNumberSemitonesFromC0) {
    ASSERT_EQ(tokens().size(), 120u);
    EXPECT_EQ(tokens().front(), "C0");
    EXPECT_EQ(tokens().back(), "B9");
    EXPECT_EQ(tokenNumber("E2"), 28);
    EXPECT_EQ(tokenNumber("A4"), 57);
    EXPECT_EQ(tokenNumber("A#3"), 46);
    EXPECT_EQ(tokenNumber("Bb3"), std::nullopt);
    EXPECT_EQ(tokenNumber("E"), std::nullopt);
}

TEST(ChordCatalogue, PickerLabelsTurnIntoRootsAndKeys) {
    ASSERT_EQ(rootLabels().size(), 12u);
    EXPECT_EQ(rootLabels()[0], "C");
    EXPECT_EQ(rootLabels()[1], "C\u266F (D\u266D)");
    EXPECT_EQ(rootLabels()[10], "A\u266F (B\u266D)");
    for (int pc = 0; pc < kPitchClasses; ++pc)
        EXPECT_EQ(rootForLabel(rootLabels()[pc]), names()[pc]);
    EXPECT_EQ(rootForLabel("H"), "");

    // Every type is offered once; only "major" and "minor" are not their keys.
    std::set<std::string_view> offered;
    for (auto label : typeLabels())
        offered.insert(*typeKeyForLabel(label));
    EXPECT_EQ(offered, std::set<std::string_view>(typeKeys().begin(), typeKeys().end()));
    EXPECT_EQ(typeKeyForLabel("major"), "");
    EXPECT_EQ(typeKeyForLabel("minor"), "m");
    EXPECT_EQ(typeLabels()[0], "major");
    EXPECT_EQ(typeLabels()[23], "5");
    EXPECT_EQ(typeKeyForLabel("m"), std::nullopt);
}

TEST(ChordCatalogue, TheTuningIsReadHighestStringFirst) {
    ChordLibrary library;
    ASSERT_TRUE(library.setExpandedTuning({"E2", "A2", "D3", "G3", "B3", "E4"}));
    const auto& open = library.tuningDictionary();
    EXPECT_EQ(open[0].name, "E");
    EXPECT_EQ(open[0].octave, "4");
    EXPECT_EQ(open[0].index, 52);
    EXPECT_EQ(open[5].name, "E");
    EXPECT_EQ(open[5].octave, "2");
    EXPECT_EQ(open[5].index, 28);

    ASSERT_TRUE(library.setTuning({"C#2", "F#2", "B2", "E3", "G#3", "C#4"}));
    ASSERT_TRUE(library.setExpandedTuning({"C#2", "F#2", "B2", "E3", "G#3", "C#4"}));
    EXPECT_EQ(library.tuningDictionary()[1].name, "G#");
    EXPECT_EQ(library.tuningDictionary()[1].octave, "3");
    // The 6th string, C#: fret 0 is C# (1), fret 11 is C (0), fret 24 C# again.
    EXPECT_EQ(library.strings()[5][0], 1);
    EXPECT_EQ(library.strings()[5][11], 0);
    EXPECT_EQ(library.strings()[5][24], 1);

    // Anything but six tokens of the table leaves the tuning alone.
    for (const std::vector<std::string>& bad : std::vector<std::vector<std::string>>{
             {"E2", "A2"}, {"E2", "A2", "D3", "G3", "B3", "H4"}}) {
        EXPECT_FALSE(library.setTuning(bad));
        EXPECT_FALSE(library.setExpandedTuning(bad));
    }
    EXPECT_EQ(library.tuningDictionary()[5].index, 25);
}

}  // namespace
}  // namespace zt::chords
