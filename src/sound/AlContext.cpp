#include "sound/AlContext.h"

#include <AL/efx.h>

#include "framework/Log.h"
#include "sound/OpenAlSettings.h"

namespace zt {

namespace {
std::mutex alMutex;
ALCcontext* currentContext = nullptr;  // guarded by alMutex

// Under alMutex.
void makeCurrent(ALCcontext* context) {
    if (currentContext != context) {
        alcMakeContextCurrent(context);
        currentContext = context;
    }
}
}  // namespace

AlContext::AlContext(int rate) : rate_(rate) {
    Output output = open();
    if (!output.device) {
        warn("SoundEngine: no audio output device, sounds stay silent");
        return;
    }
    std::lock_guard guard(alMutex);
    install(output);
}

AlContext::~AlContext() {
    std::lock_guard guard(alMutex);
    install(Output{});
}

AlContext::Output AlContext::open() const {
    Output output;
    applyOpenAlSettings();
    output.device = alcOpenDevice(nullptr);
    if (!output.device)
        return {};
    // No effect sends: nothing here uses effects, and each send costs every
    // one of openal-soft's voices memory of its own (about 1 MB in all).
    const ALCint attributes[] = {ALC_FREQUENCY, rate_, ALC_MAX_AUXILIARY_SENDS, 0, 0};
    output.context = alcCreateContext(output.device, attributes);
    if (!output.context) {
        warn("SoundEngine: cannot create an OpenAL context, sounds stay silent");
        close(output);
        return {};
    }
    std::lock_guard guard(alMutex);
    makeCurrent(output.context);
    if (!alIsExtensionPresent("AL_EXT_FLOAT32")) {
        warn("SoundEngine: OpenAL lacks float samples, sounds stay silent");
        close(output);
        return {};
    }
    ALCint frequency = 0, refresh = 0;
    alcGetIntegerv(output.device, ALC_FREQUENCY, 1, &frequency);
    alcGetIntegerv(output.device, ALC_REFRESH, 1, &refresh);
    output.periodFrames = frequency > 0 && refresh > 0 ? (frequency + refresh - 1) / refresh : 1024;
    log("SoundEngine: output on \"" +
        std::string(alcGetString(output.device, ALC_DEVICE_SPECIFIER)) + "\" at " +
        std::to_string(frequency) + " Hz");
    return output;
}

void AlContext::close(Output& output) {
    if (output.context) {
        if (currentContext == output.context) {
            alcMakeContextCurrent(nullptr);
            currentContext = nullptr;
        }
        alcDestroyContext(output.context);
    }
    if (output.device)
        alcCloseDevice(output.device);
    output = {};
}

void AlContext::install(const Output& output) {
    Output old{device_, context_, 0};
    close(old);
    device_ = output.device;
    context_ = output.context;
    ++generation_;
    canTellConnected_ = device_ && alcIsExtensionPresent(device_, "ALC_EXT_disconnect");
    if (output.periodFrames > 0)
        periodFrames_.store(output.periodFrames, std::memory_order_relaxed);
    open_.store(context_ != nullptr, std::memory_order_release);
    makeCurrent(context_);
}

std::unique_lock<std::mutex> AlContext::lock() const {
    std::unique_lock guard(alMutex);
    if (context_)
        makeCurrent(context_);
    return guard;
}

bool AlContext::connected() const {
    if (!device_)
        return false;
    if (!canTellConnected_)
        return true;
    ALCint connected = ALC_TRUE;
    alcGetIntegerv(device_, ALC_CONNECTED, 1, &connected);
    return connected != ALC_FALSE;
}

std::unique_lock<std::mutex> AlContext::reopen() {
    // Opening talks to the sound server and may take a while: the lock is
    // only taken to swap the devices, so playing threads never wait on it.
    Output output = open();
    if (!output.device)
        return {};
    std::unique_lock guard(alMutex);
    install(output);
    return guard;
}

std::string AlContext::deviceName() const {
    std::lock_guard guard(alMutex);
    const ALCchar* name = device_ ? alcGetString(device_, ALC_DEVICE_SPECIFIER) : nullptr;
    return name ? name : "";
}

}  // namespace zt
