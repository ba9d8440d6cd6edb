#include "sound/MicrophoneCapture.h"

#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>

#include <array>
#include <chrono>
#include <cstdint>

#include "framework/Log.h"
#include "sound/OpenAlSettings.h"

namespace zt {

namespace {
constexpr std::chrono::milliseconds kPoll{10};
constexpr std::size_t kPiece = 800;

ALCdevice* alDevice(void* device) {
    return static_cast<ALCdevice*>(device);
}
}  // namespace

MicrophoneCapture::~MicrophoneCapture() {
    stop();
}

bool MicrophoneCapture::start(CaptureSink& sink, int rate) {
    stop();
    applyOpenAlSettings();
    // A quarter of a second of room, twenty-five reads of the thread. The
    // room sets how the sound server hands the sound over: with a whole
    // second, PulseAudio starts only after 1.4 s.
    ALCdevice* device =
        alcCaptureOpenDevice(deviceName_.empty() ? nullptr : deviceName_.c_str(),
                             static_cast<ALCuint>(rate), AL_FORMAT_MONO16, rate / 4);
    if (!device) {
        log("MicrophoneCapture: no capture device can be opened" +
            (deviceName_.empty() ? std::string() : " (\"" + deviceName_ + "\")"));
        return false;
    }
    log(std::string("MicrophoneCapture: capturing from \"") +
        alcGetString(device, ALC_CAPTURE_DEVICE_SPECIFIER) + "\" at " + std::to_string(rate) +
        " Hz");
    device_ = device;
    alcCaptureStart(device);
    quit_ = false;
    state_.store(State::Running, std::memory_order_release);
    thread_ = std::thread([this, &sink] { run(sink); });
    return true;
}

void MicrophoneCapture::stop() {
    if (thread_.joinable()) {
        {
            std::lock_guard lock(mutex_);
            quit_ = true;
        }
        wake_.notify_all();
        thread_.join();
    }
    if (device_) {
        alcCaptureStop(alDevice(device_));
        alcCaptureCloseDevice(alDevice(device_));
        device_ = nullptr;
    }
    state_.store(State::Stopped, std::memory_order_release);
}

void MicrophoneCapture::run(CaptureSink& sink) {
    ALCdevice* device = alDevice(device_);
    const bool canTellLoss = alcIsExtensionPresent(device, "ALC_EXT_disconnect");
    std::array<std::int16_t, kPiece> piece{};
    std::unique_lock lock(mutex_);
    while (!quit_) {
        lock.unlock();
        ALCint connected = ALC_TRUE;
        if (canTellLoss)
            alcGetIntegerv(device, ALC_CONNECTED, 1, &connected);
        if (!connected) {
            log("MicrophoneCapture: the capture device went away");
            state_.store(State::Lost, std::memory_order_release);
            return;
        }
        ALCint available = 0;
        alcGetIntegerv(device, ALC_CAPTURE_SAMPLES, 1, &available);
        while (available > 0) {
            const auto count = std::min<std::size_t>(static_cast<std::size_t>(available), kPiece);
            alcCaptureSamples(device, piece.data(), static_cast<ALCsizei>(count));
            sink.captured(piece.data(), count);
            available -= static_cast<ALCint>(count);
        }
        lock.lock();
        wake_.wait_for(lock, kPoll, [this] { return quit_; });
    }
}

}  // namespace zt
