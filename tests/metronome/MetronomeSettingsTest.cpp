// The metronome settings screen with its mediator and the presets file, over
// a stand-in metronome that records what the screen asks of it.
#include <QSignalSpy>

#include "framework/Facade.h"
#include "metronome/MetronomeControls.h"
#include "metronome/MetronomeProxy.h"
#include "metronome/MetronomeSettings.h"
#include "metronome/MetronomeSettingsMediator.h"
#include "state/StateTestSupport.h"

using namespace zt;

namespace {

class FakeMetronome : public MetronomeControls {
public:
    bool isFirstBeatNeed() const override { return accent; }
    void setIsFirstBeatNeed(bool need) override { accent = need; }
    int packNumber() const override { return pack; }
    void setCurrentPack(int number) override { pack = number; }
    std::string currentState() const override {
        return std::to_string(pack) + "-" + std::to_string(timeSig1) + "-" +
               std::to_string(timeSig2) + "-" + std::to_string(notesPerBeat) + "-" +
               std::to_string(accent ? 1 : 0) + "-" + std::to_string(tempoX2 ? 1 : 0) + "-" +
               std::to_string(row);
    }
    Dictionary currentSettings() const override {
        return {{"packNumber", pack},
                {"timeSig1Value", timeSig1},
                {"timeSig2Value", timeSig2},
                {"notesPerBeat", notesPerBeat},
                {"isFirstBeatNeed", accent},
                {"isTempoX2", tempoX2},
                {"BPM", row},
                {"state", currentState()}};
    }
    void setSettingsFromDictionary(const Dictionary& preset) override {
        applied.push_back(preset);
        pack = static_cast<int>(valueFor(preset, "packNumber").toInt(1));
        timeSig1 = static_cast<int>(valueFor(preset, "timeSig1Value").toInt(2));
        timeSig2 = static_cast<int>(valueFor(preset, "timeSig2Value").toInt(4));
        notesPerBeat = static_cast<int>(valueFor(preset, "notesPerBeat").toInt(1));
        accent = valueFor(preset, "isFirstBeatNeed").toBool(true);
        tempoX2 = valueFor(preset, "isTempoX2").toBool(false);
        row = static_cast<int>(valueFor(preset, "BPM").toInt(60));
        restartMetronome();
    }
    void restartMetronome() override {
        if (playing)
            ++restarts;
    }
    bool isPlaying() const override { return playing; }
    void saveCurrentState() override { ++saves; }
    void playSampleTick() override { ++sampleTicks; }

    int pack = 1, timeSig1 = 2, timeSig2 = 4, notesPerBeat = 1, row = 60;
    bool accent = true, tempoX2 = false, playing = false;
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
    EXPECT_EQ(screen.title(), "Settings");
    EXPECT_EQ(screen.packNames(), names({"Classic", "Wood", "Cowbell", "Metal", "Electro"}));
    EXPECT_TRUE(screen.firstBeatEmphasis());
    EXPECT_EQ(screen.packNumber(), 1);
    EXPECT_TRUE(screen.presetNames().isEmpty());
    EXPECT_EQ(screen.presetNumber(), 0);
    EXPECT_FALSE(screen.addDialogOpen());
    EXPECT_EQ(Facade::getInstance()
                  .retrieveMediator("MetronomeSettingsMediator")
                  ->listNotificationInterests(),
              std::vector<std::string>{});
}

TEST_F(MetronomeSettingsTest, AppearingTakesTheMetronomesSettings) {
    metronome.accent = false;
    metronome.pack = 4;
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
        metronome.pack = 1;
        metronome.playing = c.playing;
        metronome.sampleTicks = metronome.restarts = 0;
        screen.viewWillAppear();
        screen.choosePack(c.row);
        EXPECT_EQ(metronome.pack, c.pack) << c.row;
        EXPECT_EQ(screen.packNumber(), c.pack) << c.row;
        EXPECT_EQ(metronome.sampleTicks, c.sampleTicks) << c.row << (c.playing ? " playing" : "");
        EXPECT_EQ(metronome.restarts, 0) << c.row;
    }
}

TEST_F(MetronomeSettingsTest, AccentToggleRestartsAndMovesTheMark) {
    addPreset("Accented");
    metronome.accent = false;
    addPreset("Plain");
    metronome.accent = true;
    metronome.playing = true;
    screen.viewWillAppear();
    ASSERT_EQ(screen.presetNumber(), 1);

    screen.toggleAccent();
    EXPECT_FALSE(metronome.accent);
    EXPECT_FALSE(screen.firstBeatEmphasis());
    EXPECT_EQ(screen.presetNumber(), 2);
    EXPECT_EQ(metronome.restarts, 1);

    metronome.pack = 2;
    screen.viewWillAppear();
    screen.toggleAccent();
    EXPECT_EQ(screen.presetNumber(), 0);
    EXPECT_EQ(metronome.restarts, 2);
}

TEST_F(MetronomeSettingsTest, SaveAnswersTheTitleTyped) {
    addPreset("Waltz");
    ASSERT_EQ(screen.presetNames(), names({"Waltz"}));
    const struct {
        const char* title;
        const char* message;     // "" when the preset is added
        const char* fieldAfter;  // the field's text once "OK" is pressed
    } cases[] = {
        {"", "Please enter a Preset title.", ""},
        {"waltz", "You allready have preset with same name.", "waltz"},
        {"WALTZ", "You allready have preset with same name.", "WALTZ"},
        {"Waltz 2", "", ""},
        {" ", "", ""},
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
            EXPECT_EQ(screen.presetNames().last(), c.title);
        }
        EXPECT_FALSE(screen.addDialogOpen()) << c.title;
        EXPECT_FALSE(screen.fieldFocused()) << c.title;
        EXPECT_EQ(screen.presetNames().size(), count) << c.title;
    }
    EXPECT_EQ(presets->presetNameForIndex(3), " ");
}

TEST_F(MetronomeSettingsTest, AddedPresetIsMarkedSavedAndScrolledTo) {
    QSignalSpy scrolled(&screen, &MetronomeSettings::scrollToPreset);
    addPreset("First");
    metronome.row = 100;
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
    EXPECT_EQ(screen.presetNames(), names({"First", "Second"}));
}

TEST_F(MetronomeSettingsTest, MarkFollowsTheSettingsNotTheLastTouch) {
    addPreset("Waltz");
    screen.viewWillDisappear();

    metronome.row = 61;  // the tempo changed on the metronome screen
    screen.viewWillAppear();
    EXPECT_EQ(screen.presetNumber(), 0);

    metronome.row = 60;
    screen.viewWillAppear();
    EXPECT_EQ(screen.presetNumber(), 1);

    screen.choosePack(2);
    EXPECT_EQ(screen.presetNumber(), 0);
    screen.choosePack(1);
    EXPECT_EQ(screen.presetNumber(), 1);
}

TEST_F(MetronomeSettingsTest, ChoosingAPresetAppliesIt) {
    metronome.accent = false;
    metronome.pack = 5;
    metronome.row = 180;
    addPreset("Fast");
    metronome.accent = true;
    metronome.pack = 2;
    metronome.row = 20;
    addPreset("Slow");
    metronome.playing = true;

    screen.choosePreset(1);
    ASSERT_EQ(metronome.applied.size(), 1u);
    EXPECT_EQ(valueFor(metronome.applied[0], "name").toString(), "Fast");
    EXPECT_EQ(metronome.row, 180);
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
    metronome.row = 90;
    addPreset("B");
    metronome.row = 60;
    addPreset("C");
    screen.viewWillAppear();
    ASSERT_EQ(screen.presetNumber(), 1);

    for (const auto& step : steps) {
        screen.deletePreset(step.row);
        QStringList expected;
        for (const char* name : step.left)
            expected.append(name);
        EXPECT_EQ(screen.presetNames(), expected) << step.row;
        EXPECT_EQ(screen.presetNumber(), step.mark) << step.row;
        EXPECT_EQ(presets->presetsArray().size(), step.left.size() + 1) << step.row;
    }
    MetronomeProxy reread;
    reread.loadPresetsArray();
    EXPECT_EQ(reread.presetsArray(), Array{"1.0"});
}
