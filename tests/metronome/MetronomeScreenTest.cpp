// The metronome screen with its mediator, the saved state and the sound
// bank's proxy wired as at start-up, playing into a recording output.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <deque>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "metronome/Metronome.h"
#include "metronome/MetronomeDelegate.h"
#include "metronome/MetronomeMediator.h"
#include "sound/MediaProxy.h"
#include "state/StateCommands.h"
#include "state/StateProxy.h"
#include "state/StateTestSupport.h"

using namespace zt;

namespace {

class RecordingOutput : public MetronomeOutput {
public:
    void start(const MetronomeSetup& setup) override {
        calls.push_back("start " + setup.currentState());
    }
    void stop() override { calls.push_back("stop"); }
    void setCurrentPack(int pack) override { calls.push_back("pack " + std::to_string(pack)); }
    void setIsFirstBeatNeed(bool need) override { calls.push_back(need ? "accent 1" : "accent 0"); }
    std::optional<HeardBeat> takeHeardBeat() override {
        if (heard.empty())
            return std::nullopt;
        const HeardBeat beat = heard.front();
        heard.pop_front();
        return beat;
    }

    std::vector<std::string> calls;
    std::deque<HeardBeat> heard;
};

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
    RecordingOutput output;
    ManualTickClock clock;
    Metronome screen{output, clock};
};

struct RestoreCase {
    const char* name;
    Dictionary saved;
    std::string state;
    QStringList digits;
    QString tempoName;
};

class Restore : public MetronomeScreenTest, public ::testing::WithParamInterface<RestoreCase> {};

TEST_P(Restore, ScreenShowsTheSavedSettings) {
    const RestoreCase& c = GetParam();
    if (!c.saved.empty())
        facade().sendNotification("SaveMetronomeState", c.saved);
    registerScreen(screen);
    EXPECT_EQ(screen.currentState(), c.state);
    EXPECT_EQ(screen.tempoDigits(), c.digits);
    EXPECT_EQ(screen.tempoName(), c.tempoName);
    EXPECT_TRUE(output.calls.empty());
}

INSTANTIATE_TEST_SUITE_P(
    SavedState, Restore,
    ::testing::Values(RestoreCase{"DefaultFile", {}, "1-2-4-1-1-0-60", {"", "8", "0"}, "ANDANTE"},
                      RestoreCase{"Saved",
                                  {{"packNumber", 4},
                                   {"timeSig1Value", 3},
                                   {"timeSig2Value", 8},
                                   {"notesPerBeat", 6},
                                   {"isFirstBeatNeed", false},
                                   {"isTempoX2", true},
                                   {"BPM", 100}},
                                  "4-3-8-6-0-1-100",
                                  {"1", "2", "0"},
                                  "ALLEGRO"},
                      RestoreCase{"OddValues",
                                  {{"packNumber", 9},
                                   {"timeSig1Value", 40},
                                   {"timeSig2Value", 5},
                                   {"notesPerBeat", "x"},
                                   {"BPM", 500}},
                                  "1-2-4-1-1-0-220",
                                  {"2", "4", "0"},
                                  "PRESTISSIMO"},
                      RestoreCase{"SixteenthsInEighthNoteTime",
                                  {{"timeSig2Value", 8}, {"notesPerBeat", 4}, {"isTempoX2", false}},
                                  "1-2-8-3-1-1-60",
                                  {"", "8", "0"},
                                  "ANDANTE"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(MetronomeScreenTest, LeavingSavesWhatTheNextRunRestores) {
    registerScreen(screen);
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
    RecordingOutput otherOutput;
    Metronome next(otherOutput);
    registerScreen(next);
    EXPECT_EQ(next.currentState(), "1-5-8-6-1-1-61");
}

struct WheelCase {
    const char* name;
    int row;
    std::function<void(Metronome&)> act;
    int expectedRow;
    bool restarted;
};

class Wheel : public MetronomeScreenTest, public ::testing::WithParamInterface<WheelCase> {};

TEST_P(Wheel, StepsWithinTheWheel) {
    const WheelCase& c = GetParam();
    registerScreen(screen);
    screen.selectRow(c.row);
    screen.startStop();
    output.calls.clear();
    c.act(screen);
    EXPECT_EQ(screen.row(), c.expectedRow);
    EXPECT_EQ(output.calls.size(), c.restarted ? 2u : 0u);
}

INSTANTIATE_TEST_SUITE_P(
    PlusMinus, Wheel,
    ::testing::Values(
        WheelCase{"PlusAt240DoesNothing", 220, [](auto& m) { m.plus(); }, 220, false},
        WheelCase{"MinusAt20StaysAndRestarts", 0, [](auto& m) { m.minus(); }, 0, true},
        WheelCase{"Plus", 60, [](auto& m) { m.plus(); }, 61, true},
        WheelCase{"Minus", 60, [](auto& m) { m.minus(); }, 59, true},
        WheelCase{"RowOffTheWheelIsRefused", 60, [](auto& m) { m.selectRow(221); }, 60, false},
        WheelCase{"TurningOnlyShows", 60, [](auto& m) { m.showWheelRow(90); }, 60, false}),
    [](const auto& info) { return std::string(info.param.name); });

struct DisplayCase {
    int row;
    QStringList digits;
    QString name;
};

void PrintTo(const DisplayCase& c, std::ostream* os) {
    *os << "row " << c.row;
}

class Display : public MetronomeScreenTest, public ::testing::WithParamInterface<DisplayCase> {};

TEST_P(Display, DigitsAndName) {
    const DisplayCase& c = GetParam();
    screen.selectRow(c.row);
    EXPECT_EQ(screen.tempoDigits(), c.digits);
    EXPECT_EQ(screen.tempoName(), c.name);
    // Eighth-note time plays faster but shows the same tempo.
    screen.chooseDenominator(8);
    EXPECT_EQ(screen.tempoDigits(), c.digits);
    EXPECT_EQ(screen.tempoName(), c.name);
}

INSTANTIATE_TEST_SUITE_P(Tempo, Display,
                         ::testing::Values(DisplayCase{0, {"", "2", "0"}, "LARGHISSIMO"},
                                           DisplayCase{45, {"", "6", "5"}, "LARGHETTO"},
                                           DisplayCase{46, {"", "6", "6"}, "ADAGIO"},
                                           DisplayCase{79, {"", "9", "9"}, "ANDANTE"},
                                           DisplayCase{80, {"1", "0", "0"}, "ANDANTE"},
                                           DisplayCase{99, {"1", "1", "9"}, "MODERATO"},
                                           DisplayCase{100, {"1", "2", "0"}, "ALLEGRO"},
                                           DisplayCase{220, {"2", "4", "0"}, "PRESTISSIMO"}));

TEST_F(MetronomeScreenTest, EighthNoteTimeOffersFewerPatterns) {
    registerScreen(screen);
    screen.choosePattern(4);
    screen.startStop();
    screen.openPanel(Metronome::DenominatorPanel);
    screen.chooseDenominator(8);
    EXPECT_EQ(screen.pattern(), 3);
    EXPECT_EQ(screen.patternOffered(), (QVariantList{true, true, true, false, false, true}));
    EXPECT_EQ(screen.panel(), Metronome::NoPanel);

    screen.openPanel(Metronome::PatternPanel);
    screen.choosePattern(5);
    EXPECT_EQ(screen.pattern(), 3);
    EXPECT_EQ(screen.panel(), Metronome::PatternPanel);
    EXPECT_EQ(output.calls,
              (std::vector<std::string>{"start 1-2-4-4-1-0-60", "stop", "start 1-2-8-3-1-1-60"}));

    screen.chooseDenominator(4);
    EXPECT_EQ(screen.patternOffered(), QVariantList(6, true));
}

struct PanelCase {
    const char* name;
    std::function<void(Metronome&)> act;
    Metronome::Panel panel;
};

class Panels : public MetronomeScreenTest, public ::testing::WithParamInterface<PanelCase> {};

TEST_P(Panels, OpenAndClose) {
    registerScreen(screen);
    GetParam().act(screen);
    EXPECT_EQ(screen.panel(), GetParam().panel);
}

INSTANTIATE_TEST_SUITE_P(
    Choices, Panels,
    ::testing::Values(PanelCase{"Open", [](auto& m) { m.openPanel(Metronome::NumeratorPanel); },
                                Metronome::NumeratorPanel},
                      PanelCase{"SameButtonCloses",
                                [](auto& m) {
                                    m.openPanel(Metronome::PatternPanel);
                                    m.openPanel(Metronome::PatternPanel);
                                },
                                Metronome::NoPanel},
                      PanelCase{"OtherButtonSwitches",
                                [](auto& m) {
                                    m.openPanel(Metronome::NumeratorPanel);
                                    m.openPanel(Metronome::DenominatorPanel);
                                },
                                Metronome::DenominatorPanel},
                      PanelCase{"ChoiceCloses",
                                [](auto& m) {
                                    m.openPanel(Metronome::NumeratorPanel);
                                    m.chooseNumerator(16);
                                },
                                Metronome::NoPanel},
                      PanelCase{"ValueNotOfferedKeepsItOpen",
                                [](auto& m) {
                                    m.openPanel(Metronome::NumeratorPanel);
                                    m.chooseNumerator(17);
                                },
                                Metronome::NumeratorPanel},
                      PanelCase{"UnknownKindIgnored",
                                [](auto& m) { m.openPanel(static_cast<Metronome::Panel>(7)); },
                                Metronome::NoPanel},
                      PanelCase{"SettingsCloses",
                                [](auto& m) {
                                    m.openPanel(Metronome::PatternPanel);
                                    m.openSettings();
                                },
                                Metronome::NoPanel}),
    [](const auto& info) { return std::string(info.param.name); });

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

struct LifeCycleCase {
    const char* name;
    std::function<void(Metronome&)> act;
    std::vector<std::string> calls;
    bool playing;
};

class LifeCycle : public MetronomeScreenTest,
                  public ::testing::WithParamInterface<LifeCycleCase> {};

TEST_P(LifeCycle, PauseAndResume) {
    registerScreen(screen);
    GetParam().act(screen);
    nextTurn();
    EXPECT_EQ(output.calls, GetParam().calls);
    EXPECT_EQ(screen.isPlaying(), GetParam().playing);
}

const std::string kStart = "start 1-2-4-1-1-0-60";

void stopMetronomeFromAnotherTool() {
    Facade::getInstance().sendNotification("StopMetronome");
}

INSTANTIATE_TEST_SUITE_P(Screen, LifeCycle,
                         ::testing::Values(LifeCycleCase{"EndAndRunInOneTurnGoOn",
                                                         [](auto& m) {
                                                             m.startStop();
                                                             m.endMetronome();
                                                             EXPECT_FALSE(m.isPlaying());
                                                             m.runMetronome();
                                                         },
                                                         {kStart},
                                                         true},
                                           LifeCycleCase{"EndStopsAtTheEndOfTheTurn",
                                                         [](auto& m) {
                                                             m.startStop();
                                                             m.endMetronome();
                                                         },
                                                         {kStart, "stop"},
                                                         false},
                                           LifeCycleCase{"RunInALaterTurnStartsAfresh",
                                                         [](auto& m) {
                                                             m.startStop();
                                                             m.endMetronome();
                                                             nextTurn();
                                                             m.runMetronome();
                                                         },
                                                         {kStart, "stop", kStart},
                                                         true},
                                           LifeCycleCase{"ChangeBetweenEndAndRunRestarts",
                                                         [](auto& m) {
                                                             m.startStop();
                                                             m.endMetronome();
                                                             m.plus();
                                                             m.runMetronome();
                                                         },
                                                         {kStart, "stop", "start 1-2-4-1-1-0-61"},
                                                         true},
                                           LifeCycleCase{"StopMetronomePauses",
                                                         [](auto& m) {
                                                             m.startStop();
                                                             stopMetronomeFromAnotherTool();
                                                             nextTurn();
                                                             m.runMetronome();
                                                         },
                                                         {kStart, "stop", kStart},
                                                         true},
                                           LifeCycleCase{"PauseForgottenOnceTheScreenIsBack",
                                                         [](auto& m) {
                                                             m.startStop();
                                                             stopMetronomeFromAnotherTool();
                                                             m.viewWillAppear();
                                                             m.runMetronome();
                                                         },
                                                         {kStart, "stop"},
                                                         false},
                                           LifeCycleCase{"StopButtonIsNoPause",
                                                         [](auto& m) {
                                                             m.startStop();
                                                             m.startStop();
                                                             m.runMetronome();
                                                         },
                                                         {kStart, "stop"},
                                                         false},
                                           LifeCycleCase{"OtherTabsLeaveItPlaying",
                                                         [](auto& m) {
                                                             m.startStop();
                                                             m.viewWillDisappear();
                                                             m.viewDidDisappear();
                                                         },
                                                         {kStart},
                                                         true}),
                         [](const auto& info) { return std::string(info.param.name); });

struct TapCase {
    const char* name;
    double interval;
    int row;
};

class Tap : public MetronomeScreenTest, public ::testing::WithParamInterface<TapCase> {};

TEST_P(Tap, TwoTapsSetTheTempo) {
    registerScreen(screen);
    screen.tap();
    clock.advance(GetParam().interval);
    screen.tap();
    EXPECT_EQ(screen.row(), GetParam().row);
    // The third tap starts a new measurement.
    clock.advance(0.5);
    screen.tap();
    EXPECT_EQ(screen.row(), GetParam().row);
}

INSTANTIATE_TEST_SUITE_P(Screen, Tap,
                         ::testing::Values(TapCase{"TooFastIgnored", 0.2, 60},
                                           TapCase{"Fastest", 0.25, 220}, TapCase{"Half", 0.5, 100},
                                           TapCase{"Slowest", 3.0, 0},
                                           TapCase{"TooSlowIgnored", 3.05, 60}),
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

TEST_F(MetronomeScreenTest, BeatLightCountsTheBeatsHeard) {
    registerScreen(screen);
    screen.startStop();
    output.heard = {HeardBeat{false}, HeardBeat{true}};
    screen.pollHeardBeats();
    EXPECT_EQ(screen.beatCount(), 1);
    EXPECT_FALSE(screen.beatAccented());
    screen.pollHeardBeats();
    screen.pollHeardBeats();
    EXPECT_EQ(screen.beatCount(), 2);
    EXPECT_TRUE(screen.beatAccented());
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

}  // namespace
