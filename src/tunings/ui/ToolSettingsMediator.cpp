#include "tunings/ui/ToolSettingsMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "state/StateKeys.h"
#include "tunings/SettingsProxy.h"

namespace zt {

void ToolSettingsMediator::registered() {
    settings_ = facade().retrieveProxyAs<SettingsProxy>(SettingsProxy::NAME);
    if (!settings_)
        log(mediatorName() + ": SettingsProxy is not registered");
    if (screen())
        screen()->showLeftHanded(isLeftHanded());
}

void ToolSettingsMediator::saveSettings(const Dictionary& settings) {
    sendNotification(save_, settings);
}

void ToolSettingsMediator::chooseOptions(int row) {
    if (row == 2)
        sendNotification(showTunings_);
}

std::string ToolSettingsMediator::getTuningName() const {
    return settings_ ? settings_->getTuningName() : std::string();
}

bool ToolSettingsMediator::isLeftHanded() const {
    return settings_ && settings_->leftHanded();
}

void ToolSettingsMediator::setLeftHanded(bool on) {
    if (!settings_)
        return;
    settings_->setLeftHanded(on);
    sendNotification("SaveCommonState", Dictionary{{state::common::kLeftHanded.name, on}});
    sendNotification(kLeftHandedChanged);
}

std::vector<std::string> ToolSettingsMediator::listNotificationInterests() const {
    return {kLeftHandedChanged};
}

void ToolSettingsMediator::handleNotification(const Notification& notification) {
    if (notification.name() == kLeftHandedChanged && screen())
        screen()->showLeftHanded(isLeftHanded());
}

}  // namespace zt
