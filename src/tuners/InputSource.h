#pragma once
// Where a tuner proxy's sound comes from: a capture given once (a sound
// file, a test's feed), or the microphone on the device saved as
// "InputDevice". A saved device that is no longer there gives the system's
// default device, with a log line; the microphone is made anew only when the
// device changes.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dsp/AudioCapture.h"

namespace zt {

class InputSource {
public:
    using DeviceList = std::function<std::vector<std::string>()>;

    // fixed: the capture to use whatever is saved; nullptr for the
    // microphone. devices: the capture devices there are (openal-soft's list
    // unless a test gives its own).
    explicit InputSource(std::shared_ptr<AudioCapture> fixed = nullptr, DeviceList devices = {});

    // The capture for the saved device name (empty: the default).
    std::shared_ptr<AudioCapture> capture(const std::string& savedDevice);
    // The device the microphone opens; empty for the default.
    const std::string& deviceName() const { return device_; }

private:
    std::shared_ptr<AudioCapture> fixed_;
    std::shared_ptr<AudioCapture> microphone_;
    std::string device_;
    DeviceList devices_;
};

}  // namespace zt
