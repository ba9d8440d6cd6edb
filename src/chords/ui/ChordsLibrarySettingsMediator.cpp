#include "chords/ui/ChordsLibrarySettingsMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "tunings/SettingsProxy.h"

namespace zt {

void ChordsLibrarySettingsMediator::registered() {
    settings_ = facade().retrieveProxyAs<SettingsProxy>(SettingsProxy::NAME);
    if (!settings_)
        log("ChordsLibrarySettingsMediator: SettingsProxy is not registered");
}

void ChordsLibrarySettingsMediator::saveChordsLibrarySettings(const Dictionary& settings) {
    sendNotification("SaveChordsLibraryState", settings);
}

void ChordsLibrarySettingsMediator::chooseChordsOptions(int row) {
    if (row == 2)
        sendNotification("ShowChordsTuning");
}

std::string ChordsLibrarySettingsMediator::getTuningName() const {
    return settings_ ? settings_->getTuningName() : std::string();
}

}  // namespace zt
