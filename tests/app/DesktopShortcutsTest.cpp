// The keyboard against the real window: Ctrl+digit chooses a tool as a tap
// on its tab does, and Ctrl+Q ends the session as closing the window does.
#include <gtest/gtest.h>

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSettings>
#include <QTimer>
#include <QtTest/QTest>
#include <algorithm>
#include <fstream>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "AppTestEnvironment.h"
#include "app/Screens.h"
#include "app/Tools.h"
#include "app/WindowPlacement.h"
#include "app/ZebToolsAppDelegate.h"
#include "state/StateKeys.h"
#include "state/StateProxy.h"
#include "tunings/ui/CommonSettings.h"

using namespace zt;

namespace {

class DesktopShortcutsTest : public AppTestEnvironment {
protected:
    void SetUp() override {
        AppTestEnvironment::SetUp();
        delegate_.launch(engines_);
        ASSERT_TRUE(loop_.runUntil([&] { return !tools().loading(); }, std::chrono::seconds(20)));
        engine_ = std::make_unique<QQmlApplicationEngine>();
        window_ = loadMainWindow(*engine_, &tools());
        ASSERT_TRUE(window_);
        (new WindowPlacement(window_, windowFile(), window_))->restoreAndShow();
        window_->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_));
    }
    void TearDown() override {
        engine_.reset();
        // Its writer may still be adding to the data folder that goes next.
        delegate_.analytics().stop();
        AppTestEnvironment::TearDown();
    }

    Tools& tools() { return *delegate_.tools(); }
    QString windowFile() const {
        return QString::fromStdString((dataDir_ / "window.ini").string());
    }
    void press(Qt::Key key) { QTest::keyClick(window_, key, Qt::ControlModifier); }
    // What a screen reader says for the item: its accessible name, or a
    // control's text.
    static QString nameOf(QObject* item) {
        for (QObject* child : item->children()) {
            if (QString(child->metaObject()->className()).contains("AccessibleAttached") &&
                !child->property("name").toString().isEmpty())
                return child->property("name").toString();
        }
        return item->property("text").toString();
    }
    static bool ringed(QQuickItem* item) {
        const auto children = item->childItems();
        return std::any_of(children.begin(), children.end(), [](QQuickItem* c) {
            return QString(c->metaObject()->className()).contains("FocusRing") && c->isVisible();
        });
    }
    // One Tab: the item that has the keys now, checked for a name and a ring.
    QQuickItem* tabOnce() {
        QTest::keyClick(window_, Qt::Key_Tab);
        QQuickItem* item = window_->activeFocusItem();
        if (item) {
            EXPECT_FALSE(nameOf(item).isEmpty()) << item->objectName().toStdString();
            EXPECT_TRUE(ringed(item)) << nameOf(item).toStdString() << " without a ring";
        }
        return item;
    }
    // The event log as written so far; its writer runs on a thread of its own.
    std::string eventLog() {
        delegate_.analytics().flush();
        std::ifstream in(dataDir_ / "events.log");
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }

    ZebToolsAppDelegate delegate_;
    std::unique_ptr<QQmlApplicationEngine> engine_;
    QQuickWindow* window_ = nullptr;
};

class DesktopQuitTest : public DesktopShortcutsTest,
                        public ::testing::WithParamInterface<const char*> {};

struct TabWalk {
    const char* screen;
    Qt::Key tool;
    // The start of each stop's name, in the order Tab reaches them.
    std::vector<QString> stops;
    // The screen puts up the "Microphone Required" alert first (the tests
    // have no microphone): it is answered by the keys, and its "Ok" leads to
    // the by-ear tuner, whose screen the walk then goes round.
    bool alertFirst = false;
};
void PrintTo(const TabWalk& walk, std::ostream* out) {
    *out << walk.screen;
}

class DesktopTabWalkTest : public DesktopShortcutsTest,
                           public ::testing::WithParamInterface<TabWalk> {};

}  // namespace

TEST_F(DesktopShortcutsTest, CtrlDigitChoosesTheToolAsATapOnItsTabDoes) {
    // The chromatic tuner comes last: without a microphone it puts up its
    // modal alert, which takes the keys until it is dismissed.
    const std::pair<Qt::Key, const char*> cases[] = {{Qt::Key_4, "Open_ChordsLibrary"},
                                                     {Qt::Key_3, "Open_BrainTuner"},
                                                     {Qt::Key_1, "Open_Metronome"},
                                                     {Qt::Key_2, "Open_ChromaticTuner"}};
    for (const auto& [key, event] : cases) {
        const int tab = key - Qt::Key_1;
        const size_t logged = eventLog().size();
        press(key);
        EXPECT_EQ(tools().currentTab(), tab) << event;
        EXPECT_EQ(tools().selectedIndex(), tab) << event;
        EXPECT_EQ(tools().visibleScreen(), QString::fromUtf8(toolTabs()[tab].root)) << event;
        EXPECT_NE(eventLog().find(event, logged), std::string::npos) << event;
    }
}

// The keyboard alone: Tab walks the rows of a settings screen, each named
// for a screen reader and ringed while it has the keys; Space or Enter on
// one does what a click does; Escape goes back a screen and the keys come
// back to the screen on show.
TEST_F(DesktopShortcutsTest, TheKeyboardAloneWalksASettingsScreenAndComesBack) {
    press(Qt::Key_3);
    tools().show("tunerBrainSettings");
    // Tab until the control named `wanted` has the keys.
    const auto tabTo = [&](const QString& wanted) {
        for (int presses = 0; presses < 12; ++presses) {
            QQuickItem* item = tabOnce();
            if (!item)
                return false;
            if (nameOf(item) == wanted)
                return true;
        }
        return false;
    };
    // The switch row: Space flips it as a click does.
    auto* settings = tools().screen("tunerBrainSettings");
    const QString switchTitle = settings->property("switchTitle").toString();
    const bool wasOn = settings->property("isOn").toBool();
    ASSERT_TRUE(QTest::qWaitFor([&] { return tabTo(switchTitle); }, 3000));
    QTest::keyClick(window_, Qt::Key_Space);
    EXPECT_NE(settings->property("isOn").toBool(), wasOn);

    ASSERT_TRUE(tabTo("Tunings"));
    QTest::keyClick(window_, Qt::Key_Return);
    EXPECT_EQ(tools().stack(BrainTab).last(), "commonSettings");
    QTest::keyClick(window_, Qt::Key_Escape);
    EXPECT_EQ(tools().stack(BrainTab).last(), "tunerBrainSettings");
    QTest::keyClick(window_, Qt::Key_Escape);
    EXPECT_EQ(tools().stack(BrainTab).size(), 1);
    // A root has nowhere to go back to, and the screen has the keys again:
    // a digit plays its string.
    QTest::keyClick(window_, Qt::Key_Escape);
    EXPECT_EQ(tools().stack(BrainTab).size(), 1);
    tones_.calls.clear();
    ASSERT_TRUE(QTest::qWaitFor([&] {
        QTest::keyClick(window_, Qt::Key_6);
        return !tones_.calls.empty();
    }));
    // The by-ear tuner's strings are reached with Tab and played with Space.
    ASSERT_TRUE(tabTo("String 5, A"));
    tones_.calls.clear();
    QTest::keyClick(window_, Qt::Key_Space);
    // (Looped: the switch above turned the loop on.)
    ASSERT_FALSE(tones_.calls.empty());
    EXPECT_EQ(tones_.calls.back(), "play 5 0 loop");
}

// Tab alone walks a tool's root screen round: every stop is named for a
// screen reader and ringed while it has the keys, and each control is
// reached, in reading order.
TEST_P(DesktopTabWalkTest, TabReachesEveryControlNamedAndRinged) {
    press(GetParam().tool);
    if (GetParam().alertFirst) {
        QObject* screen = tools().screen(QString::fromUtf8(toolTabs()[tools().currentTab()].root));
        ASSERT_TRUE(QTest::qWaitFor([&] { return screen->property("microphoneAlert").toBool(); }));
        QTest::qWait(50);  // the popup's opening
        // Its one button has the keys, ringed, and Tab stays on it.
        QQuickItem* ok = window_->activeFocusItem();
        ASSERT_NE(ok, nullptr);
        EXPECT_EQ(ok->objectName(), "alertOk");
        EXPECT_TRUE(ringed(ok));
        EXPECT_EQ(tabOnce(), ok);
        QTest::keyClick(window_, Qt::Key_Escape);
        EXPECT_FALSE(screen->property("microphoneAlert").toBool());
        EXPECT_EQ(tools().currentTab(), BrainTab);
    }
    std::vector<QQuickItem*> seen;
    std::vector<QString> names;
    for (int presses = 0; presses < 60; ++presses) {
        QQuickItem* item = tabOnce();
        ASSERT_NE(item, nullptr);
        if (std::find(seen.begin(), seen.end(), item) != seen.end())
            break;
        seen.push_back(item);
        names.push_back(nameOf(item));
    }
    auto next = names.begin();
    for (const QString& wanted : GetParam().stops) {
        next =
            std::find_if(next, names.end(), [&](const QString& n) { return n.startsWith(wanted); });
        EXPECT_NE(next, names.end())
            << wanted.toStdString() << " not reached in order; reached: "
            << QStringList(names.begin(), names.end()).join(" | ").toStdString();
        if (next == names.end())
            next = names.begin();
    }
}

INSTANTIATE_TEST_SUITE_P(
    RootScreens, DesktopTabWalkTest,
    ::testing::Values(TabWalk{"Metronome",
                              Qt::Key_1,
                              {"Beat 1", "Beat 2", "Settings", "\u2212", "Tempo", "+",
                               "Beats in a bar, ", "Beat value, ", "Subdivision", "Tap tempo",
                               "Start"}},
                      TabWalk{"Chords",
                              Qt::Key_4,
                              {"Chord ", "Name a shape", "Notes", "Fingers", "Settings",
                               "Previous fingerings", "Next fingerings", "Play"}},
                      TabWalk{"ChromaticTunerWithoutMicrophone",
                              Qt::Key_2,
                              {"Settings", "String 6, E", "String 5, A", "String 4, D",
                               "String 3, G", "String 2, B", "String 1, E"},
                              true}),
    [](const auto& info) { return std::string(info.param.screen); });

// What is set on screen, the chosen tab and the window's place are saved
// whichever way the session ends.
TEST_P(DesktopQuitTest, TheSessionEndsWithEverythingSaved) {
    press(Qt::Key_2);
    tools().openTunings(ChromaticTab);
    tools().screenAs<CommonSettings>("commonSettings")->selectRow(28);
    const QRect place(60, 50, 300, 450);
    window_->setGeometry(place);
    QTest::qWait(20);

    const bool byKey = std::string(GetParam()) == "Ctrl+Q";
    QTimer::singleShot(0, window_, [&] {
        if (byKey)
            press(Qt::Key_Q);
        else
            window_->close();
    });
    QTimer guard;
    QObject::connect(&guard, &QTimer::timeout, [] { QCoreApplication::exit(1); });
    guard.start(10000);
    ASSERT_EQ(QCoreApplication::exec(), 0) << "the application did not quit";

    auto state = makeProxy<StateProxy>();
    EXPECT_EQ(state::read(*state->getCommonData(), state::common::kTuning), 27);
    EXPECT_EQ(state->getSelectedViewController(), ChromaticTab);
    EXPECT_EQ(QSettings(windowFile(), QSettings::IniFormat).value("Window/geometry").toRect(),
              place);
}

INSTANTIATE_TEST_SUITE_P(Ways, DesktopQuitTest, ::testing::Values("Ctrl+Q", "close"));
