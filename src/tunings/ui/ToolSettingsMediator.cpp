#include "tunings/ui/ToolSettingsMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "tunings/SettingsProxy.h"

namespace zt {

void ToolSettingsMediator::registered() {
    settings_ = facade().retrieveProxyAs<SettingsProxy>(SettingsProxy::NAME);
    if (!settings_)
        log(mediatorName() + ": SettingsProxy is not registered");
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

}  // namespace zt
