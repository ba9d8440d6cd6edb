#include "app/ToolsMediator.h"

#include <string_view>

#include "app/AnalyticsLog.h"
#include "app/ApplicationProxy.h"
#include "app/Screens.h"
#include "app/Tools.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "sound/MediaProxy.h"
#include "state/SaveNotice.h"

namespace zt {

namespace {

// The notifications that push a screen, and the tab whose stack takes it
// when the screen belongs to none (the tunings list serves three tabs).
struct Route {
    const char* notification;
    const char* screen;
    int tab;
};

constexpr Route kRoutes[] = {
    {"ShowMetronomeSettings", "metronomeSettings", kAnyTab},
    {"ShowTunerChromaticSettings", "tunerChromaticSettings", kAnyTab},
    {"ShowTunerBrainSettings", "tunerBrainSettings", kAnyTab},
    {"ShowChordsLibrarySettings", "chordsLibrarySettings", kAnyTab},
    {"ShowTunerChromaticTaper", "tunerChromaticTaper", kAnyTab},
    {"ShowOrchestra", "orchestraControl", kAnyTab},
    {"ShowMicrophoneCalibrating", "microphoneCalibrating", kAnyTab},
    {"ShowTunerChromaticTuning", "commonSettings", ChromaticTab},
    {"ShowTunerBrainTuning", "commonSettings", BrainTab},
    {"ShowChordsTuning", "commonSettings", ChordsTab},
};

}  // namespace

ToolsMediator::ToolsMediator(Tools* tools, AnalyticsLog* analytics)
    : Mediator(NAME, tools), analytics_(analytics) {}

Tools* ToolsMediator::tools() const {
    return viewAs<Tools>();
}

std::vector<std::string> ToolsMediator::listNotificationInterests() const {
    return {"ShowHowToEnter",
            "ShowChordsLibrarySettings",
            "ShowTunerBrainSettings",
            "ShowTunerBrainTuning",
            "ShowTunerChromaticTuning",
            "ShowTunerChromaticSettings",
            "ShowTunerChromaticTaper",
            "ShowTunerBrain",
            "ShowMetronome",
            "ShowMetronomeSettings",
            "ShowChordsLibrary",
            "LoadSoundBuffersComplete",
            "ActiveTabIndexReady",
            "ShowOrchestra",
            "ShowMicrophoneCalibrating",
            "ShowChordsTuning",
            kSaveFailed};
}

void ToolsMediator::onRegister() {
    Tools* shell = tools();
    if (shell)
        shell->setDelegate(this);
    applicationProxy_ = facade().retrieveProxyAs<ApplicationProxy>(ApplicationProxy::NAME);
    // The tab index was read before this mediator listened: ask again, so the
    // tab bar is built now, before the cover can be lifted.
    if (applicationProxy_ && applicationProxy_->activeTabIndex() > -1) {
        sendNotification("ActiveTabIndexReady");
    }
    auto media = facade().retrieveProxyAs<MediaProxy>(MediaProxy::NAME);
    if (media && media->isBuffersLoaded())
        sendNotification("LoadSoundBuffersComplete");
}

void ToolsMediator::handleNotification(const Notification& n) {
    log("NOTIFICATION: " + n.name());
    Tools* shell = tools();
    if (!shell)
        return;
    const std::string& name = n.name();
    for (const Route& route : kRoutes) {
        if (name == route.notification) {
            shell->show(QString::fromUtf8(route.screen), route.tab);
            return;
        }
    }
    // "ShowMetronome" and "ShowChordsLibrary" show what is already there.
    if (name == "ShowTunerBrain") {
        shell->showTunerBrain();
    } else if (name == "LoadSoundBuffersComplete") {
        shell->buffersLoaded();
    } else if (name == "ActiveTabIndexReady") {
        shell->createTabBar(applicationProxy_ ? applicationProxy_->activeTabIndex() : 0);
    } else if (name == kSaveFailed) {
        if (const auto* text = n.bodyAs<std::string>())
            shell->showNotice(QString::fromStdString(*text));
    } else if (name == "ShowHowToEnter") {
        const auto* address = n.bodyAs<std::string>();
        shell->showHowToEnter(address ? QString::fromStdString(*address) : QString());
    }
}

void ToolsMediator::registerRateAlert() {
    sendNotification("InitRateAlertView");
}
void ToolsMediator::stopMetronome() {
    sendNotification("StopMetronome");
}
void ToolsMediator::showMetronome() {
    sendNotification("ShowMetronome");
}
void ToolsMediator::showChordsLibrary() {
    sendNotification("ShowChordsLibrary");
}

void ToolsMediator::tabSelected(int index) {
    const auto& tabs = toolTabs();
    if (index < 0 || index >= static_cast<int>(tabs.size()))
        return;
    const ToolTab& tab = tabs[static_cast<size_t>(index)];
    if (!analytics_ || !analytics_->trackEvent("General", tab.event, tab.event, -1))
        log(tab.eventFailure);
}

void ToolsMediator::showTunings(int tab) {
    for (const Route& route : kRoutes) {
        if (route.tab == tab && std::string_view(route.screen) == "commonSettings") {
            sendNotification(route.notification);
            return;
        }
    }
}

}  // namespace zt
