// The application's life cycle as Qt reports it: what a running metronome
// does when the window loses focus or is hidden, the rate prompt on return,
// and what termination keeps.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <filesystem>

#include "AppTestEnvironment.h"
#include "app/ApplicationFacade.h"
#include "app/Tools.h"
#include "app/ZebToolsAppDelegate.h"
#include "framework/View.h"
#include "metronome/ui/Metronome.h"
#include "state/StateKeys.h"
#include "state/StateProxy.h"
#include "tunings/ui/CommonSettings.h"

using namespace zt;

namespace {

class LifeCycleTest : public AppTestEnvironment {
protected:
    void SetUp() override {
        AppTestEnvironment::SetUp();
        delegate_.launch(engines_);
        // Without a window the application does not start active.
        delegate_.applicationStateChanged(Qt::ApplicationActive);
        ASSERT_TRUE(loop_.runUntil([&] { return !tools().loading(); }, std::chrono::seconds(20)));
        metronome_ = tools().screenAs<Metronome>("metronome");
        View::getInstance().registerObserver(
            "InitRateAlertView",
            Observer::withNotifyMethod([this](const Notification&) { ++ratePrompts_; }, this));
        metronome_->startStop();
        output_.calls.clear();
    }
    void TearDown() override {
        // Its writer may still be adding to the data folder that goes next.
        delegate_.analytics().stop();
        AppTestEnvironment::TearDown();
    }

    Tools& tools() { return *delegate_.tools(); }
    // What the output heard once the current turn of the event loop is over.
    std::vector<std::string> heard() {
        QCoreApplication::sendPostedEvents();
        return output_.calls;
    }

    ZebToolsAppDelegate delegate_;
    Metronome* metronome_ = nullptr;
    int ratePrompts_ = 0;
};

}  // namespace

TEST_F(LifeCycleTest, MetronomeOnScreenGoesOnSoundingWhileTheWindowIsAway) {
    for (Qt::ApplicationState state :
         {Qt::ApplicationInactive, Qt::ApplicationActive, Qt::ApplicationHidden,
          Qt::ApplicationSuspended, Qt::ApplicationActive}) {
        delegate_.applicationStateChanged(state);
        EXPECT_TRUE(metronome_->isPlaying()) << state;
        EXPECT_TRUE(heard().empty()) << state;
    }
    EXPECT_EQ(ratePrompts_, 2);
}

TEST_F(LifeCycleTest, ResigningPausesTheMetronomeOnlyWhenItIsOnShow) {
    struct Case {
        const char* screen;  // shown on the metronome's tab; "" for the chords tab
        bool paused;
    };
    for (const Case& c :
         {Case{"metronome", true}, Case{"metronomeSettings", true}, Case{"", false}}) {
        if (*c.screen == '\0')
            tools().selectTab(ChordsTab);
        else
            tools().show(c.screen);
        delegate_.willResignActive();
        EXPECT_EQ(heard(), c.paused ? std::vector<std::string>{"stop"} : std::vector<std::string>{})
            << c.screen;
        delegate_.didEnterBackground();
        EXPECT_TRUE(metronome_->isPlaying()) << c.screen;
        output_.calls.clear();
    }
}

// Leaving a screen saves what was set there; quitting counts as leaving.
TEST_F(LifeCycleTest, QuittingOnTheMetronomeKeepsItsTempo) {
    metronome_->plus();
    delegate_.willTerminate();
    EXPECT_EQ(state::read(*makeProxy<StateProxy>()->getMetronomeData(), state::metronome::kBPM),
              61);
}

TEST_F(LifeCycleTest, QuittingOnTheTuningsListKeepsTheTuningAndTheTabOnce) {
    tools().selectTab(ChromaticTab);
    tools().openTunings(ChromaticTab);
    tools().screenAs<CommonSettings>("commonSettings")->selectRow(28);
    delegate_.willTerminate();
    auto state = makeProxy<StateProxy>();
    EXPECT_EQ(state::read(*state->getCommonData(), state::common::kTuning), 27);
    EXPECT_EQ(state->getSelectedViewController(), ChromaticTab);

    tools().selectTab(BrainTab);
    delegate_.willTerminate();
    EXPECT_EQ(makeProxy<StateProxy>()->getSelectedViewController(), ChromaticTab);
}
