#include "app/ToolsMediator.h"

#include <array>

#include "app/AnalyticsLog.h"
#include "app/ApplicationProxy.h"
#include "app/Tools.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "sound/MediaProxy.h"

namespace zt {

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
            "ShowChordsTuning"};
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
    if (name == "ShowMetronome") {
        shell->showMetronome();
    } else if (name == "ShowChordsLibrary") {
        shell->showChordsLibrary();
    } else if (name == "ShowTunerBrain") {
        shell->showTunerBrain();
    } else if (name == "LoadSoundBuffersComplete") {
        shell->buffersLoaded();
    } else if (name == "ActiveTabIndexReady") {
        shell->createTabBar(applicationProxy_ ? applicationProxy_->activeTabIndex() : 0);
    } else if (name == "ShowMetronomeSettings") {
        shell->showMetronomeSettings();
    } else if (name == "ShowTunerChromaticSettings") {
        shell->showTCSettings();
    } else if (name == "ShowTunerBrainSettings") {
        shell->showTBSettings();
    } else if (name == "ShowChordsLibrarySettings") {
        shell->showCLSettings();
    } else if (name == "ShowTunerChromaticTaper") {
        shell->showTCTaper();
    } else if (name == "ShowOrchestra") {
        shell->showOrchestra();
    } else if (name == "ShowMicrophoneCalibrating") {
        shell->showMicrophoneCalibrating();
    } else if (name == "ShowTunerChromaticTuning") {
        shell->showTCTunings();
    } else if (name == "ShowTunerBrainTuning") {
        shell->showTBTunings();
    } else if (name == "ShowChordsTuning") {
        shell->showCLTunings();
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
    struct Event {
        const char* name;
        const char* failure;
    };
    static constexpr std::array<Event, 4> kEvents = {{
        {"Open_Metronome", "Error analitics - Metronome"},
        {"Open_ChromaticTuner", "Error analitics - TunerChomatic"},
        {"Open_BrainTuner", "Error analitics - TunerBrain"},
        {"Open_ChordsLibrary", "Error analitics - ChordsLibrary"},
    }};
    if (index < 0 || index >= static_cast<int>(kEvents.size()))
        return;
    const Event& event = kEvents[static_cast<size_t>(index)];
    if (!analytics_ || !analytics_->trackEvent("General", event.name, event.name, -1)) {
        log(event.failure);
    }
}

void ToolsMediator::showTunings(int tab) {
    static const char* const kRoutes[] = {nullptr, "ShowTunerChromaticTuning",
                                          "ShowTunerBrainTuning", "ShowChordsTuning"};
    if (tab > 0 && tab < 4)
        sendNotification(kRoutes[tab]);
}

}  // namespace zt
