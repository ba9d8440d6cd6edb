// The app launched on each tab, with a tuning other than the standard one
// saved: the tab shows what a tab switch to it would show, and in the real
// window the keys reach the tool on show and no other.
#include <gtest/gtest.h>

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtTest/QTest>
#include <memory>
#include <ostream>

#include "AppTestEnvironment.h"
#include "app/ApplicationFacade.h"
#include "app/Screens.h"
#include "app/Tools.h"
#include "app/ZebToolsAppDelegate.h"
#include "framework/View.h"
#include "state/StateProxy.h"
#include "tunings/TuningCatalogue.h"

using namespace zt;

namespace {

struct LaunchCase {
    int tab;
    // Properties of the tab's root screen that show the tuning, and what
    // they read with Open G (D2 G2 D3 G3 B3 D4), lists joined by spaces.
    std::vector<std::pair<const char*, std::string>> shown;
};

// Names the case by its tab, so test names stay the same from run to run.
void PrintTo(const LaunchCase& c, std::ostream* out) {
    *out << "tab " << c.tab;
}

class LaunchTest : public AppTestEnvironment, public ::testing::WithParamInterface<LaunchCase> {
protected:
    void SetUp() override {
        AppTestEnvironment::SetUp();
        ApplicationFacade::getInstance();
        int openG = 0;
        while (tunings::catalogue()[size_t(openG)].name != "Open G")
            ++openG;
        {
            auto state = makeProxy<StateProxy>();
            state->saveCommonState({{"Tuning", openG}});
            state->saveSelectedViewController(GetParam().tab);
        }
        View::getInstance().registerObserver(
            "StopMusic",
            Observer::withNotifyMethod([this](const Notification&) { ++stopMusic_; }, this));
        delegate_.launch(engines_);
        launchStopMusic_ = stopMusic_;
        ASSERT_TRUE(loop_.runUntil([&] { return !tools().loading(); }, std::chrono::seconds(20)));
    }
    void TearDown() override {
        engine_.reset();
        // Its writer may still be adding to the data folder that goes next.
        delegate_.analytics().stop();
        AppTestEnvironment::TearDown();
    }

    Tools& tools() { return *delegate_.tools(); }
    Screen* root() { return tools().screen(QString::fromUtf8(toolTabs()[size_t(tab())].root)); }
    int tab() const { return GetParam().tab; }
    std::string shown(const char* name) {
        return root()->property(name).toStringList().join(' ').toStdString();
    }

    void showWindow() {
        engine_ = std::make_unique<QQmlApplicationEngine>();
        window_ = loadMainWindow(*engine_, &tools());
        ASSERT_TRUE(window_);
        window_->show();
        window_->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_));
    }

    ZebToolsAppDelegate delegate_;
    std::unique_ptr<QQmlApplicationEngine> engine_;
    QQuickWindow* window_ = nullptr;
    int stopMusic_ = 0;
    int launchStopMusic_ = 0;
};

TEST_P(LaunchTest, TheSavedTabShowsWhatATabSwitchShows) {
    ASSERT_EQ(tools().currentTab(), tab());
    for (const auto& [name, expected] : GetParam().shown)
        EXPECT_EQ(shown(name), expected) << name;

    // Away and back, as a user would.
    tools().selectTab((tab() + 1) % 4);
    const int before = stopMusic_;
    tools().selectTab(tab());
    EXPECT_EQ(launchStopMusic_, stopMusic_ - before) << "\"StopMusic\" as often as on a switch";
    for (const auto& [name, expected] : GetParam().shown)
        EXPECT_EQ(shown(name), expected) << name << " after a switch";
}

TEST_P(LaunchTest, KeysReachOnlyTheToolOnShowFromTheFirstFrame) {
    showWindow();
    using Calls = std::vector<std::string>;
    const bool metronome = tab() == MetronomeTab;
    QTest::keyClick(window_, Qt::Key_Space);
    EXPECT_EQ(output_.calls.size(), metronome ? 1u : 0u);
    QTest::keyClick(window_, Qt::Key_Space);
    const Calls startStop = {"start 1-2-4-1-1-0-60", "stop"};
    EXPECT_EQ(output_.calls, metronome ? startStop : Calls());

    // The 6th string of Open G is D2, two semitones under the recorded E2.
    QTest::keyClick(window_, Qt::Key_6);
    const Calls sixth = {"play 6 -2 once"};
    EXPECT_EQ(tones_.calls, tab() == BrainTab ? sixth : Calls());
    // A control's shortcut is not a key for the tool.
    tones_.calls.clear();
    QTest::keyClick(window_, Qt::Key_5, Qt::AltModifier);
    EXPECT_TRUE(tones_.calls.empty());
}

// The window draws a tab when it is first shown; what happened on it before
// (a screen opened there, the tuning changed elsewhere) is on show as if
// it had been drawn all along.
TEST_P(LaunchTest, ATabDrawnLateShowsWhatHappenedBefore) {
    showWindow();
    // The tab's navigation stack, nullptr while it is not drawn.
    const auto drawn = [this](int tab) -> QQuickItem* {
        const QString name = QStringLiteral("tabView%1").arg(tab);
        QList<QQuickItem*> items = {window_->contentItem()};
        while (!items.isEmpty()) {
            QQuickItem* item = items.takeFirst();
            if (item->objectName() == name)
                return qvariant_cast<QQuickItem*>(item->property("item"));
            items += item->childItems();
        }
        return nullptr;
    };
    for (int t = 0; t < 4; ++t)
        EXPECT_EQ(drawn(t) != nullptr, t == tab()) << "tab " << t << " at launch";

    const int later = (tab() + 1) % 4;
    const QString settings[] = {"metronomeSettings", "tunerChromaticSettings", "tunerBrainSettings",
                                "chordsLibrarySettings"};
    tools().show(settings[later]);
    ASSERT_TRUE(
        QMetaObject::invokeMethod(tools().screen("commonSettings"), "selectRow", Q_ARG(int, 28)));
    const auto name27 = tunings::catalogue()[27].name;
    const QString tuning = QString::fromUtf8(name27.data(), qsizetype(name27.size()));
    for (int t : {later, (tab() + 2) % 4, (tab() + 3) % 4, tab()}) {
        tools().selectTab(t);
        QQuickItem* stack = drawn(t);
        ASSERT_TRUE(stack) << "tab " << t;
        const QStringList keys = tools().stack(t);
        ASSERT_EQ(stack->property("depth").toInt(), keys.size()) << "tab " << t;
        auto* top = qvariant_cast<QQuickItem*>(stack->property("currentItem"));
        ASSERT_TRUE(top);
        EXPECT_EQ(top->property("key").toString(), keys.last()) << "tab " << t;
        // The by-ear tuner and its settings both name the tuning.
        if (t == BrainTab) {
            auto* name = top->findChild<QObject*>(QStringLiteral("tuningName"));
            ASSERT_TRUE(name);
            EXPECT_EQ(name->property("text").toString(), tuning);
        }
    }
    EXPECT_EQ(tools().stack(later).last(), settings[later]);
    tools().goBack(later);
    tools().selectTab(later);
    EXPECT_EQ(drawn(later)->property("depth").toInt(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Tabs, LaunchTest,
    ::testing::Values(LaunchCase{MetronomeTab, {{"title", "Metronome"}}},
                      LaunchCase{ChromaticTab, {{"slotLetters", "D G D G B D"}}},
                      LaunchCase{BrainTab,
                                 {{"tuningName", "Open G"}, {"noteNames", "D B G D G D"}}},
                      LaunchCase{ChordsTab, {{"tuningName", "Open G"}}}),
    [](const auto& info) { return std::string(toolTabs()[size_t(info.param.tab)].item); });

}  // namespace
