// The chords settings screen: the notes switch drives the neck at once and
// is saved on leaving; the capo moves the fingerings at once and is saved at
// once; only the "Tunings" row leads anywhere.
#include "ChordsScreenFixture.h"
#include "chords/ui/ChordsLibrarySettings.h"
#include "chords/ui/ChordsLibrarySettingsMediator.h"

namespace zt::test {
namespace {

class ChordsSettingsTest : public ChordsScreenTest {
protected:
    void SetUp() override {
        ChordsScreenTest::SetUp();
        registerScreen(screen);
        facade().registerMediator(makeMediator<ChordsLibrarySettingsMediator>(&settingsScreen));
    }

    ChordsLibrarySettings settingsScreen{&screen};
};

TEST_F(ChordsSettingsTest, ShowNotesSwitchesTheNeckAtOnceAndTwiceGoesBackToFingers) {
    settingsScreen.viewWillAppear();
    EXPECT_FALSE(settingsScreen.isShowNotes());
    settingsScreen.switcherNotesAction();
    EXPECT_TRUE(settingsScreen.isShowNotes());
    EXPECT_TRUE(screen.flag());
    EXPECT_EQ(screen.neckStrings()[1].toMap()["text"].toString(), "C");
    settingsScreen.switcherNotesAction();
    EXPECT_FALSE(screen.flag());
    EXPECT_EQ(screen.neckStrings()[1].toMap()["text"].toString(), "3");
}

TEST_F(ChordsSettingsTest, OnlyTheTuningsRowNavigates) {
    for (int row : {0, 1, 3, -1})
        settingsScreen.selectRow(row);
    EXPECT_TRUE(sent.empty());
    settingsScreen.selectRow(2);
    EXPECT_EQ(sent, (std::vector<std::string>{"ShowChordsTuning"}));
    EXPECT_FALSE(settingsScreen.isShowNotes()) << "touching a row does not flip the switch";
}

TEST_F(ChordsSettingsTest, AppearingReadsTheModeAndTheTuningNameAfresh) {
    settingsScreen.viewWillAppear();
    EXPECT_EQ(settingsScreen.nameOfTuning(), "Standard");
    screen.setShowNotes(true);
    chooseTuning("Open G");
    settingsScreen.viewWillAppear();
    EXPECT_TRUE(settingsScreen.isShowNotes());
    EXPECT_EQ(settingsScreen.nameOfTuning(), "Open G");
}

TEST_F(ChordsSettingsTest, LeavingSavesTheModeAsABoolean) {
    settingsScreen.viewWillAppear();
    settingsScreen.switcherNotesAction();
    settingsScreen.viewWillDisappear();
    EXPECT_EQ(valueFor(savedSection(), "notes"), Value(true));
    EXPECT_EQ(valueFor(savedSection(), "chordPart1"), Value("C")) << "other keys stay";
}

TEST_F(ChordsSettingsTest, UnderACapoTheChordKeepsItsNameAndSoundAndShowsTheShapeBelow) {
    settingsScreen.viewWillAppear();
    ASSERT_TRUE(settingsScreen.hasCapo());
    EXPECT_EQ(settingsScreen.capoText(), "none");
    pick(screen, 2, 0);
    EXPECT_EQ(screen.shapeText(), "") << "no capo, no shape name";
    settingsScreen.stepCapo(2);
    EXPECT_EQ(settingsScreen.capoText(), "2nd fret");
    EXPECT_EQ(screen.capoLabel(), "Capo 2");
    EXPECT_EQ(screen.chordName(), "D");
    EXPECT_EQ(screen.chordNotes(), "D F# A");
    EXPECT_EQ(shown(screen), "x 3 2 0 1 0");
    EXPECT_EQ(screen.shapeText(), "C shape");
    EXPECT_EQ(screen.neckFirstFret(), 1);
    EXPECT_EQ(valueFor(savedSection(), "Capo"), Value(2)) << "saved as it moves";
    // Heard at concert pitch: D3 F#3 A3 D4 F#4 over the recorded A2 D3 G3 B3 E4.
    output.calls.clear();
    screen.playCurrentChord();
    EXPECT_EQ(output.calls, (std::vector<std::string>{"chord x 5 4 2 3 2 after 0.00"}));
    // Another tone in the bass is named in the shape too.
    for (int i = 0; i < screen.variationCount() && screen.bassText() != "/F#"; ++i)
        screen.showVariation(i);
    EXPECT_EQ(screen.shapeText(), "C/E shape");

    settingsScreen.stepCapo(-1);
    EXPECT_EQ(screen.shapeText(), "C\u266F shape");
    settingsScreen.stepCapo(-5);
    EXPECT_EQ(screen.capo(), 0);
    EXPECT_EQ(shown(screen), "x x 0 2 3 2");
    EXPECT_EQ(screen.capoLabel(), "");
}

TEST_F(ChordsSettingsTest, TheFinderUnderACapoNamesTheShapeAtConcertPitch) {
    settingsScreen.stepCapo(3);
    ChordsFinder& finder = *screen.finder();
    finder.setActive(true);
    finder.tapNut(6);
    for (const auto& [string, fret] : std::vector<std::pair<int, int>>{{5, 3}, {4, 2}, {2, 1}})
        finder.tapFret(string, fret);
    EXPECT_EQ(finder.bestName(), "D#");
}

struct SavedCapoCase {
    const char* name;
    Value saved;
    int capo;
    const char* frets;  // C's first fingering shown
};

class SavedCapo : public ChordsScreenTest, public ::testing::WithParamInterface<SavedCapoCase> {};

TEST_P(SavedCapo, OpensUnderTheSavedCapoOrNoneWhenUnreadable) {
    const SavedCapoCase& c = GetParam();
    if (!c.saved.isNull())
        StateProxy().saveChordsLibraryState({{"Capo", c.saved}});
    registerScreen(screen);
    ChordsLibrarySettings settingsScreen{&screen};
    settingsScreen.viewWillAppear();
    EXPECT_EQ(screen.capo(), c.capo);
    EXPECT_EQ(settingsScreen.capo(), c.capo);
    EXPECT_EQ(screen.chordName(), "C");
    EXPECT_EQ(shown(screen), c.frets);
    screen.viewWillDisappear();
    screen.viewDidDisappear();
    // An older file gets no capo key from leaving the tool.
    EXPECT_EQ(valueFor(savedSection(), "Capo"), c.saved);
}

INSTANTIATE_TEST_SUITE_P(Values, SavedCapo,
                         ::testing::Values(SavedCapoCase{"Older", Value(), 0, "x 3 2 0 1 0"},
                                           SavedCapoCase{"Three", Value(3), 3, "x 0 2 2 2 0"},
                                           SavedCapoCase{"Text", Value("5"), 5, "3 2 0 0 0 3"},
                                           SavedCapoCase{"Twelve", Value(12), 12, "x 3 2 0 1 0"},
                                           SavedCapoCase{"Thirteen", Value(13), 0, "x 3 2 0 1 0"},
                                           SavedCapoCase{"Negative", Value(-1), 0, "x 3 2 0 1 0"},
                                           SavedCapoCase{"Word", Value("high"), 0, "x 3 2 0 1 0"}),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace zt::test
