// The metronome screen with its mediator, the saved state and the sound
// bank's proxy wired as at start-up, playing into a recording output.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include "RecordingOutput.h"
#include "metronome/MetronomeProxy.h"
#include "metronome/ui/Metronome.h"
#include "metronome/ui/MetronomeDelegate.h"
#include "metronome/ui/MetronomeMediator.h"
#include "sound/MediaProxy.h"
#include "state/StateCommands.h"
#include "state/StateProxy.h"
#include "state/StateTestSupport.h"

using namespace zt;

namespace {

// The notifications the screen sends that have no other listener.
struct Recorder : Mediator {
    explicit Recorder(std::vector<std::string>& sent) : Mediator("Recorder"), sent(sent) {}
    std::vector<std::string> listNotificationInterests() const override {
        return {"StopMusic", "StartMusic", "ShowMetronomeSettings"};
    }
    void handleNotification(const Notification& n) override { sent.push_back(n.name()); }
    std::vector<std::string>& sent;
};

SoundEngine& silentEngine() {
    static SoundEngine engine;
    return engine;
}

// Case names instead of bytes in the test listing.
template <class Case>
requires requires(const Case& c) {
    c.name;
}
void PrintTo(const Case& c, std::ostream* os) {
    *os << c.name;
}

// Runs what was posted for the end of this turn of the event loop.
void nextTurn() {
    QCoreApplication::sendPostedEvents();
}

class MetronomeScreenTest : public test::DataDirTest {
protected:
    void SetUp() override {
        DataDirTest::SetUp();
        facade().registerProxy(makeProxy<StateProxy>());
        registerStateCommands(facade());
        media = makeProxy<MediaProxy>("ZebTools", silentEngine());
        media->setIsBuffersLoaded(true);
        facade().registerProxy(media);
        facade().registerMediator(makeMediator<Recorder>(sent));
    }

    static Facade& facade() { return Facade::getInstance(); }
    void registerScreen(Metronome& m) {
        facade().registerMediator(makeMediator<MetronomeMediator>(&m));
    }
    Dictionary savedSection() const {
        return valueFor(readDictionary(statePath()), "MetronomeSettings").dictionary();
    }

    std::shared_ptr<MediaProxy> media;
    std::vector<std::string> sent;
    test::RecordingOutput output;
    ManualTickClock clock;
    Metronome screen{output, clock};
};

TEST_F(MetronomeScreenTest, FirstRunShowsDefaultsAndLeavingSavesWhatTheNextRunRestores) {
    registerScreen(screen);
    EXPECT_EQ(screen.currentState(), "1-2-4-1-1-0-60");
    EXPECT_EQ(screen.tempoDigits(), (QStringList{"", "8", "0"}));
    EXPECT_EQ(screen.tempoName(), "ANDANTE");
    EXPECT_TRUE(output.calls.empty());

    screen.viewWillAppear();
    screen.plus();
    screen.chooseNumerator(5);
    screen.chooseDenominator(8);
    screen.choosePattern(6);
    screen.viewWillDisappear();
    screen.viewDidDisappear();
    const Dictionary section = savedSection();
    EXPECT_EQ(valueFor(section, "BPM").toInt(), 61);
    EXPECT_EQ(valueFor(section, "timeSig1Value").toInt(), 5);
    EXPECT_TRUE(valueFor(section, "isTempoX2").toBool());
    EXPECT_EQ(sent, (std::vector<std::string>{"StopMusic", "StartMusic"}));

    facade().removeMediator(MetronomeMediator::NAME);
    test::RecordingOutput otherOutput;
    Metronome next(otherOutput);
    registerScreen(next);
    EXPECT_EQ(next.currentState(), "1-5-8-6-1-1-61");
    // Eighth-note time plays faster but shows the wheel's tempo.
    EXPECT_EQ(next.tempoDigits(), (QStringList{"", "8", "1"}));
    EXPECT_TRUE(otherOutput.calls.empty());
}

// The digits follow the turning wheel; the tempo changes only when a row is
// chosen (plus, minus and taps are the core's).
TEST_F(MetronomeScreenTest, TurningTheWheelShowsRowsUntilOneIsChosen) {
    registerScreen(screen);
    screen.startStop();
    output.calls.clear();
    screen.showWheelRow(90);
    EXPECT_EQ(screen.tempoDigits(), (QStringList{"1", "1", "0"}));
    EXPECT_EQ(screen.row(), 60);
    EXPECT_TRUE(output.calls.empty());
    screen.selectRow(90);
    EXPECT_EQ(screen.row(), 90);
    EXPECT_EQ(output.calls, (std::vector<std::string>{"start 1-2-4-1-1-0-90"}));
    screen.showWheelRow(95);
    screen.viewWillDisappear();
    EXPECT_EQ(screen.tempoDigits(), (QStringList{"1", "1", "0"}));
}

TEST_F(MetronomeScreenTest, PanelsOpenCloseAndOfferOnlyPlayablePatterns) {
    registerScreen(screen);
    using P = Metronome::Panel;
    const std::vector<std::tuple<const char*, std::function<void()>, P>> steps = {
        {"open", [&] { screen.openPanel(P::NumeratorPanel); }, P::NumeratorPanel},
        {"other button switches", [&] { screen.openPanel(P::DenominatorPanel); },
         P::DenominatorPanel},
        {"choice closes", [&] { screen.chooseDenominator(8); }, P::NoPanel},
        {"open", [&] { screen.openPanel(P::PatternPanel); }, P::PatternPanel},
        {"pattern not offered keeps it open", [&] { screen.choosePattern(5); }, P::PatternPanel},
        {"same button closes", [&] { screen.openPanel(P::PatternPanel); }, P::NoPanel},
        {"open", [&] { screen.openPanel(P::NumeratorPanel); }, P::NumeratorPanel},
        {"numerator not offered", [&] { screen.chooseNumerator(17); }, P::NumeratorPanel},
        {"numerator choice closes", [&] { screen.chooseNumerator(16); }, P::NoPanel},
        {"unknown kind ignored", [&] { screen.openPanel(static_cast<P>(7)); }, P::NoPanel},
        {"open", [&] { screen.openPanel(P::PatternPanel); }, P::PatternPanel},
        {"settings closes", [&] { screen.openSettings(); }, P::NoPanel},
    };
    for (const auto& [what, act, panel] : steps) {
        act();
        EXPECT_EQ(screen.panel(), panel) << what;
    }
    EXPECT_EQ(screen.numerator(), 16);
    EXPECT_EQ(screen.pattern(), 1);
    EXPECT_EQ(screen.patternOffered(), (QVariantList{true, true, true, false, false, true}));
    screen.chooseDenominator(4);
    EXPECT_EQ(screen.patternOffered(), QVariantList(6, true));
}

TEST_F(MetronomeScreenTest, SettingsScreenIsAskedForAndItsChangesShownOnReturn) {
    registerScreen(screen);
    screen.openSettings();
    EXPECT_TRUE(screen.isSettings());
    int refreshes = 0;
    QObject::connect(&screen, &Metronome::settingsChanged, [&] { ++refreshes; });
    screen.setSettingsFromDictionary({{"timeSig1Value", 7}, {"BPM", 100}});
    screen.viewWillAppear();
    EXPECT_FALSE(screen.isSettings());
    EXPECT_EQ(screen.numerator(), 7);
    EXPECT_EQ(screen.tempoDigits(), (QStringList{"1", "2", "0"}));
    EXPECT_EQ(refreshes, 2);
    EXPECT_EQ(sent, (std::vector<std::string>{"ShowMetronomeSettings", "StopMusic"}));
}

enum Step {
    StartStop,
    EndMetronome,
    RunMetronome,
    NextTurn,
    Plus,
    StopFromAnotherTool,
    Appear,
    Leave
};

struct LifeCycleCase {
    const char* name;
    std::vector<Step> steps;
    std::vector<std::string> calls;
    bool playing;
};

class LifeCycle : public MetronomeScreenTest,
                  public ::testing::WithParamInterface<LifeCycleCase> {};

TEST_P(LifeCycle, PauseAndResume) {
    registerScreen(screen);
    const std::map<Step, std::function<void()>> does = {
        {StartStop, [&] { screen.startStop(); }},
        {EndMetronome,
         [&] {
             screen.endMetronome();
             EXPECT_FALSE(screen.isPlaying());
         }},
        {RunMetronome, [&] { screen.runMetronome(); }},
        {NextTurn, nextTurn},
        {Plus, [&] { screen.plus(); }},
        {StopFromAnotherTool, [] { Facade::getInstance().sendNotification("StopMetronome"); }},
        {Appear, [&] { screen.viewWillAppear(); }},
        {Leave,
         [&] {
             screen.viewWillDisappear();
             screen.viewDidDisappear();
         }},
    };
    for (Step step : GetParam().steps)
        does.at(step)();
    nextTurn();
    EXPECT_EQ(output.calls, GetParam().calls);
    EXPECT_EQ(screen.isPlaying(), GetParam().playing);
}

const std::string kStart = "start 1-2-4-1-1-0-60";

INSTANTIATE_TEST_SUITE_P(
    Screen, LifeCycle,
    ::testing::Values(
        LifeCycleCase{
            "EndAndRunInOneTurnGoOn", {StartStop, EndMetronome, RunMetronome}, {kStart}, true},
        LifeCycleCase{
            "EndStopsAtTheEndOfTheTurn", {StartStop, EndMetronome}, {kStart, "stop"}, false},
        LifeCycleCase{"RunInALaterTurnStartsAfresh",
                      {StartStop, EndMetronome, NextTurn, RunMetronome},
                      {kStart, "stop", kStart},
                      true},
        LifeCycleCase{"ChangeBetweenEndAndRunRestarts",
                      {StartStop, EndMetronome, Plus, RunMetronome},
                      {kStart, "stop", "start 1-2-4-1-1-0-61"},
                      true},
        LifeCycleCase{"StopMetronomePauses",
                      {StartStop, StopFromAnotherTool, NextTurn, RunMetronome},
                      {kStart, "stop", kStart},
                      true},
        LifeCycleCase{"PauseForgottenOnceTheScreenIsBack",
                      {StartStop, StopFromAnotherTool, Appear, RunMetronome},
                      {kStart, "stop"},
                      false},
        LifeCycleCase{
            "StopButtonIsNoPause", {StartStop, StartStop, RunMetronome}, {kStart, "stop"}, false},
        LifeCycleCase{"OtherTabsLeaveItPlaying", {StartStop, Leave}, {kStart}, true}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(MetronomeScreenTest, NothingSoundsBeforeTheSoundsHaveLoaded) {
    media->setIsBuffersLoaded(false);
    screen.startStop();
    EXPECT_FALSE(screen.isPlaying());

    registerScreen(screen);
    screen.startStop();
    EXPECT_FALSE(screen.isPlaying());
    EXPECT_TRUE(output.calls.empty());

    media->setIsBuffersLoaded(true);
    screen.startStop();
    EXPECT_TRUE(screen.isPlaying());
}

// Stands in for the mediator to see the sample tick.
struct SoundDelegate : MetronomeDelegate {
    void playSoundByID(int id, int group, bool loop) override {
        played.push_back({id, group, loop});
    }
    void stopMusic() override {}
    void startMusic() override {}
    void showMetronomeSettings() override {}
    void setMetronomeSavedData() override {}
    void saveMetronomeSettings(const Dictionary&) override {}
    bool isBuffersLoaded() const override { return loaded; }
    bool loaded = false;
    std::vector<std::tuple<int, int, bool>> played;
};

TEST_F(MetronomeScreenTest, SampleTickOfTheChosenPackOnceLoaded) {
    SoundDelegate delegate;
    screen.setDelegate(&delegate);
    screen.setCurrentPack(2);
    screen.playSampleTick();
    EXPECT_TRUE(delegate.played.empty());
    delegate.loaded = true;
    screen.playSampleTick();
    EXPECT_EQ(delegate.played, (std::vector<std::tuple<int, int, bool>>{{54, 1, false}}));
}

// Each beat shows from the moment it is heard until the next one is.
TEST_F(MetronomeScreenTest, BeatDisplayShowsTheBeatHeardUntilTheNext) {
    registerScreen(screen);
    screen.startStop();
    output.heard = {HeardBeat{true, 1}, HeardBeat{false, 2}, HeardBeat{false, 3}};
    const struct {
        int count;
        bool accented;
        int beat;
    } polls[] = {{1, true, 1}, {2, false, 2}, {3, false, 3}, {3, false, 3}};
    for (const auto& poll : polls) {
        screen.pollHeardBeats();
        EXPECT_EQ(screen.beatCount(), poll.count);
        EXPECT_EQ(screen.beatAccented(), poll.accented);
        EXPECT_EQ(screen.currentBeat(), poll.beat);
    }
    screen.startStop();
    EXPECT_EQ(screen.currentBeat(), 0);
    // A click rendered before the stop and heard after it lights nothing.
    output.heard = {HeardBeat{false, 1}};
    screen.pollHeardBeats();
    EXPECT_EQ(screen.currentBeat(), 0);
}

TEST_F(MetronomeScreenTest, PresetInUseIsNamedUntilASettingChanges) {
    auto presets = makeProxy<MetronomeProxy>();
    facade().registerProxy(presets);
    presets->loadPresetsArray();
    const MetronomeSetup defaults;
    MetronomeSetup fast;
    fast.BPM = 100;
    const auto named = [](const MetronomeSetup& setup, const char* name) {
        Dictionary preset = setup.currentSettings();
        preset["name"] = std::string(name);
        return preset;
    };
    for (const auto& preset :
         {named(defaults, "First"), named(defaults, "Second"), named(fast, "Fast")})
        presets->saveCurrentState(preset);
    registerScreen(screen);

    const struct {
        const char* what;
        std::function<void()> act;
        const char* shown;
    } steps[] = {
        {"the first with the settings", [] {}, "First"},
        {"the one applied among equals",
         [&] { screen.setSettingsFromDictionary(presets->presetAtIndex(2)); }, "Second"},
        {"a tempo change", [&] { screen.plus(); }, ""},
        {"the tempo back", [&] { screen.minus(); }, "Second"},
        {"a time signature", [&] { screen.chooseNumerator(3); }, ""},
        {"a preset applied", [&] { screen.setSettingsFromDictionary(named(fast, "Fast")); },
         "Fast"},
        {"the accent", [&] { screen.setIsFirstBeatNeed(false); }, ""},
        {"the accent back", [&] { screen.setIsFirstBeatNeed(true); }, "Fast"},
        {"renamed elsewhere",
         [&] {
             presets->replacePresetAtIndex(3, named(fast, "Faster"));
             screen.viewWillAppear();
         },
         "Faster"},
        {"deleted elsewhere",
         [&] {
             presets->removePresetWithIndex(3);
             screen.viewWillAppear();
         },
         ""},
    };
    for (const auto& step : steps) {
        step.act();
        EXPECT_EQ(screen.presetName().toStdString(), step.shown) << step.what;
    }
}

TEST_F(MetronomeScreenTest, ChoicesStepByKeysAndWheelAmongThoseOffered) {
    registerScreen(screen);
    using P = Metronome::Panel;
    const auto key = [&](int k) { return [&, k] { EXPECT_TRUE(screen.keyPressed(k)); }; };
    const auto open = [&](P panel) { return [&, panel] { screen.openPanel(panel); }; };
    const auto wheel = [&](P panel, int notches) {
        return [&, panel, notches] { screen.stepChoice(panel, notches); };
    };
    const struct {
        const char* what;
        std::function<void()> act;
        int numerator, denominator, pattern;
        P panel;
    } steps[] = {
        {"numerator panel", open(P::NumeratorPanel), 2, 4, 1, P::NumeratorPanel},
        {"right", key(Qt::Key_Right), 3, 4, 1, P::NumeratorPanel},
        {"down", key(Qt::Key_Down), 4, 4, 1, P::NumeratorPanel},
        {"page down", key(Qt::Key_PageDown), 12, 4, 1, P::NumeratorPanel},
        {"page down at the end", key(Qt::Key_PageDown), 16, 4, 1, P::NumeratorPanel},
        {"up", key(Qt::Key_Up), 15, 4, 1, P::NumeratorPanel},
        {"page up", key(Qt::Key_PageUp), 7, 4, 1, P::NumeratorPanel},
        {"page up at the start", key(Qt::Key_PageUp), 1, 4, 1, P::NumeratorPanel},
        {"left at the start", key(Qt::Key_Left), 1, 4, 1, P::NumeratorPanel},
        {"return closes", key(Qt::Key_Return), 1, 4, 1, P::NoPanel},
        {"pattern panel", open(P::PatternPanel), 1, 4, 1, P::PatternPanel},
        {"page down", key(Qt::Key_PageDown), 1, 4, 4, P::PatternPanel},
        {"right", key(Qt::Key_Right), 1, 4, 5, P::PatternPanel},
        {"escape closes", key(Qt::Key_Escape), 1, 4, 5, P::NoPanel},
        {"wheel on the denominator", wheel(P::DenominatorPanel, 1), 1, 8, 3, P::NoPanel},
        {"wheel past the end", wheel(P::DenominatorPanel, 3), 1, 8, 3, P::NoPanel},
        {"wheel on the pattern skips 4 and 5", wheel(P::PatternPanel, 1), 1, 8, 6, P::NoPanel},
        {"and back", wheel(P::PatternPanel, -1), 1, 8, 3, P::NoPanel},
        {"wheel on the numerator", wheel(P::NumeratorPanel, 5), 6, 8, 3, P::NoPanel},
        {"no panel to step", wheel(P::NoPanel, 1), 6, 8, 3, P::NoPanel},
    };
    for (const auto& step : steps) {
        step.act();
        EXPECT_EQ(screen.numerator(), step.numerator) << step.what;
        EXPECT_EQ(screen.denominator(), step.denominator) << step.what;
        EXPECT_EQ(screen.pattern(), step.pattern) << step.what;
        EXPECT_EQ(screen.panel(), step.panel) << step.what;
    }
    // Without a panel the arrows are left to the focused control.
    EXPECT_FALSE(screen.keyPressed(Qt::Key_Up));
}

TEST_F(MetronomeScreenTest, TabBarVisibility) {
    registerScreen(screen);
    const std::vector<std::pair<std::function<void()>, bool>> steps = {
        {[&] { screen.setTabBarIsVisible(true); }, true},
        {[&] { facade().sendNotification("ShowMetronomeFromTab"); }, false},
        {[&] { facade().sendNotification("ShowMetronomeFromTools"); }, true},
        {[&] { screen.setTabBarIsVisible(false); }, false},
        {[&] { screen.viewWillAppear(); }, true},
    };
    for (const auto& [act, visible] : steps) {
        act();
        EXPECT_EQ(screen.tabBarIsVisible(), visible);
    }
}

// Taps on the beat marks cycle each beat; the switch and beat 1 agree, a
// running metronome is handed every change, and the kinds are saved.
TEST_F(MetronomeScreenTest, TappedBeatsCycleAndAreSaved) {
    registerScreen(screen);
    screen.chooseNumerator(4);
    screen.startStop();
    const struct {
        int beat;
        const char* kinds;
        bool accent;
    } taps[] = {{4, "ANNS", true},  {4, "ANNA", true}, {1, "NNNA", false},
                {1, "SNNA", false}, {1, "ANNA", true}, {9, "ANNA", true}};
    for (const auto& tap : taps) {
        output.calls.clear();
        screen.cycleBeat(tap.beat);
        EXPECT_EQ(screen.beatKinds().join(""), tap.kinds) << tap.beat;
        EXPECT_EQ(screen.isFirstBeatNeed(), tap.accent) << tap.kinds;
        EXPECT_EQ(output.calls.size(), tap.beat <= 4 ? 1u : 0u) << tap.kinds;
    }
    screen.viewDidDisappear();
    EXPECT_EQ(valueFor(savedSection(), "beatAccents").toString(), "ANNANNNNNNNNNNNN");

    // Back to all plain: saved too, for the saved section is merged.
    screen.cycleBeat(4);
    screen.viewDidDisappear();
    EXPECT_EQ(valueFor(savedSection(), "beatAccents").toString(), "ANNNNNNNNNNNNNNN");
}

// The trainer's read-out and the big digits follow the beats heard, not a
// clock of their own; stopped, the digits show the wheel's tempo again.
TEST_F(MetronomeScreenTest, TrainerStatusFollowsTheHeardBeats) {
    registerScreen(screen);
    PracticeSetup practice;
    practice.trainerOn = true;
    practice.trainerStart = 60;
    practice.trainerEnd = 70;
    practice.trainerStep = 4;
    practice.trainerBars = 2;
    screen.setPractice(practice);
    const QStringList wheelDigits = screen.tempoDigits();
    ASSERT_NE(wheelDigits, QStringList({"", "6", "0"}));
    EXPECT_EQ(screen.trainerStatus(), "");  // stopped
    screen.startStop();
    EXPECT_EQ(screen.trainerStatus().toStdString(), "60 BPM, 2 bars to 64");
    EXPECT_EQ(screen.tempoDigits(), QStringList({"", "6", "0"}));
    const struct {
        HeardBeat heard;
        const char* status;
    } polls[] = {{{true, 1, true, 60, 1}, "60 BPM, 1 bar to 64"},
                 {{true, 1, true, 68, 2}, "68 BPM, 2 bars to 70"},
                 {{true, 1, false, 70, 0}, "70 BPM, holding"}};
    for (const auto& poll : polls) {
        output.heard = {poll.heard};
        screen.pollHeardBeats();
        EXPECT_EQ(screen.trainerStatus().toStdString(), poll.status);
        EXPECT_EQ(screen.tempoDigits().join("").toInt(), poll.heard.tempo);
    }
    screen.startStop();
    EXPECT_EQ(screen.trainerStatus(), "");
    EXPECT_EQ(screen.tempoDigits(), wheelDigits);
}

}  // namespace
