#include "tuners/CommonSettingsMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "tuners/SettingsProxy.h"

namespace zt {

CommonSettingsMediator::CommonSettingsMediator(CommonSettings* screen)
    : Mediator(NAME, screen), screen_(screen) {}

std::vector<std::string> CommonSettingsMediator::listNotificationInterests() const {
    return {"StateCommonData", "SetTuning"};
}

void CommonSettingsMediator::handleNotification(const Notification& notification) {
    if (notification.name() == "SetTuning" && screen_ && settings_) {
        screen_->setTuningSetting(settings_->tuningSound());
    }
}

void CommonSettingsMediator::onRegister() {
    settings_ = facade().retrieveProxyAs<SettingsProxy>(SettingsProxy::NAME);
    if (!settings_)
        log("CommonSettingsMediator: SettingsProxy is not registered");
    if (!screen_)
        return;
    screen_->setDelegate(this);
    if (settings_)
        screen_->setTuningArray(settings_->getNotesStand());
}

void CommonSettingsMediator::onRemove() {
    if (screen_ && screen_->delegate() == this)
        screen_->setDelegate(nullptr);
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
    sendNotification("SaveCommonState", settings);
}

}  // namespace zt
