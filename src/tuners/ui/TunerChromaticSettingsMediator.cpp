#include "tuners/ui/TunerChromaticSettingsMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "sound/CaptureDevices.h"
#include "state/StateProxy.h"
#include "tunings/SettingsProxy.h"

namespace zt {

TunerChromaticSettingsMediator::TunerChromaticSettingsMediator(TunerChromaticSettings* screen,
                                                               DeviceList devices)
    : ScreenMediator(NAME, screen), devices_(devices ? devices : capture::deviceNames) {}

std::vector<std::string> TunerChromaticSettingsMediator::listNotificationInterests() const {
    return {"StateChromaticSettingsData"};
}

void TunerChromaticSettingsMediator::handleNotification(const Notification& notification) {
    const auto* data = notification.bodyAs<Dictionary>();
    if (data && screen())
        screen()->setSavedData(*data);
}

void TunerChromaticSettingsMediator::registered() {
    settings_ = facade().retrieveProxyAs<SettingsProxy>(SettingsProxy::NAME);
    if (!settings_)
        log("TunerChromaticSettingsMediator: SettingsProxy is not registered");
}

void TunerChromaticSettingsMediator::setChromaticTunerSavedData() {
    sendNotification("GetChromaticTunerSavedData", static_cast<Notifier*>(this));
    // The answer carries only the two switches; the entries' values and our
    // own keys come from the section itself.
    Dictionary section;
    if (auto state = facade().retrieveProxyAs<StateProxy>(StateProxy::NAME))
        section = state->getChromaticTunerData().value_or(Dictionary{});
    if (screen())
        screen()->setSectionData(section, inputDevices());
}

void TunerChromaticSettingsMediator::saveChromaticTunerSettings(const Dictionary& settings) {
    sendNotification("SaveChromaticTunerState", settings);
}

void TunerChromaticSettingsMediator::chooseChromaticOptions(int row) {
    log("option = " + std::to_string(row));
    static constexpr const char* kRoutes[] = {"ShowTunerChromaticTuning", "ShowTunerChromaticTaper",
                                              "ShowMicrophoneCalibrating", "ShowOrchestra"};
    if (row >= 3 && row <= 6)
        sendNotification(kRoutes[row - 3]);
}

std::string TunerChromaticSettingsMediator::getTuningName() const {
    return settings_ ? settings_->getTuningName() : std::string();
}

std::vector<std::string> TunerChromaticSettingsMediator::inputDevices() const {
    return devices_();
}

}  // namespace zt
