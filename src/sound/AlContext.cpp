#include "sound/AlContext.h"

#include <string>

#include "framework/Log.h"

namespace zt {

namespace {
std::mutex alMutex;
ALCcontext* currentContext = nullptr;  // guarded by alMutex
}  // namespace

AlContext::AlContext(int rate) {
    device_ = alcOpenDevice(nullptr);
    if (!device_) {
        warn("SoundEngine: no audio output device, sounds stay silent");
        return;
    }
    const ALCint attributes[] = {ALC_FREQUENCY, rate, 0};
    context_ = alcCreateContext(device_, attributes);
    if (!context_) {
        warn("SoundEngine: cannot create an OpenAL context, sounds stay silent");
        close();
        return;
    }

    auto guard = lock();
    if (!alIsExtensionPresent("AL_EXT_FLOAT32")) {
        warn("SoundEngine: OpenAL lacks float samples, sounds stay silent");
        guard.unlock();
        close();
        return;
    }
    ALCint frequency = 0, refresh = 0;
    alcGetIntegerv(device_, ALC_FREQUENCY, 1, &frequency);
    alcGetIntegerv(device_, ALC_REFRESH, 1, &refresh);
    if (frequency > 0 && refresh > 0)
        periodFrames_ = (frequency + refresh - 1) / refresh;
    log("SoundEngine: output on \"" + std::string(alcGetString(device_, ALC_DEVICE_SPECIFIER)) +
        "\" at " + std::to_string(frequency) + " Hz");
}

AlContext::~AlContext() {
    close();
}

std::unique_lock<std::mutex> AlContext::lock() const {
    std::unique_lock guard(alMutex);
    if (currentContext != context_) {
        alcMakeContextCurrent(context_);
        currentContext = context_;
    }
    return guard;
}

void AlContext::close() {
    if (context_) {
        std::lock_guard guard(alMutex);
        if (currentContext == context_) {
            alcMakeContextCurrent(nullptr);
            currentContext = nullptr;
        }
        alcDestroyContext(context_);
        context_ = nullptr;
    }
    if (device_) {
        alcCloseDevice(device_);
        device_ = nullptr;
    }
}

}  // namespace zt
