#pragma once
// The OpenAL output device and its context, as used by SoundEngine and its
// stream voice. OpenAL keeps one current context per process, so every call
// into OpenAL is made under one process-wide lock, taken through lock(),
// which also makes this context current.
//
// A device can go away (a USB interface unplugged, a headset gone, the sound
// server restarted): OpenAL then stops every source and plays nothing
// more. reopen() puts the default device in its place; everything made on
// the old one (buffers, sources) is gone with it, which generation() tells.

#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>

#include <atomic>
#include <mutex>
#include <string>

namespace zt {

class AlContext {
public:
    // Opens the default output device at `rate` hertz; valid() tells whether
    // it could. Float samples (AL_EXT_FLOAT32) are required.
    explicit AlContext(int rate);
    ~AlContext();
    AlContext(const AlContext&) = delete;
    AlContext& operator=(const AlContext&) = delete;

    // A device is open (it may have gone away since).
    bool valid() const { return open_.load(std::memory_order_acquire); }
    // Frames the mixer renders at a time.
    int periodFrames() const { return periodFrames_.load(std::memory_order_relaxed); }

    // Holds the OpenAL lock with this context current (when one is open).
    [[nodiscard]] std::unique_lock<std::mutex> lock() const;

    // Under lock(): whether the open device still plays. A device that
    // cannot tell counts as playing.
    bool connected() const;
    // Under lock(): changes whenever the device is replaced; OpenAL names
    // taken under another generation no longer exist.
    unsigned generation() const { return generation_; }

    // Opens the default device afresh and, when it plays, puts it in place
    // of the current one. Returns the OpenAL lock held with the new context
    // current, or an unheld lock (and the old device kept) when no device
    // could be opened. Never call it under lock().
    [[nodiscard]] std::unique_lock<std::mutex> reopen();

    // The name the open device goes by.
    std::string deviceName() const;

private:
    struct Output {
        ALCdevice* device = nullptr;
        ALCcontext* context = nullptr;
        int periodFrames = 0;
    };
    // Opens the default device with a context; an empty Output when it cannot.
    Output open() const;
    // Under the lock: makes `output` the one in use, closing the old one.
    void install(const Output& output);
    static void close(Output& output);

    const int rate_;
    ALCdevice* device_ = nullptr;    // guarded by the OpenAL lock
    ALCcontext* context_ = nullptr;  // guarded by the OpenAL lock
    unsigned generation_ = 0;        // guarded by the OpenAL lock
    bool canTellConnected_ = false;  // guarded by the OpenAL lock
    std::atomic<bool> open_{false};
    std::atomic<int> periodFrames_{1024};
};

}  // namespace zt
