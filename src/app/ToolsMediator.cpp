#include "app/ToolsMediator.h"

#include "app/AnalyticsLog.h"
#include "app/ApplicationProxy.h"
#include "app/Screens.h"
#include "app/Tools.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "sound/MediaProxy.h"
#include "state/SaveNotice.h"

namespace zt {

ToolsMediator::ToolsMediator(Tools* tools, AnalyticsLog* analytics)
    : Mediator(NAME, tools), analytics_(analytics) {}

Tools* ToolsMediator::tools() const {
    return viewAs<Tools>();
}

// The notifications that open screens come from the screen table; these
// are the shell's own.
std::vector<std::string> ToolsMediator::listNotificationInterests() const {
    std::vector<std::string> names = {
        "ShowHowToEnter",           "ShowTunerBrain",      "ShowMetronome", "ShowChordsLibrary",
        "LoadSoundBuffersComplete", "ActiveTabIndexReady", kSaveFailed,     kShowNotice};
    for (const ScreenRow& row : screenTable()) {
        for (const ScreenRoute& route : row.routes)
            names.emplace_back(route.notification);
    }
    return names;
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
    if (const RouteTarget target = routeOf(name); target.row) {
        shell->show(QString::fromUtf8(target.row->key), target.route->tab);
        return;
    }
    // "ShowMetronome" and "ShowChordsLibrary" show what is already there.
    if (name == "ShowTunerBrain") {
        shell->showTunerBrain();
    } else if (name == "LoadSoundBuffersComplete") {
        shell->buffersLoaded();
    } else if (name == "ActiveTabIndexReady") {
        shell->createTabBar(applicationProxy_ ? applicationProxy_->activeTabIndex() : 0);
    } else if (name == kSaveFailed || name == kShowNotice) {
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
    const ScreenRow* tunings = screenRow("commonSettings");
    if (!tunings)
        return;
    for (const ScreenRoute& route : tunings->routes) {
        if (route.tab == tab) {
            sendNotification(route.notification);
            return;
        }
    }
}

}  // namespace zt
