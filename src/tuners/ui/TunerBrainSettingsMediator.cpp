#include "tuners/ui/TunerBrainSettingsMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "tunings/SettingsProxy.h"

namespace zt {

void TunerBrainSettingsMediator::registered() {
    settings_ = facade().retrieveProxyAs<SettingsProxy>(SettingsProxy::NAME);
    if (!settings_)
        log("TunerBrainSettingsMediator: SettingsProxy is not registered");
}

void TunerBrainSettingsMediator::saveBrainTunerSettings(const Dictionary& settings) {
    sendNotification("SaveBrainTunerState", settings);
}

void TunerBrainSettingsMediator::chooseBrainOptions(int row) {
    if (row == 2)
        sendNotification("ShowTunerBrainTuning");
}

std::string TunerBrainSettingsMediator::getTuningName() const {
    return settings_ ? settings_->getTuningName() : std::string();
}

}  // namespace zt
