// The application's life cycle as Qt reports it: what a running metronome
// hears when the window loses focus or is hidden, the rate prompt on return,
// and what termination writes.
#include <gtest/gtest.h>

#include <QObject>
#include <filesystem>

#include "AppTestEnvironment.h"
#include "app/ApplicationFacade.h"
#include "app/Tools.h"
#include "app/ZebToolsAppDelegate.h"
#include "framework/Log.h"
#include "framework/ManualLoop.h"
#include "framework/View.h"
#include "state/StateProxy.h"

using namespace zt;

namespace {

// Stands in for the metronome screen: records the calls the shell makes.
class MetronomeRecorder : public QObject {
    Q_OBJECT
public:
    QStringList calls;
    Q_INVOKABLE void endMetronome() { calls << "end"; }
    Q_INVOKABLE void runMetronome() { calls << "run"; }
    Q_INVOKABLE void setTabBarIsVisible(bool visible) {
        calls << (visible ? "tabbar" : "notabbar");
    }
};

class LifeCycleTest : public AppTestEnvironment {
protected:
    void SetUp() override {
        AppTestEnvironment::SetUp();
        delegate_.launch();
        recorder_ = new MetronomeRecorder;
        delegate_.tools()->setScreen("metronome", recorder_);
        View::getInstance().registerObserver(
            "InitRateAlertView",
            Observer::withNotifyMethod([this](const Notification&) { ++ratePrompts_; }, this));
    }

    ZebToolsAppDelegate delegate_;
    MetronomeRecorder* recorder_ = nullptr;
    int ratePrompts_ = 0;
};

}  // namespace

TEST_F(LifeCycleTest, MetronomeOnScreenIsPausedThenResumedWhenTheWindowGoesAway) {
    struct Case {
        Qt::ApplicationState state;
        QStringList calls;
        bool inBackground;
    };
    const std::vector<Case> steps = {
        {Qt::ApplicationInactive, {"end", "run"}, true},
        {Qt::ApplicationActive, {"end", "run"}, false},
        {Qt::ApplicationHidden, {"end", "run", "end", "run"}, true},
        {Qt::ApplicationSuspended, {"end", "run", "end", "run"}, true},
        {Qt::ApplicationActive, {"end", "run", "end", "run"}, false},
    };
    for (const Case& step : steps) {
        delegate_.applicationStateChanged(step.state);
        EXPECT_EQ(recorder_->calls, step.calls) << step.state;
        EXPECT_EQ(delegate_.inBackGround(), step.inBackground) << step.state;
    }
    EXPECT_EQ(ratePrompts_, 2);
}

TEST_F(LifeCycleTest, OtherToolsOnScreenLeaveTheMetronomeAlone) {
    delegate_.tools()->selectTab(3);
    recorder_->calls.clear();
    delegate_.applicationStateChanged(Qt::ApplicationHidden);
    delegate_.applicationStateChanged(Qt::ApplicationActive);
    EXPECT_TRUE(recorder_->calls.isEmpty());
}

TEST_F(LifeCycleTest, TerminationSavesTheSelectedTabOnce) {
    delegate_.tools()->selectTab(2);
    delegate_.willTerminate();
    EXPECT_EQ(makeProxy<StateProxy>()->getSelectedViewController(), 2);
    delegate_.tools()->selectTab(1);
    delegate_.willTerminate();
    EXPECT_EQ(makeProxy<StateProxy>()->getSelectedViewController(), 2);
}

#include "LifeCycleTest.moc"
