// The chords screen with its mediator: what a guitarist picks, sees, hears
// and finds again on the next run.
#include <QSignalSpy>

#include "ChordsScreenFixture.h"

namespace zt::test {
namespace {

TEST_F(ChordsScreenTest, FirstRunOpensOnCMajorWithFingersAndPlaysNothing) {
    registerScreen(screen);
    EXPECT_EQ(screen.chordName(), "C");
    EXPECT_EQ(screen.currentVariationsIndex(), 0);
    EXPECT_EQ(screen.pickerComponent0Row(), 0);
    EXPECT_EQ(screen.pickerComponent1Row(), 0);
    EXPECT_FALSE(screen.flag());
    EXPECT_EQ(shown(screen), "x 3 2 0 1 0");
    EXPECT_EQ(screen.variationText(), QString("1 / %1").arg(screen.variationCount()));
    EXPECT_EQ(screen.rootTitles().size(), 12);
    EXPECT_EQ(screen.typeTitles().first(), "major");
    EXPECT_TRUE(output.calls.empty());
}

struct PickCase {
    const char* name;
    int rootRow, typeRow;
    const char* label;
    const char* root;  // as the generator is asked
    const char* typeKey;
    const char* firstShape;
    const char* notes;  // the chord's tones and formula, as the header shows them
    const char* formula;
};
void PrintTo(const PickCase& c, std::ostream* os) {
    *os << c.name;
}

class Picking : public ChordsScreenTest, public ::testing::WithParamInterface<PickCase> {};

TEST_P(Picking, ShowsTheChordFromItsFirstFingeringAndPlaysItAQuarterSecondLater) {
    const auto& c = GetParam();
    registerScreen(screen);
    pick(screen, c.rootRow, c.typeRow);
    EXPECT_EQ(screen.chordName().toStdString(), c.label);
    EXPECT_EQ(screen.choice().generatorRoot(), c.root);
    EXPECT_EQ(screen.choice().chordPartTwo, c.typeKey);
    EXPECT_EQ(shown(screen), c.firstShape);
    EXPECT_EQ(screen.chordNotes().toStdString(), c.notes);
    EXPECT_EQ(screen.chordFormula().toStdString(), c.formula);
    ASSERT_FALSE(output.calls.empty());
    EXPECT_EQ(output.calls.back(), "chord " + std::string(c.firstShape) + " after 0.25");
}

INSTANTIATE_TEST_SUITE_P(
    Wheels, Picking,
    ::testing::Values(PickCase{"AMinor", 9, 1, "Am", "A", "m", "x 0 2 2 1 0", "A C E", "1 b3 5"},
                      PickCase{"BlackKeyAsksForASharp", 1, 0, "C\u266F", "C#", "", "x 4 3 1 2 1",
                               "C# F G#", "1 3 5"},
                      PickCase{"DSus4", 2, 21, "Dsus4", "D", "sus4", "x x 0 2 3 3", "D G A",
                               "1 4 5"},
                      PickCase{"GSharpMinorNinth", 8, 17, "G\u266Fm9", "G#", "m9", "4 6 4 4 4 6",
                               "G# B D# F# A#", "1 b3 5 b7 9"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(ChordsScreenTest, AMutedStringIsSilentInTheStrumAndInTheWholeChord) {
    registerScreen(screen);
    pick(screen, 9, 1);
    EXPECT_EQ(output.calls.back(), "chord x 0 2 2 1 0 after 0.25");
    output.calls.clear();
    drag(screen, kAcrossAll);
    EXPECT_EQ(output.calls,
              (std::vector<std::string>{"string 5 index 0", "string 4 index 2", "string 3 index 2",
                                        "string 2 index 1", "string 1 index 0"}));
}

TEST_F(ChordsScreenTest, CrossingBackPlaysAgainOnlyAfterTheFingerLeftTheStrings) {
    registerScreen(screen);
    pick(screen, 9, 1);
    output.calls.clear();
    QSignalSpy locks(&screen, &ChordsLibrary::lockedChanged);
    drag(screen, {200, 215, 230});
    EXPECT_TRUE(screen.isLocked(1));
    drag(screen, {215});
    EXPECT_EQ(output.calls.size(), 1u) << "the string last played is not repeated";
    drag(screen, {250, 215});
    EXPECT_EQ(output.calls, (std::vector<std::string>{"string 1 index 0", "string 1 index 0"}));
    EXPECT_EQ(locks.count(), 3) << "locked, unlocked, locked";
    screen.touchMoved(180, 2);
    EXPECT_EQ(output.calls.size(), 2u) << "two fingers do not strum";
}

TEST_F(ChordsScreenTest, NothingSoundsBeforeTheSoundsHaveLoaded) {
    media->setIsBuffersLoaded(false);
    registerScreen(screen);
    pick(screen, 9, 1);
    drag(screen, kAcrossAll);
    screen.showVariation(1);
    EXPECT_TRUE(output.calls.empty());
    EXPECT_EQ(screen.chordName(), "Am");
}

TEST_F(ChordsScreenTest, TheStripShowsAndPlaysAFingeringAndTheBassOfItsGroup) {
    registerScreen(screen);
    pick(screen, 0, 0);
    const VariationSet& set = screen.variations();
    ASSERT_GT(set.groupCount, 1);
    EXPECT_EQ(screen.diagrams().size(), set.count);
    const int inversion = set.groupStart[1];
    output.calls.clear();
    screen.showVariation(inversion);
    EXPECT_EQ(screen.currentVariationsIndex(), inversion);
    EXPECT_EQ(screen.bassText(), "/E");
    EXPECT_EQ(screen.diagrams()[inversion].toMap()["caption"].toString(), "/E");
    EXPECT_EQ(screen.diagrams()[0].toMap()["caption"].toString(), "");
    EXPECT_EQ(output.calls, (std::vector<std::string>{"chord " + shown(screen) + " after 0.00"}));
    for (int outside : {-1, set.count}) {
        screen.showVariation(outside);
        EXPECT_EQ(screen.currentVariationsIndex(), inversion) << outside;
    }
    EXPECT_EQ(output.calls.size(), 1u);
}

TEST_F(ChordsScreenTest, TouchingTheStringsHidesThePicker) {
    registerScreen(screen);
    screen.togglePicker();
    EXPECT_TRUE(screen.pickerVisible());
    screen.touchBegan();
    EXPECT_FALSE(screen.pickerVisible());
    screen.togglePicker();
    screen.openSettings();
    EXPECT_FALSE(screen.pickerVisible());
    EXPECT_EQ(sent, (std::vector<std::string>{"ShowChordsLibrarySettings"}));
}

TEST_F(ChordsScreenTest, NotesModeNamesTheNotesOnTheNeck) {
    registerScreen(screen);
    const auto fifthString = [&] { return screen.neckStrings()[1].toMap()["text"].toString(); };
    EXPECT_EQ(fifthString(), "3");
    screen.setShowNotes(true);
    EXPECT_EQ(fifthString(), "C");
    screen.setShowNotes(false);
    EXPECT_EQ(fifthString(), "3");
}

TEST_F(ChordsScreenTest, LeavingSavesEveryKeyAndTheNextRunOpensWhereItWas) {
    registerScreen(screen);
    screen.viewWillAppear();
    pick(screen, 9, 1);
    screen.showVariation(2);
    screen.setShowNotes(true);
    drag(screen, {80});
    screen.viewWillDisappear();
    screen.viewDidDisappear();
    EXPECT_EQ(sent, (std::vector<std::string>{"StopMusic", "StartMusic"}))
        << "a running metronome goes on";
    EXPECT_GT(output.releases, 0) << "leaving lets the sound card go once silent";

    const Dictionary section = savedSection();
    EXPECT_EQ(valueFor(section, "ChordName"), Value("Am"));
    EXPECT_EQ(valueFor(section, "chordPart1"), Value("A"));
    EXPECT_EQ(valueFor(section, "chordPart2"), Value("m"));
    EXPECT_EQ(valueFor(section, "currentVariationsIndex"), Value("2"));
    EXPECT_EQ(valueFor(section, "pickerComponent0Row"), Value("9"));
    EXPECT_EQ(valueFor(section, "pickerComponent1Row"), Value("1"));
    EXPECT_EQ(valueFor(section, "notes"), Value(true));
    EXPECT_EQ(valueFor(section, "lockedString5"), Value("1"));
    EXPECT_EQ(valueFor(section, "lockedString4"), Value("0"));
    const StringNotes& notes = screen.currentNotes();
    for (int n = 1; n <= 6; ++n) {
        EXPECT_EQ(valueFor(section, "canPlayString" + std::to_string(n)),
                  Value(notes.canPlay[static_cast<std::size_t>(n - 1)] ? "1" : "0"));
    }

    facade().removeMediator(ChordsLibraryMediator::NAME);
    RecordingChordOutput otherOutput;
    ChordsLibrary next(otherOutput);
    registerScreen(next);
    EXPECT_EQ(next.chordName(), "Am");
    EXPECT_EQ(next.currentVariationsIndex(), 2);
    EXPECT_EQ(shown(next), shown(screen));
    EXPECT_TRUE(next.flag());
    EXPECT_TRUE(next.isLocked(5));
    EXPECT_TRUE(otherOutput.calls.empty()) << "restoring plays nothing";
}

TEST_F(ChordsScreenTest, GarbageSavedValuesOpenOnTheNearestValidState) {
    StateProxy().saveChordsLibraryState({{"chordPart1", "H\u266F"},
                                         {"pickerComponent0Row", "9"},
                                         {"chordPart2", 42},
                                         {"pickerComponent1Row", "minor"},
                                         {"currentVariationsIndex", "123456789012"},
                                         {"notes", "perhaps"},
                                         {"lockedString1", Array{}}});
    registerScreen(screen);
    EXPECT_EQ(screen.chordName(), "A");
    EXPECT_EQ(screen.pickerComponent1Row(), 0);
    EXPECT_EQ(screen.currentVariationsIndex(), screen.variationCount() - 1);
    EXPECT_FALSE(screen.flag());
    EXPECT_FALSE(screen.isLocked(1));
}

TEST_F(ChordsScreenTest, ANewTuningShowsTheChordAgainFromItsFirstFingering) {
    registerScreen(screen);
    pick(screen, 2, 0);
    screen.showVariation(3);
    screen.viewWillAppear();
    EXPECT_EQ(screen.tuningName(), "Standard");
    chooseTuning("Drop D");
    EXPECT_EQ(screen.tuningName(), "Drop D");
    EXPECT_EQ(screen.currentVariationsIndex(), 0);
    EXPECT_EQ(shown(screen), "0 0 0 2 3 2");
    // The 6th string's recording is E2; D2 is two semitones below it.
    EXPECT_EQ(screen.currentNotes().indexesOfNotes[5], -2);
    output.calls.clear();
    drag(screen, {30});
    EXPECT_EQ(output.calls, (std::vector<std::string>{"string 6 index -2"}));
}

TEST_F(ChordsScreenTest, AChordWithoutFingeringsShowsTheEmptyNeckAndPlaysNothing) {
    registerScreen(screen);
    chooseTuning("Csus2");
    pick(screen, 2, 8);  // D dim7
    EXPECT_EQ(screen.chordName(), "Ddim7");
    EXPECT_EQ(screen.variationCount(), 0);
    EXPECT_TRUE(screen.diagrams().isEmpty());
    EXPECT_EQ(screen.variationText(), "");
    EXPECT_FALSE(screen.emptyNote().isEmpty());
    for (const QVariant& s : screen.neckStrings())
        EXPECT_FALSE(s.toMap()["dot"].toBool());
    drag(screen, kAcrossAll);
    screen.showVariation(0);
    EXPECT_EQ(output.calls.size(), 1u) << "only the picked D major before it played";
    screen.setStateForArrowButtons(0, 0, 296);
    EXPECT_DOUBLE_EQ(screen.upperArrowAlpha(), 0.2);
    EXPECT_DOUBLE_EQ(screen.lowerArrowAlpha(), 0.2);
}

TEST_F(ChordsScreenTest, TheMediatorSendsWhatTheScreenAsksFor) {
    auto mediator = makeMediator<ChordsLibraryMediator>(&screen);
    facade().registerMediator(mediator);
    mediator->stopMusic();
    mediator->stopMetronome();
    mediator->startMusic();
    mediator->showChordsLibrarySettings();
    EXPECT_EQ(sent, (std::vector<std::string>{"StopMusic", "StopMetronome", "StartMusic",
                                              "ShowChordsLibrarySettings"}));
    EXPECT_TRUE(mediator->isBuffersLoaded());
    EXPECT_EQ(mediator->getTuningName(), "Standard");
}

TEST_F(ChordsScreenTest, TheArrowsFollowTheStrip) {
    QSignalSpy changes(&screen, &ChordsLibrary::arrowsChanged);
    screen.setStateForArrowButtons(0, 1000, 296);
    EXPECT_DOUBLE_EQ(screen.upperArrowAlpha(), 0.3);
    EXPECT_DOUBLE_EQ(screen.lowerArrowAlpha(), 1.0);
    screen.setStateForArrowButtons(0, 1000, 296);
    EXPECT_EQ(changes.count(), 1) << "told only of a change";
    EXPECT_DOUBLE_EQ(screen.stripPageTarget(1, 0, 1000, 228, 76), 228);
}

}  // namespace
}  // namespace zt::test
