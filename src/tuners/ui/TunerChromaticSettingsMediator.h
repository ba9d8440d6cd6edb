#pragma once
// Connects the chromatic tuner's settings screen to the saved state, the
// tunings (SettingsProxy), the capture devices and the screens its rows
// open.

#include <memory>

#include "screen/ScreenMediator.h"
#include "tuners/ui/TunerChromaticSettings.h"
#include "tuners/ui/TunerChromaticSettingsDelegate.h"

namespace zt {

class SettingsProxy;

class TunerChromaticSettingsMediator
    : public ScreenMediator<TunerChromaticSettings, TunerChromaticSettingsDelegate> {
public:
    static constexpr const char* NAME = "TunerChromaticSettingsMediator";
    using DeviceList = std::vector<std::string> (*)();

    // devices: the capture devices there are (openal-soft's unless given).
    explicit TunerChromaticSettingsMediator(TunerChromaticSettings* screen,
                                            DeviceList devices = nullptr);

    std::vector<std::string> listNotificationInterests() const override;
    // "StateChromaticSettingsData": the screen's setSavedData.
    void handleNotification(const Notification& notification) override;

    // Sends "GetChromaticTunerSavedData" with this mediator as body, then
    // hands the screen our own keys of the section and the devices.
    void setChromaticTunerSavedData() override;
    void saveChromaticTunerSettings(const Dictionary& settings) override;
    // 3 "ShowTunerChromaticTuning", 4 "ShowTunerChromaticTaper",
    // 5 "ShowMicrophoneCalibrating", 6 "ShowOrchestra".
    void chooseChromaticOptions(int row) override;
    std::string getTuningName() const override;
    std::vector<std::string> inputDevices() const override;

protected:
    void registered() override;

private:
    std::shared_ptr<SettingsProxy> settings_;
    DeviceList devices_;
};

}  // namespace zt
