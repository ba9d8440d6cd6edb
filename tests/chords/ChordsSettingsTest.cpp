// The chords settings screen: the notes switch drives the neck at once and
// is saved on leaving; only the "Tunings" row leads anywhere.
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

}  // namespace
}  // namespace zt::test
