#pragma once
// The microphone threshold calibration's model: the live input level, and
// the threshold (percent) handed to its detector.

#include "tuners/CalibrationProxy.h"

namespace zt {

class MicrophoneProxy : public CalibrationProxy, public VolumeReader {
public:
    static constexpr const char* NAME = "MicrophoneProxy";

    explicit MicrophoneProxy(std::shared_ptr<AudioCapture> capture = nullptr,
                             InputSource::DeviceList devices = {})
        : CalibrationProxy(NAME, std::move(capture), std::move(devices)) {}

    // The level of the newest sound, 0 to 100; -2 without a microphone, 0
    // while no session runs.
    int getMainVolume() override;
    void setTresholdPercent(int percent);
    int getTresholdPercent() const { return tresholdPercent_; }

protected:
    int sessionSensitivity() const override { return tresholdPercent_; }

private:
    int tresholdPercent_ = 50;
};

}  // namespace zt
