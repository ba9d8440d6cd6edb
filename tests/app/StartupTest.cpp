// Start-up as the application runs it: the facade's command table, the
// registrations in their fixed order, the saved settings they read, and the
// cover lifting once the sound bank has loaded.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "AppTestEnvironment.h"
#include "app/ApplicationFacade.h"
#include "app/ApplicationProxy.h"
#include "app/Tools.h"
#include "framework/Log.h"
#include "framework/ManualLoop.h"
#include "framework/View.h"
#include "sound/MediaProxy.h"
#include "state/StateProxy.h"
#include "tunings/SettingsProxy.h"

using namespace zt;

namespace {

class StartupTest : public AppTestEnvironment {
protected:
};

// Records, for each notification it sees, which proxies and mediators were
// registered at that moment.
struct Probe {
    std::vector<std::string> seen;
    void watch(const std::string& name, std::function<std::string()> describe) {
        View::getInstance().registerObserver(name, Observer::withNotifyMethod(
                                                       [this, name, describe](const Notification&) {
                                                           seen.push_back(name + describe());
                                                       },
                                                       this));
    }
};

}  // namespace

TEST_F(StartupTest, RegistersInOrderAndLiftsTheCoverOnceSoundsLoad) {
    auto& facade = ApplicationFacade::getInstance();
    std::filesystem::copy_file(std::filesystem::path(ZEBTOOLS_SOURCE_DATA_DIR) / "saveState.plist",
                               dataDir_ / "saveState.plist");
    {
        auto proxy = makeProxy<StateProxy>();
        proxy->saveCommonState({{"Tuning", 27}});
    }
    Probe probe;
    auto registered = [&facade] {
        std::string s;
        for (const char* p : {"ApplicationProxy", "StateProxy", "ChordsProxy", "SettingsProxy",
                              "MainFrequerncyProxy", "MediaProxy", "MetronomeProxy"}) {
            s += facade.hasProxy(p) ? std::string(" ") + p : "";
        }
        for (const char* m : {"ToolsMediator", "CommonSettingsMediator"}) {
            s += facade.hasMediator(m) ? std::string(" ") + m : "";
        }
        return s;
    };
    auto tuning = [&facade] {
        auto settings = facade.retrieveProxyAs<SettingsProxy>(SettingsProxy::NAME);
        return " tuning=" +
               (settings ? std::to_string(settings->getTuningNumber()) : std::string("-"));
    };
    probe.watch("ShowContest", registered);
    probe.watch("GetChromaticTunerSavedData", registered);
    probe.watch("ActiveTabIndexReady", [&] { return registered() + tuning(); });

    Tools tools(engines_);
    facade.startup(&tools);

    EXPECT_EQ(probe.seen,
              (std::vector<std::string>{
                  "ShowContest",
                  "GetChromaticTunerSavedData ApplicationProxy StateProxy ChordsProxy "
                  "SettingsProxy MainFrequerncyProxy",
                  "ActiveTabIndexReady ApplicationProxy StateProxy ChordsProxy SettingsProxy "
                  "MainFrequerncyProxy MediaProxy MetronomeProxy tuning=27",
                  "ActiveTabIndexReady ApplicationProxy StateProxy ChordsProxy SettingsProxy "
                  "MainFrequerncyProxy MediaProxy MetronomeProxy ToolsMediator tuning=27"}));
    for (const char* m :
         {"MetronomeMediator", "MetronomeSettingsMediator", "CommonSettingsMediator"}) {
        EXPECT_TRUE(facade.hasMediator(m)) << m;
    }
    EXPECT_TRUE(std::filesystem::exists(dataDir_ / "presetsList.plist"));
    EXPECT_TRUE(tools.tabBarReady());

    auto media = facade.retrieveProxyAs<MediaProxy>(MediaProxy::NAME);
    ASSERT_TRUE(loop_.runUntil([&] { return !tools.loading(); }, std::chrono::seconds(20)));
    EXPECT_TRUE(media->isBuffersLoaded());
}

TEST_F(StartupTest, CommandTableHoldsTheFourteenCommandsAndNoOthers) {
    auto& facade = ApplicationFacade::getInstance();
    for (const char* name :
         {"Startup", "GetMainFrequerncy", "StartAudioSession", "StopAudioSession",
          "SaveMetronomeState", "SaveBrainTunerState", "SaveChromaticTunerState",
          "SaveChordsLibraryState", "SaveCommonState", "GetMetronomeSavedData",
          "GetBrainTunerSavedData", "GetChromaticTunerSavedData", "GetChordsLibrarySavedData",
          "GetCommonState"}) {
        EXPECT_TRUE(facade.hasCommand(name)) << name;
    }
    // Sent or listened for, but answered by mediators or by nobody.
    for (const char* name : {"StopMusic", "StartMusic", "StopMetronome", "ShowMetronomeSettings",
                             "SetTuning", "ReloadChords", "StateMetronomeData"}) {
        EXPECT_FALSE(facade.hasCommand(name)) << name;
    }
}
