#pragma once
// Connects the microphone sensitivity screen to its proxy (MicrophoneProxy),
// the frequency commands and the saved state.

#include <memory>

#include "screen/ScreenMediator.h"
#include "tuners/ui/MicrophoneCalibrating.h"
#include "tuners/ui/MicrophoneCalibratingDelegate.h"

namespace zt {

class MediaProxy;
class MicrophoneProxy;

class MicrophoneCalibratingMediator
    : public ScreenMediator<MicrophoneCalibrating, MicrophoneCalibratingDelegate> {
public:
    static constexpr const char* NAME = "MicrophoneMediator";

    explicit MicrophoneCalibratingMediator(MicrophoneCalibrating* screen)
        : ScreenMediator(NAME, screen) {}

    std::vector<std::string> listNotificationInterests() const override;
    void handleNotification(const Notification& notification) override;

    void setMicrophoneSavedData() override;
    void saveChromaticTunerSettings(const Dictionary& settings) override;
    void setTresholdDelegate(int percent) override;
    void setTaperDelegate(int mode) override;
    void getVolumeLevel() override;
    void startAudioSession() override;
    void stopAudioSession() override;

protected:
    void registered() override;

private:
    std::shared_ptr<MicrophoneProxy> proxy_;
    std::shared_ptr<MediaProxy> media_;
};

}  // namespace zt
