// The finder on the chords screen: shapes tapped on the neck named as a
// guitarist expects, in the current tuning, without strumming or touching
// the fingering shown.
#include <QSignalSpy>

#include "ChordsScreenFixture.h"

namespace zt::test {
namespace {

// A tap: string number and fret; fret 0 taps the nut above the string.
struct Tap {
    int string, fret;
};

struct FinderCase {
    const char* name;
    const char* tuning;
    std::vector<Tap> taps;
    const char* held;   // as the header shows it
    const char* names;  // every name, best first, with its notes and formula
};
void PrintTo(const FinderCase& c, std::ostream* os) {
    *os << c.name;
}

std::string namesOf(const ChordsFinder& finder) {
    std::string text;
    for (const auto& entry : finder.names()) {
        const auto map = entry.toMap();
        text += (text.empty() ? "" : "; ") + map["name"].toString().toStdString() + " = " +
                map["notes"].toString().toStdString() + " (" +
                map["formula"].toString().toStdString() + ")";
        if (!map["remark"].toString().isEmpty())
            text += " " + map["remark"].toString().toStdString();
    }
    return text;
}

// Every string open in standard tuning: nothing fits without an added note.
const char* const kOpenStrings =
    "Em7 = E G B D (1 b3 5 b7) with A added; E7sus4 = E A B D (1 4 5 b7) with G added; "
    "G6/E = G B D E (1 3 5 6) with A added; A7sus2/E = A B E G (1 2 5 b7) with D added; "
    "A7sus4/E = A D E G (1 4 5 b7) with B added; G2/E = G A B D (1 2 3 5) with E added; "
    "Gadd9/E = G B D A (1 3 5 9) with E added";

class Finding : public ChordsScreenTest, public ::testing::WithParamInterface<FinderCase> {};

TEST_P(Finding, NamesTheShapeTappedBestFirst) {
    const auto& c = GetParam();
    registerScreen(screen);
    chooseTuning(c.tuning);
    ChordsFinder& finder = *screen.finder();
    finder.setActive(true);
    for (const Tap& tap : c.taps) {
        if (tap.fret == 0)
            finder.tapNut(tap.string);
        else
            finder.tapFret(tap.string, tap.fret);
    }
    EXPECT_EQ(finder.heldText().toStdString(), c.held);
    EXPECT_EQ(namesOf(finder), c.names);
    EXPECT_EQ(finder.bestName().toStdString(),
              finder.found().empty() ? "?" : finder.found().front().name());
    EXPECT_EQ(finder.emptyText().isEmpty(), !finder.found().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, Finding,
    ::testing::Values(
        FinderCase{
            "OpenStringsAtFirst", "Standard", {}, "0 0 0 0 0 0  \u00B7  E A D G B E", kOpenStrings},
        FinderCase{"OpenC",
                   "Standard",
                   {{6, 0}, {5, 3}, {4, 2}, {2, 1}},
                   "x 3 2 0 1 0  \u00B7  C E G C E",
                   "C = C E G (1 3 5)"},
        FinderCase{"SameFretAgainLiftsTheFinger",
                   "Standard",
                   {{6, 0}, {5, 3}, {4, 2}, {2, 1}, {2, 1}},
                   "x 3 2 0 0 0  \u00B7  C E G B E",
                   "Cmaj7 = C E G B (1 3 5 7); Em/C = E G B (1 b3 5) with C added"},
        FinderCase{"MutedAndOpenedAgain",
                   "Standard",
                   {{6, 0}, {6, 0}, {5, 0}, {4, 2}, {3, 2}, {2, 1}},
                   "0 x 2 2 1 0  \u00B7  E E A C E",
                   "Am/E = A C E (1 b3 5); C6/E = C E G A (1 3 5 6) without G"},
        FinderCase{"AnotherFretMovesTheFinger",
                   "Standard",
                   {{6, 0}, {5, 3}, {5, 5}, {4, 7}, {3, 7}, {2, 7}, {1, 5}},
                   "x 5 7 7 7 5  \u00B7  D A D F# A",
                   "D = D F# A (1 3 5)"},
        FinderCase{"InTheTuningChosen",
                   "Open G",
                   {},
                   "0 0 0 0 0 0  \u00B7  D G D G B D",
                   "G/D = G B D (1 3 5)"},
        FinderCase{"NothingFits",
                   "Standard",
                   {{6, 0}, {5, 3}, {4, 0}, {3, 0}, {2, 0}, {1, 0}},
                   "x 3 x x x x  \u00B7  C",
                   ""},
        FinderCase{"TapsOffTheNeckChangeNothing",
                   "Standard",
                   {{0, 3}, {7, 3}, {6, 25}, {6, -1}},
                   "0 0 0 0 0 0  \u00B7  E A D G B E",
                   kOpenStrings}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(ChordsScreenTest, TheFinderTakesTheNeckOnlyWhileOn) {
    registerScreen(screen);
    ChordsFinder& finder = *screen.finder();
    EXPECT_FALSE(finder.active()) << "off by default";
    const QVariantList fingering = screen.neckStrings();
    finder.tapFret(5, 3);
    EXPECT_EQ(screen.neckStrings(), fingering) << "the neck shows the fingering while off";

    QSignalSpy neckChanged(&screen, &ChordsLibrary::variationChanged);
    finder.setActive(true);
    EXPECT_GE(neckChanged.count(), 1);
    const auto fifth = screen.neckStrings()[1].toMap();
    EXPECT_EQ(fifth["fret"].toInt(), 3);
    EXPECT_EQ(fifth["text"].toString(), "C") << "a dot says its note";
    EXPECT_EQ(screen.neckFirstFret(), 1);
    EXPECT_TRUE(screen.neckBarres().isEmpty());

    output.calls.clear();
    drag(screen, kAcrossAll);
    EXPECT_TRUE(output.calls.empty()) << "no strum while finding";
    EXPECT_EQ(shown(screen), "x 3 2 0 1 0") << "the fingering shown is kept";

    finder.setActive(false);
    EXPECT_EQ(screen.neckStrings(), fingering);
    drag(screen, kAcrossAll);
    EXPECT_FALSE(output.calls.empty());
}

TEST_F(ChordsScreenTest, TheFinderFollowsTheTuningAndKeepsTheShape) {
    registerScreen(screen);
    ChordsFinder& finder = *screen.finder();
    finder.setActive(true);
    finder.tapNut(6);
    EXPECT_EQ(finder.bestName(), "A7sus2");
    chooseTuning("Drop D");
    EXPECT_EQ(finder.heldText().toStdString(), "x 0 0 0 0 0  \u00B7  A D G B E");
    EXPECT_EQ(finder.bestName(), "A7sus2");
    finder.tapNut(6);
    EXPECT_EQ(finder.heldText().toStdString(), "0 0 0 0 0 0  \u00B7  D A D G B E");
    for (int string = 1; string <= 5; ++string)
        finder.tapNut(string);
    EXPECT_EQ(finder.emptyText(), "Play two strings or more");
    finder.tapFret(5, 1);
    EXPECT_EQ(finder.emptyText(), "No chord has these notes") << "D and A# alone";
    finder.tapFret(5, 1);
    EXPECT_EQ(finder.bestName(), "D5") << "the same fret again: the string open";
    finder.clear();
    EXPECT_EQ(finder.frets(), (std::array<int, kStringCount>{0, 0, 0, 0, 0, 0}));
}

}  // namespace
}  // namespace zt::test
