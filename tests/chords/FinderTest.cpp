// Naming what is held: chord charts in several tunings against the names a
// guitarist expects, best first; the tones and formula of chords by name;
// and every catalogue chord's first fingering named back in every tuning.
#include <gtest/gtest.h>

#include <sstream>

#include "ChordTesting.h"
#include "chords/ChordFinder.h"
#include "chords/FinderRoundTrip.h"

namespace zt::chords {
namespace {

HeldStrings held(std::string_view tuningName, const std::string& chart) {
    HeldStrings h;
    for (const auto& tuning : tunings::catalogue()) {
        if (tuning.name == tuningName)
            h.open = *openNotes(tunings::tokens(tuning.notes));
    }
    std::istringstream cells(chart);
    std::string cell;
    for (auto& fret : h.frets) {
        cells >> cell;
        fret = cell == "x" ? -1 : std::stoi(cell);
    }
    return h;
}

// "C6/A -G" (G missing), "Fm7 +A#" (A# added), joined by ", ".
std::string names(const std::vector<FoundChord>& found) {
    std::string text;
    for (const auto& f : found) {
        text += (text.empty() ? "" : ", ") + f.name();
        for (const auto& note : f.missing)
            text += " -" + note;
        for (const auto& note : f.added)
            text += " +" + note;
    }
    return text;
}

struct HeldRow {
    const char* tuning;
    const char* chart;  // from the 6th string to the 1st
    const char* names;  // best first
};

class Identify : public testing::TestWithParam<HeldRow> {};

TEST_P(Identify, NamesBestFirst) {
    const auto& row = GetParam();
    EXPECT_EQ(names(identify(held(row.tuning, row.chart))), row.names)
        << row.chart << " in " << row.tuning;
}

INSTANTIATE_TEST_SUITE_P(
    Charts, Identify,
    testing::Values(
        HeldRow{"Standard", "x 3 2 0 1 0", "C"}, HeldRow{"Standard", "8 10 10 9 8 8", "C"},
        HeldRow{"Standard", "0 3 2 0 1 0", "C/E"}, HeldRow{"Standard", "3 x 2 0 1 0", "C/G"},
        // The root in the bass comes before fewer missing tones.
        HeldRow{"Standard", "x 3 2 2 1 0", "C6 -G, Am/C"},
        HeldRow{"Standard", "x 0 2 0 1 0", "Am7, C6/A"},
        HeldRow{"Standard", "x 0 2 2 1 0", "Am, C6/A -G"},
        HeldRow{"Standard", "x 3 2 3 1 0", "C7 -G"},
        HeldRow{"Standard", "x 3 2 0 3 0", "C2, Cadd9, Gsus4/C +E"},
        HeldRow{"Standard", "x 0 2 2 3 0", "Asus4, Dsus2/A, E7sus4/A -B"},
        HeldRow{"Standard", "3 5 5 x x x", "G5"},
        HeldRow{"Standard", "x 3 4 2 4 2", "Cdim7, D#dim7/C, F#dim7/C, Adim7/C"},
        // An added note is named only where nothing fits without one.
        HeldRow{"Standard", "1 1 1 1 1 1",
                "Fm7 +A#, F7sus4 +G#, G#6/F +A#, A#7sus2/F +D#, A#7sus4/F +C, G#2/F +F, "
                "G#add9/F +F"},
        // A name adding nothing comes before the root in the bass.
        HeldRow{"D modal (2)", "x 7 8 10 10 10", "C7/E, Edim +C"},
        HeldRow{"Standard", "x 3 0 x x x", ""}, HeldRow{"Standard", "x 3 0 x 2 x", ""},
        HeldRow{"Standard", "x x x 5 x x", ""}, HeldRow{"Standard", "x x x x x x", ""},
        // The bass is the lowest note, wherever its string lies.
        HeldRow{"Drop D", "0 0 0 2 3 2", "D"}, HeldRow{"Open G", "0 0 0 0 0 0", "G/D"},
        HeldRow{"Open G", "x 0 0 0 0 0", "G"}, HeldRow{"Open G", "x 5 5 5 5 5", "C"}));

struct TonesRow {
    const char* chord;
    const char* notes;
    const char* formula;
};

class Tones : public testing::TestWithParam<TonesRow> {};

TEST_P(Tones, NotesAndFormulaInStoredOrder) {
    const auto& row = GetParam();
    const auto tones = chordTones(row.chord);
    ASSERT_TRUE(tones) << row.chord;
    EXPECT_EQ(tones->notesText(), row.notes) << row.chord;
    EXPECT_EQ(tones->formulaText(), row.formula) << row.chord;
}

INSTANTIATE_TEST_SUITE_P(
    Chords, Tones,
    testing::Values(
        TonesRow{"C", "C E G", "1 3 5"}, TonesRow{"C#m7", "C# E G# B", "1 b3 5 b7"},
        TonesRow{"Bmaj9", "B D# F# A# C#", "1 3 5 7 9"}, TonesRow{"Cadd9", "C E G D", "1 3 5 9"},
        TonesRow{"C2", "C D E G", "1 2 3 5"}, TonesRow{"Gsus2", "G A D", "1 2 5"},
        TonesRow{"F7sus4", "F A# C D#", "1 4 5 b7"}, TonesRow{"Cdim7", "C D# F# A", "1 b3 b5 bb7"},
        TonesRow{"Cm6", "C D# G A", "1 b3 5 6"}, TonesRow{"A-9", "A C# E G A#", "1 3 5 b7 b9"},
        TonesRow{"Em-9", "E G B D F", "1 b3 5 b7 b9"}, TonesRow{"D7+5", "D F# A# C", "1 3 #5 b7"},
        TonesRow{"Eaug", "E G# C", "1 3 #5"}, TonesRow{"A#5", "A# F", "1 5"}));

TEST(Tones, UnknownChordsHaveNone) {
    for (const char* name : {"Cxyz", "", "H7", "Dbm", "c"})
        EXPECT_FALSE(chordTones(name)) << name;
}

TEST(OpenNotes, SixKnownTokensOnly) {
    EXPECT_EQ(openNotes({"E2", "A2", "D3", "G3", "B3", "E4"}),
              (std::array<int, kStringCount>{28, 33, 38, 43, 47, 52}));
    EXPECT_FALSE(openNotes({"E2", "A2", "D3", "G3", "B3"}));
    EXPECT_FALSE(openNotes({"E2", "A2", "D3", "G3", "B3", "Eb4"}));
}

// Every chord's first fingering in every tuning is named back as that
// chord, or tied with a chord of the very same notes that the catalogue
// lists first.
TEST(RoundTrip, EveryFirstFingeringNamesItsChord) {
    const RoundTrip trip = roundTrip();
    EXPECT_EQ(trip.pairs, 12 * kTypeCount * int(tunings::kCount));
    EXPECT_EQ(trip.absent, 0);
    EXPECT_EQ(trip.later, 0);
    EXPECT_EQ(trip.named + trip.sameNotes + trip.shapeless, trip.pairs);
    for (const auto& miss : trip.misses)
        ADD_FAILURE() << miss;
}

}  // namespace
}  // namespace zt::chords
