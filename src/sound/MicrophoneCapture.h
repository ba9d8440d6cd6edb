#pragma once
// The microphone through openal-soft's capture API: 16-bit mono at the rate
// asked for, read on a thread of its own every 10 ms and handed to the sink
// in pieces of up to 800 samples. A device that goes away while capturing
// (unplugged, its sound server gone) ends the capture cleanly in state Lost;
// the next start() opens a device anew.

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

#include "dsp/AudioCapture.h"

namespace zt {

class MicrophoneCapture final : public AudioCapture {
public:
    // deviceName: one of capture::deviceNames(); empty for the system's default.
    explicit MicrophoneCapture(std::string deviceName = {}) : deviceName_(std::move(deviceName)) {}
    ~MicrophoneCapture() override;
    MicrophoneCapture(const MicrophoneCapture&) = delete;
    MicrophoneCapture& operator=(const MicrophoneCapture&) = delete;

    bool start(CaptureSink& sink, int rate) override;
    void stop() override;
    State state() const override { return state_.load(std::memory_order_acquire); }
    const std::string& deviceName() const { return deviceName_; }

private:
    void run(CaptureSink& sink);

    std::string deviceName_;
    void* device_ = nullptr;  // ALCdevice, kept out of this header
    std::thread thread_;
    std::mutex mutex_;
    std::condition_variable wake_;
    bool quit_ = false;
    std::atomic<State> state_{State::Stopped};
};

}  // namespace zt
