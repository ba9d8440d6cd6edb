#pragma once
// The OpenAL output device and its context, as used by SoundEngine and its
// stream voice. OpenAL keeps one current context per process, so every call
// into OpenAL is made under one process-wide lock, taken through lock(),
// which also makes this context current.

#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>

#include <mutex>

namespace zt {

class AlContext {
public:
    // Opens the default output device at `rate` hertz; valid() tells whether
    // it could. Float samples (AL_EXT_FLOAT32) are required.
    explicit AlContext(int rate);
    ~AlContext();
    AlContext(const AlContext&) = delete;
    AlContext& operator=(const AlContext&) = delete;

    bool valid() const { return context_ != nullptr; }
    // Frames the mixer renders at a time.
    int periodFrames() const { return periodFrames_; }

    // Holds the OpenAL lock with this context current. Only on a valid context.
    [[nodiscard]] std::unique_lock<std::mutex> lock() const;

private:
    void close();

    ALCdevice* device_ = nullptr;
    ALCcontext* context_ = nullptr;
    int periodFrames_ = 1024;
};

}  // namespace zt
