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
        screen()->setTuningList(settings_->tunings());
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

namespace zt {

std::string CommonSettingsMediator::storeCustomTuning(int index, const std::string& name,
                                                      const std::string& typed) {
    if (!settings_)
        return "Tunings cannot be changed now.";
    std::string wrong = settings_->storeCustomTuning(index, name, typed);
    if (wrong.empty())
        customChanged();
    return wrong;
}

bool CommonSettingsMediator::removeCustomTuning(int index) {
    if (!settings_ || !settings_->removeCustomTuning(index))
        return false;
    customChanged();
    return true;
}

void CommonSettingsMediator::customChanged() {
    if (screen())
        screen()->setTuningList(settings_->tunings());
    sendNotification("SetTuning");
    sendNotification("SetChordsTuning");
    sendNotification("ReloadChords");
    saveCommonSettings(Dictionary{{"Tuning", settings_->tuningSound()}});
}

}  // namespace zt
