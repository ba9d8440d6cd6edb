#include "tunings/ui/CommonSettingsMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "state/SaveNotice.h"
#include "tunings/SettingsProxy.h"

namespace zt {

std::vector<std::string> CommonSettingsMediator::listNotificationInterests() const {
    return {"StateCommonData", "SetTuning"};
}

void CommonSettingsMediator::handleNotification(const Notification& notification) {
    if (notification.name() == "SetTuning" && screen() && settings_) {
        screen()->setTuningSetting(settings_->tuningSound());
    }
}

void CommonSettingsMediator::registered() {
    settings_ = facade().retrieveProxyAs<SettingsProxy>(SettingsProxy::NAME);
    if (!settings_)
        log("CommonSettingsMediator: SettingsProxy is not registered");
    if (screen() && settings_)
        screen()->setTuningArray(settings_->getNotesStand());
    // A saved choice that is gone is told once the shell can show it.
    if (settings_) {
        if (const std::string notice = settings_->takeNotice(); !notice.empty())
            sendNotification(kShowNotice, std::any(notice));
    }
}

void CommonSettingsMediator::getTuning() {
    sendNotification("SetTuning");
}

void CommonSettingsMediator::setTuning(int index) {
    if (settings_)
        settings_->setTuning(index);
    sendNotification("SetChordsTuning");
    sendNotification("ReloadChords");
}

void CommonSettingsMediator::saveCommonSettings(const Dictionary& settings) {
    Dictionary saved = settings;
    if (settings_)
        settings_->completeSaved(saved);
    sendNotification("SaveCommonState", saved);
}

}  // namespace zt
