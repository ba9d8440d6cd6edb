// The metronome settings screen with its mediator and the presets file, over
// a stand-in metronome that records what the screen asks of it.
#include <QSignalSpy>
#include <QTest>
#include <chrono>
#include <functional>

#include "framework/Facade.h"
#include "metronome/MetronomeProxy.h"
#include "metronome/MetronomeSetup.h"
#include "metronome/ui/MetronomeControls.h"
#include "metronome/ui/MetronomeSettings.h"
#include "metronome/ui/MetronomeSettingsMediator.h"
#include "state/StateTestSupport.h"

using namespace zt;

namespace {

// Keeps its settings in a real setup and counts what the screen asks of it.
class FakeMetronome : public MetronomeControls {
public:
    bool isFirstBeatNeed() const override { return setup.isFirstBeatNeed; }
    void setIsFirstBeatNeed(bool need) override { setup.isFirstBeatNeed = need; }
    int packNumber() const override { return setup.packNumber; }
    void setCurrentPack(int number) override { setup.packNumber = number; }
    std::string currentState() const override { return setup.currentState(); }
    Dictionary currentSettings() const override { return setup.currentSettings(); }
    void setSettingsFromDictionary(const Dictionary& preset) override {
        applied.push_back(preset);
        setup.setSavedData(preset);
        restartMetronome();
    }
    void restartMetronome() override { restarts += playing; }
    bool isPlaying() const override { return playing; }
    void saveCurrentState() override { ++saves; }
    void playSampleTick() override { ++sampleTicks; }
    PracticeSetup practice() const override { return setup.practice; }
    void setPractice(const PracticeSetup& practice) override {
        setup.practice = practice;
        restartMetronome();
    }

    MetronomeSetup setup;
    bool playing = false;
    int restarts = 0, saves = 0, sampleTicks = 0;
    std::vector<Dictionary> applied;
};

class MetronomeSettingsTest : public test::DataDirTest {
protected:
    void SetUp() override {
        DataDirTest::SetUp();
        auto& facade = Facade::getInstance();
        facade.registerProxy(makeProxy<MetronomeProxy>());
        presets = facade.retrieveProxyAs<MetronomeProxy>(MetronomeProxy::NAME);
        presets->loadPresetsArray();
        facade.registerMediator(makeMediator<MetronomeSettingsMediator>(&screen));
        screen.viewWillAppear();
    }

    // Adds a preset of the metronome's current settings through the dialog.
    void addPreset(const QString& title) {
        screen.addPresetRequested();
        screen.setPresetTitle(title);
        screen.savePreset(title);
    }

    // The names the presets rows show.
    QStringList shownNames() {
        QStringList out;
        auto* model = screen.presets();
        for (int row = 0; row < model->rowCount(); ++row)
            out.append(model->data(model->index(row), PresetListModel::NameRole).toString());
        return out;
    }

    QStringList names(std::initializer_list<const char*> list) {
        QStringList out;
        for (const char* name : list)
            out.append(QString::fromUtf8(name));
        return out;
    }

    FakeMetronome metronome;
    MetronomeSettings screen{&metronome};
    std::shared_ptr<MetronomeProxy> presets;
};

}  // namespace

TEST_F(MetronomeSettingsTest, FirstRunShowsPacksAndNoPresets) {
    EXPECT_EQ(screen.packNames(), names({"Classic", "Wood", "Cowbell", "Metal", "Electro"}));
    EXPECT_TRUE(screen.firstBeatEmphasis());
    EXPECT_EQ(screen.packNumber(), 1);
    EXPECT_TRUE(shownNames().isEmpty());
    EXPECT_EQ(screen.presetNumber(), 0);
    EXPECT_FALSE(screen.addDialogOpen());
    EXPECT_EQ(Facade::getInstance()
                  .retrieveMediator("MetronomeSettingsMediator")
                  ->listNotificationInterests(),
              std::vector<std::string>{});
}

TEST_F(MetronomeSettingsTest, AppearingTakesTheMetronomesSettings) {
    metronome.setup.isFirstBeatNeed = false;
    metronome.setup.packNumber = 4;
    screen.viewWillAppear();
    EXPECT_FALSE(screen.firstBeatEmphasis());
    EXPECT_EQ(screen.packNumber(), 4);

    screen.viewWillDisappear();
    EXPECT_EQ(metronome.saves, 1);
}

TEST_F(MetronomeSettingsTest, ChoosingAPackSamplesItOnlyWhileStopped) {
    const struct {
        bool playing;
        int row;
        int pack;         // the metronome's pack afterwards
        int sampleTicks;  // ticks played as a sample
    } cases[] = {
        {false, 3, 3, 1}, {true, 3, 3, 0},  {false, 1, 1, 1},
        {false, 0, 1, 0}, {false, 6, 1, 0}, {true, -1, 1, 0},
    };
    for (const auto& c : cases) {
        metronome.setup.packNumber = 1;
        metronome.playing = c.playing;
        metronome.sampleTicks = metronome.restarts = 0;
        screen.viewWillAppear();
        screen.choosePack(c.row);
        EXPECT_EQ(metronome.setup.packNumber, c.pack) << c.row;
        EXPECT_EQ(screen.packNumber(), c.pack) << c.row;
        EXPECT_EQ(metronome.sampleTicks, c.sampleTicks) << c.row << (c.playing ? " playing" : "");
        EXPECT_EQ(metronome.restarts, 0) << c.row;
    }
}

TEST_F(MetronomeSettingsTest, AccentToggleRestartsAndMovesTheMark) {
    addPreset("Accented");
    metronome.setup.isFirstBeatNeed = false;
    addPreset("Plain");
    metronome.setup.isFirstBeatNeed = true;
    metronome.playing = true;
    screen.viewWillAppear();
    ASSERT_EQ(screen.presetNumber(), 1);

    screen.toggleAccent();
    EXPECT_FALSE(metronome.setup.isFirstBeatNeed);
    EXPECT_FALSE(screen.firstBeatEmphasis());
    EXPECT_EQ(screen.presetNumber(), 2);
    EXPECT_EQ(metronome.restarts, 1);

    metronome.setup.packNumber = 2;
    screen.viewWillAppear();
    screen.toggleAccent();
    EXPECT_EQ(screen.presetNumber(), 0);
    EXPECT_EQ(metronome.restarts, 2);
}

// The practice section: switches, values held in their ranges, each change
// handed to a (running) metronome, and the preset mark following it.
TEST_F(MetronomeSettingsTest, PracticeValuesStepWithinTheirRangesAndMoveTheMark) {
    addPreset("Plain");
    metronome.playing = true;
    PracticeSettings& practice = *screen.practice();
    using F = PracticeSettings::Field;
    const struct {
        std::function<void()> act;
        F field;
        int value;
        int preset;  // marked after it
    } rows[] = {
        {[&] { practice.toggleTrainer(); }, F::TrainerStart, 60, 0},
        {[&] { practice.step(F::TrainerStart, -100); }, F::TrainerStart, 20, 0},
        {[&] { practice.step(F::TrainerEnd, 500); }, F::TrainerEnd, 240, 0},
        {[&] { practice.step(F::TrainerStep, -9); }, F::TrainerStep, 1, 0},
        {[&] { practice.step(F::TrainerBars, 100); }, F::TrainerBars, 99, 0},
        {[&] { practice.step(F::MutePlayBars, -3); }, F::MutePlayBars, 1, 0},
        {[&] { practice.step(F::MuteSilentBars, 2); }, F::MuteSilentBars, 3, 0},
        {[&] { practice.toggleMute(); }, F::MuteSilentBars, 3, 0},
        // Back to every default: the preset of the plain settings again.
        {[&] {
             practice.toggleMute();
             practice.toggleTrainer();
             practice.step(F::TrainerStart, 40);
             practice.step(F::TrainerEnd, -120);
             practice.step(F::TrainerStep, 4);
             practice.step(F::TrainerBars, -95);
             practice.step(F::MutePlayBars, 2);
             practice.step(F::MuteSilentBars, -2);
         },
         F::TrainerStart, 60, 1},
    };
    int restarts = 0;
    for (const auto& row : rows) {
        row.act();
        EXPECT_EQ(practice.value(row.field), row.value) << practice.title(row.field).toStdString();
        EXPECT_EQ(screen.presetNumber(), row.preset);
        EXPECT_GT(metronome.restarts, restarts);
        restarts = metronome.restarts;
    }
    // A step past the end changes nothing and restarts nothing.
    practice.step(F::MutePlayBars, 200);
    restarts = metronome.restarts;
    practice.step(F::MutePlayBars, 1);
    EXPECT_EQ(metronome.restarts, restarts);
    practice.step(F::MutePlayBars, 3 - 99);
}

TEST_F(MetronomeSettingsTest, SaveAnswersTheTitleTyped) {
    addPreset("Waltz");
    ASSERT_EQ(shownNames(), names({"Waltz"}));
    const struct {
        const char* title;
        const char* message;     // "" when the preset is added
        const char* fieldAfter;  // the field's text once "OK" is pressed
        const char* shown;       // the new row's name when one is added
    } cases[] = {
        {"", "Please enter a Preset title.", "", ""},
        {"waltz", "You allready have preset with same name.", "waltz", ""},
        {"Waltz 2", "", "", "Waltz 2"},
        {" \t ", "Please enter a Preset title.", "", ""},
        {" Pasted\tname\x01 ", "", "", "Pastedname"},
    };
    int count = 1;
    for (const auto& c : cases) {
        screen.addPresetRequested();
        EXPECT_TRUE(screen.addDialogOpen());
        EXPECT_TRUE(screen.fieldFocused());
        EXPECT_EQ(screen.presetTitle(), "");
        screen.setPresetTitle(c.title);
        screen.savePreset(c.title);
        EXPECT_EQ(screen.message(), c.message) << c.title;
        if (*c.message) {
            EXPECT_TRUE(screen.addDialogOpen()) << c.title;
            EXPECT_FALSE(screen.fieldFocused()) << c.title;
            screen.acknowledgeMessage();
            EXPECT_EQ(screen.message(), "") << c.title;
            EXPECT_EQ(screen.presetTitle(), c.fieldAfter) << c.title;
            EXPECT_TRUE(screen.fieldFocused()) << c.title;
            screen.cancelAddPreset();
        } else {
            ++count;
            EXPECT_EQ(shownNames().last(), c.shown);
        }
        EXPECT_FALSE(screen.addDialogOpen()) << c.title;
        EXPECT_FALSE(screen.fieldFocused()) << c.title;
        EXPECT_EQ(shownNames().size(), count) << c.title;
    }
    EXPECT_EQ(presets->presetNameForIndex(3), "Pastedname");
}

// Each add or delete used to rebuild every row.
TEST_F(MetronomeSettingsTest, AddingOrDeletingChangesOneRowOfTheList) {
    addPreset("A");
    addPreset("B");
    addPreset("C");
    auto* model = screen.presets();
    QSignalSpy inserted(model, &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy reset(model, &QAbstractItemModel::modelReset);
    addPreset("D");
    screen.deletePreset(2);
    ASSERT_EQ(inserted.size(), 1);
    EXPECT_EQ(inserted.at(0).at(1).toInt(), 3);
    ASSERT_EQ(removed.size(), 1);
    EXPECT_EQ(removed.at(0).at(1).toInt(), 1);
    EXPECT_EQ(reset.size(), 0);
    EXPECT_EQ(shownNames(), names({"A", "C", "D"}));
    EXPECT_EQ(model->count(), 3);
}

// A name from a file written elsewhere keeps its characters; its row does not
// run backwards.
TEST_F(MetronomeSettingsTest, RowsLeaveOutBidirectionalControls) {
    const std::string name = "\u202Eabc\u2066d\u200F";
    presets->saveCurrentState(Dictionary{{"packNumber", 1},
                                         {"timeSig1Value", 4},
                                         {"timeSig2Value", 4},
                                         {"notesPerBeat", 1},
                                         {"isFirstBeatNeed", true},
                                         {"isTempoX2", false},
                                         {"BPM", 100},
                                         {"state", "1-4-4-1-1-0-100"},
                                         {"name", name}});
    screen.presets()->reload();
    EXPECT_EQ(shownNames(), names({"abcd"}));
    EXPECT_EQ(presets->presetNameForIndex(1), name);
}

TEST_F(MetronomeSettingsTest, AddedPresetIsMarkedSavedAndScrolledTo) {
    QSignalSpy scrolled(&screen, &MetronomeSettings::scrollToPreset);
    addPreset("First");
    metronome.setup.BPM = 100;
    addPreset("Second");

    EXPECT_EQ(screen.presetNumber(), 2);
    ASSERT_EQ(scrolled.size(), 2);
    EXPECT_EQ(scrolled.at(1).at(0).toInt(), 2);
    Dictionary expected = metronome.currentSettings();
    expected["name"] = "Second";
    EXPECT_EQ(presets->presetAtIndex(2), expected);
    EXPECT_EQ(valueFor(expected, "state").toString(), "1-2-4-1-1-0-100");

    // Cancel adds nothing.
    screen.addPresetRequested();
    screen.setPresetTitle("Third");
    screen.cancelAddPreset();
    EXPECT_EQ(shownNames(), names({"First", "Second"}));
}

TEST_F(MetronomeSettingsTest, MarkFollowsTheSettingsNotTheLastTouch) {
    addPreset("Waltz");
    screen.viewWillDisappear();

    metronome.setup.BPM = 61;  // the tempo changed on the metronome screen
    screen.viewWillAppear();
    EXPECT_EQ(screen.presetNumber(), 0);

    metronome.setup.BPM = 60;
    screen.viewWillAppear();
    EXPECT_EQ(screen.presetNumber(), 1);

    screen.choosePack(2);
    EXPECT_EQ(screen.presetNumber(), 0);
    screen.choosePack(1);
    EXPECT_EQ(screen.presetNumber(), 1);
}

TEST_F(MetronomeSettingsTest, ChoosingAPresetAppliesIt) {
    metronome.setup.isFirstBeatNeed = false;
    metronome.setup.packNumber = 5;
    metronome.setup.BPM = 180;
    addPreset("Fast");
    metronome.setup.isFirstBeatNeed = true;
    metronome.setup.packNumber = 2;
    metronome.setup.BPM = 20;
    addPreset("Slow");
    metronome.playing = true;

    screen.choosePreset(1);
    ASSERT_EQ(metronome.applied.size(), 1u);
    EXPECT_EQ(valueFor(metronome.applied[0], "name").toString(), "Fast");
    EXPECT_EQ(metronome.setup.BPM, 180);
    EXPECT_EQ(metronome.restarts, 1);
    EXPECT_EQ(screen.presetNumber(), 1);
    EXPECT_FALSE(screen.firstBeatEmphasis());
    EXPECT_EQ(screen.packNumber(), 5);

    for (int row : {0, 3, -2}) {
        screen.choosePreset(row);
    }
    EXPECT_EQ(metronome.applied.size(), 1u);
    EXPECT_EQ(screen.presetNumber(), 1);
}

TEST_F(MetronomeSettingsTest, DeletingRecomputesTheMark) {
    // Presets A and C hold the metronome's current settings, B does not.
    const struct {
        int row;
        std::vector<const char*> left;
        int mark;
    } steps[] = {
        {1, {"B", "C"}, 2},  // the marked one goes; C has the same settings
        {0, {"B", "C"}, 2},  // "Add new preset" is not a preset
        {3, {"B", "C"}, 2}, {2, {"B"}, 0}, {1, {}, 0},
    };
    addPreset("A");
    metronome.setup.BPM = 90;
    addPreset("B");
    metronome.setup.BPM = 60;
    addPreset("C");
    screen.viewWillAppear();
    ASSERT_EQ(screen.presetNumber(), 1);

    for (const auto& step : steps) {
        screen.deletePreset(step.row);
        QStringList expected;
        for (const char* name : step.left)
            expected.append(name);
        EXPECT_EQ(shownNames(), expected) << step.row;
        EXPECT_EQ(screen.presetNumber(), step.mark) << step.row;
        EXPECT_EQ(presets->presetsArray().size(), step.left.size() + 1) << step.row;
    }
    MetronomeProxy reread;
    reread.loadPresetsArray();
    EXPECT_EQ(reread.presetsArray(), Array{"1.0"});
}

TEST_F(MetronomeSettingsTest, RenameAnswersTheTitleTyped) {
    addPreset("Waltz");
    metronome.setup.BPM = 90;
    addPreset("Polka");
    const struct {
        const char* title;
        const char* message;  // "" when renamed
        const char* name;     // preset 1's name afterwards
    } cases[] = {
        {"", "Please enter a Preset title.", "Waltz"},
        {"polka", "You allready have preset with same name.", "Waltz"},
        {"WALTZ", "", "WALTZ"},  // its own name in other letter case
        {" Slow waltz ", "", "Slow waltz"},
    };
    for (const auto& c : cases) {
        const std::string before = presets->presetNameForIndex(1);
        screen.renamePresetRequested(1);
        EXPECT_EQ(screen.dialogTitle(), "Rename preset");
        EXPECT_EQ(screen.renamingRow(), 1);
        EXPECT_EQ(screen.presetTitle().toStdString(), before) << c.title;
        screen.setPresetTitle(c.title);
        screen.savePreset(c.title);
        EXPECT_EQ(screen.message(), c.message) << c.title;
        if (*c.message) {
            screen.acknowledgeMessage();
            screen.cancelAddPreset();
        }
        EXPECT_FALSE(screen.addDialogOpen()) << c.title;
        EXPECT_EQ(presets->presetNameForIndex(1), c.name) << c.title;
        EXPECT_EQ(shownNames(), names({c.name, "Polka"})) << c.title;
    }
    // Only the name changed, and the file has it.
    EXPECT_EQ(valueFor(presets->presetAtIndex(1), "BPM"), Value(60));
    MetronomeProxy reread;
    reread.loadPresetsArray();
    EXPECT_EQ(reread.presetNameForIndex(1), "Slow waltz");
    // The dialog adds again afterwards; rows that are no preset rename nothing.
    screen.addPresetRequested();
    EXPECT_EQ(screen.dialogTitle(), "Add new preset");
    screen.cancelAddPreset();
    for (int row : {0, 3}) {
        screen.renamePresetRequested(row);
        EXPECT_FALSE(screen.addDialogOpen()) << row;
    }
}

TEST_F(MetronomeSettingsTest, RowsShowTempoAndTimeSignature) {
    const struct {
        Dictionary settings;
        const char* summary;
    } cases[] = {
        {Dictionary{}, "80 BPM  2/4"},
        {Dictionary{{"BPM", 100}, {"timeSig1Value", 3}}, "120 BPM  3/4"},
        {Dictionary{{"BPM", 220}, {"timeSig1Value", 6}, {"timeSig2Value", 8}}, "240 BPM  6/8"},
        {Dictionary{{"BPM", 400}, {"timeSig1Value", 17}}, "240 BPM  2/4"},
    };
    for (const auto& c : cases) {
        Dictionary preset = c.settings;
        preset["name"] = std::string(c.summary);
        presets->saveCurrentState(preset);
    }
    screen.presets()->reload();
    auto* model = screen.presets();
    ASSERT_EQ(model->rowCount(), 4);
    for (int row = 0; row < 4; ++row) {
        EXPECT_EQ(model->data(model->index(row), PresetListModel::SummaryRole).toString(),
                  cases[row].summary);
    }
}

TEST_F(MetronomeSettingsTest, UpdateTakesTheCurrentSettingsAndUndoGivesThemBack) {
    addPreset("Groove");
    Dictionary withExtra = presets->presetAtIndex(1);
    withExtra["colour"] = "red";  // a key this version does not know
    ASSERT_TRUE(presets->replacePresetAtIndex(1, withExtra));
    metronome.setup.BPM = 100;
    metronome.setup.timeSig1Value = 3;
    screen.viewWillAppear();
    ASSERT_EQ(screen.presetNumber(), 0);
    QSignalSpy changed(screen.presets(), &QAbstractItemModel::dataChanged);

    screen.updatePreset(1);
    Dictionary expected = metronome.currentSettings();
    expected["name"] = "Groove";
    expected["colour"] = "red";
    EXPECT_EQ(presets->presetAtIndex(1), expected);
    EXPECT_EQ(screen.presetNumber(), 1);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(screen.undoMessage(), QString::fromUtf8("Updated \u201CGroove\u201D"));

    screen.undo();
    EXPECT_EQ(presets->presetAtIndex(1), withExtra);
    EXPECT_EQ(screen.presetNumber(), 0);
    EXPECT_EQ(screen.undoMessage(), "");
    MetronomeProxy reread;
    reread.loadPresetsArray();
    EXPECT_EQ(reread.presetAtIndex(1), withExtra);
}

TEST_F(MetronomeSettingsTest, DeleteAsksNothingAndCanBeUndoneForAWhile) {
    addPreset("A");
    metronome.setup.BPM = 90;
    addPreset("B");
    addPreset("C");
    screen.viewWillAppear();
    ASSERT_EQ(screen.presetNumber(), 2);
    const struct {
        int row;
        const char* message;
        std::function<void()> afterDelete;
        QStringList shown;  // once Undo is pressed after afterDelete
        int mark;
    } steps[] = {
        {2, "Deleted \u201CB\u201D", [] {}, names({"A", "B", "C"}), 2},
        {3, "Deleted \u201CC\u201D", [&] { screen.dismissUndo(); }, names({"A", "B"}), 2},
        {1, "Deleted \u201CA\u201D",
         [&] {
             screen.setUndoWindow(std::chrono::milliseconds(20));
             screen.deletePreset(1);  // a newer delete takes the older one's place
             EXPECT_TRUE(QTest::qWaitFor([&] { return screen.undoMessage().isEmpty(); }, 2000));
         },
         names({}), 0},
    };
    for (const auto& step : steps) {
        screen.deletePreset(step.row);
        EXPECT_FALSE(screen.addDialogOpen()) << step.message;
        EXPECT_EQ(screen.undoMessage(), QString::fromUtf8(step.message));
        step.afterDelete();
        screen.undo();
        EXPECT_EQ(shownNames(), step.shown) << step.message;
        EXPECT_EQ(screen.presetNumber(), step.mark) << step.message;
        EXPECT_EQ(screen.undoMessage(), "") << step.message;
        MetronomeProxy reread;
        reread.loadPresetsArray();
        EXPECT_EQ(static_cast<int>(reread.presetsArray().size()) - 1, step.shown.size());
    }
    // Leaving the screen lets a delete stand.
    addPreset("D");
    screen.deletePreset(1);
    screen.viewWillDisappear();
    screen.undo();
    EXPECT_TRUE(shownNames().isEmpty());
}
