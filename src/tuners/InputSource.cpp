#include "tuners/InputSource.h"

#include "sound/CaptureDevices.h"
#include "sound/MicrophoneCapture.h"

namespace zt {

InputSource::InputSource(std::shared_ptr<AudioCapture> fixed, DeviceList devices)
    : fixed_(std::move(fixed)), devices_(devices ? std::move(devices) : capture::deviceNames) {}

std::shared_ptr<AudioCapture> InputSource::capture(const std::string& savedDevice) {
    if (fixed_)
        return fixed_;
    // Asking openal-soft for its devices wakes the sound server: only when a
    // device was chosen.
    const std::string device =
        savedDevice.empty() ? std::string() : capture::chooseDevice(savedDevice, devices_());
    if (!microphone_ || device != device_) {
        device_ = device;
        microphone_ = std::make_shared<MicrophoneCapture>(device_);
    }
    return microphone_;
}

}  // namespace zt
