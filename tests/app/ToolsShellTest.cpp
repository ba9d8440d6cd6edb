// The shell's routing table, tab bar and loading cover, driven through
// notifications as the rest of the program drives them.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QSignalSpy>
#include <filesystem>
#include <fstream>
#include <set>

#include "AppTestEnvironment.h"
#include "app/AnalyticsLog.h"
#include "app/ApplicationProxy.h"
#include "app/Screens.h"
#include "app/Tools.h"
#include "app/ToolsMediator.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "state/SaveNotice.h"

using namespace zt;

namespace {

class ToolsShellTest : public AppTestEnvironment {
protected:
    // Registers the application proxy and the shell's mediator, as start-up does.
    void startShell() {
        auto& facade = Facade::getInstance();
        facade.registerProxy(makeProxy<ApplicationProxy>());
        facade.retrieveProxyAs<ApplicationProxy>(ApplicationProxy::NAME)->readActiveTabIndex();
        facade.registerMediator(makeMediator<ToolsMediator>(&tools_, &analytics_));
    }

    void TearDown() override {
        // Its writer may still be adding to the data folder that goes next.
        analytics_.stop();
        AppTestEnvironment::TearDown();
    }

    Tools tools_{engines_};
    AnalyticsLog analytics_;
};

}  // namespace

// Each route of the screen table, sent as the screens send it, pushes its
// row's screen onto the stack of the row's tab (or of the route's, for a
// screen of any tab); no notification names two places.
TEST_F(ToolsShellTest, EveryShowRoutePushesOntoTheStackThatHoldsItsScreen) {
    startShell();
    const auto interests =
        Facade::getInstance().retrieveMediator(ToolsMediator::NAME)->listNotificationInterests();
    EXPECT_EQ(std::set<std::string>(interests.begin(), interests.end()).size(), interests.size());
    for (const ScreenRow& row : screenTable()) {
        for (const ScreenRoute& route : row.routes) {
            const int tab = row.tab == kAnyTab ? route.tab : row.tab;
            const int depth = tools_.stack(tab).size();
            Facade::getInstance().sendNotification(route.notification);
            const QStringList stack = tools_.stack(tab);
            ASSERT_EQ(stack.size(), depth + 1) << route.notification;
            EXPECT_EQ(stack.last().toStdString(), row.key) << route.notification;
        }
    }
    // The same tunings screen sits on three stacks at once.
    for (int tab : {ChromaticTab, BrainTab, ChordsTab})
        EXPECT_TRUE(tools_.stack(tab).contains("commonSettings")) << tab;

    tools_.goBack(3);
    EXPECT_EQ(tools_.stack(3), QStringList({"chordsLibrary", "chordsLibrarySettings"}));
    tools_.goBack(0);
    tools_.goBack(0);
    EXPECT_EQ(tools_.stack(0), QStringList({"metronome"}));
}

TEST_F(ToolsShellTest, AScreenAskingToGoBackLeavesOnlyItsOwnStack) {
    startShell();
    for (const char* name : {"ShowTunerChromaticSettings", "ShowOrchestra"})
        Facade::getInstance().sendNotification(name);
    emit tools_.screen("orchestraControl")->backRequested();
    EXPECT_EQ(tools_.stack(1), QStringList({"tunerChromatic", "tunerChromaticSettings"}));
    emit tools_.screen("orchestraControl")->backRequested();
    EXPECT_EQ(tools_.stack(1).size(), 2) << "not on top any more: nothing to do";
}

TEST_F(ToolsShellTest, EmptyActionsChangeNothingAndShowTunerBrainSelectsTab2) {
    startShell();
    for (const char* name : {"ShowMetronome", "ShowChordsLibrary", "ShowHowToEnter"}) {
        Facade::getInstance().sendNotification(name);
    }
    for (int tab = 0; tab < 4; ++tab)
        EXPECT_EQ(tools_.stack(tab).size(), 1);
    EXPECT_EQ(tools_.currentTab(), 0);
    Facade::getInstance().sendNotification("ShowTunerBrain");
    EXPECT_EQ(tools_.currentTab(), 2);
}

TEST_F(ToolsShellTest, CoverLiftsOnceAndOnlyAfterTheTabBarExists) {
    QSignalSpy lifted(&tools_, &Tools::loadingChanged);
    auto& facade = Facade::getInstance();
    // Loading finished before the shell listened: nobody lifts the cover yet.
    facade.sendNotification("LoadSoundBuffersComplete");
    EXPECT_TRUE(tools_.loading());
    startShell();
    EXPECT_TRUE(tools_.tabBarReady());
    facade.sendNotification("LoadSoundBuffersComplete");
    facade.sendNotification("LoadSoundBuffersComplete");
    EXPECT_FALSE(tools_.loading());
    EXPECT_EQ(lifted.count(), 1);
}

TEST_F(ToolsShellTest, SavedTabIsOpenedAndMissingOrOddValuesOpenTheMetronome) {
    struct Case {
        const char* file;
        int tab;
    };
    const std::vector<Case> cases = {
        {"<dict><key>SelectedViewController</key><integer>3</integer></dict>", 3},
        {"<dict><key>SelectedViewController</key><integer>9</integer></dict>", 0},
        {"<dict><key>Other</key><integer>1</integer></dict>", 0},
    };
    for (const Case& c : cases) {
        Facade::reset();
        std::ofstream(dataDir_ / "saveState.plist")
            << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" << c.file
            << "</plist>\n";
        Tools tools(engines_);
        auto& facade = Facade::getInstance();
        facade.registerProxy(makeProxy<ApplicationProxy>());
        facade.retrieveProxyAs<ApplicationProxy>(ApplicationProxy::NAME)->readActiveTabIndex();
        facade.registerMediator(makeMediator<ToolsMediator>(&tools, nullptr));
        EXPECT_EQ(tools.currentTab(), c.tab) << c.file;
        EXPECT_EQ(tools.selectedIndex(), c.tab) << c.file;
    }
}

TEST_F(ToolsShellTest, TabChangesAreRecordedLocallyOrLoggedWhenRecordingFails) {
    startShell();
    tools_.selectTab(3);
    EXPECT_TRUE(logged("Error analitics - ChordsLibrary"));

    analytics_.start(dataDir_ / "events.log", 10);
    for (int tab : {1, 2, 0})
        tools_.selectTab(tab);
    analytics_.flush();
    std::ifstream in(dataDir_ / "events.log");
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line.substr(line.find('\t') + 1));
    EXPECT_EQ(lines,
              (std::vector<std::string>{"General\tOpen_ChromaticTuner\tOpen_ChromaticTuner\t-1",
                                        "General\tOpen_BrainTuner\tOpen_BrainTuner\t-1",
                                        "General\tOpen_Metronome\tOpen_Metronome\t-1"}));
    EXPECT_EQ(tools_.selectedIndex(), 0);
}

// A pipe in the log's place neither blocks the window nor receives events;
// the log never grows past a megabyte.
TEST_F(ToolsShellTest, EventLogIsARegularFileRotatedUnderAMegabyte) {
    startShell();
    const auto log = dataDir_ / "events.log";
    std::filesystem::create_directories(dataDir_);
    ASSERT_EQ(::mkfifo(log.c_str(), 0600), 0);
    const int reader = ::open(log.c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);
    analytics_.start(log, 10);
    tools_.selectTab(1);
    analytics_.flush();
    tools_.selectTab(2);
    EXPECT_TRUE(logged("Error analitics - TunerBrain"));
    char byte = 0;
    EXPECT_LE(::read(reader, &byte, 1), 0);
    ::close(reader);

    std::filesystem::remove(log);
    for (int i = 0; i < 20000; ++i)
        analytics_.trackEvent("General", "Open_Metronome", "Open_Metronome", i);
    analytics_.flush();
    const auto size = std::filesystem::file_size(log);
    EXPECT_LT(size + std::filesystem::file_size(log.string() + ".1"), 1u << 20);
    EXPECT_GT(size, 0u);
}

// A save that failed in the state layer reaches the user as the shell's
// notice, which goes by itself or when tapped.
TEST_F(ToolsShellTest, SaveFailuresShowATransientNotice) {
    startShell();
    QSignalSpy changed(&tools_, &Tools::noticeChanged);
    Facade::getInstance().sendNotification(
        kSaveFailed, std::any(std::string("Settings could not be saved: the disk is full.")));
    EXPECT_EQ(tools_.notice(), "Settings could not be saved: the disk is full.");
    tools_.dismissNotice();
    EXPECT_EQ(tools_.notice(), "");
    EXPECT_EQ(changed.size(), 2);

    Facade::getInstance().sendNotification(kSaveFailed,
                                           std::any(std::string("Presets could not be saved.")));
    EXPECT_TRUE(changed.wait(Tools::kNoticeMilliseconds + 2000));
    EXPECT_EQ(tools_.notice(), "");
}
