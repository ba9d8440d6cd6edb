#include "sound/MediaProxy.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

#include "framework/Log.h"
#include "sound/SoundBank.h"

namespace zt {

MediaProxy::MediaProxy(std::string displayName, SoundEngine& engine)
    : Proxy(NAME), displayName_(std::move(displayName)), engine_(engine) {}

MediaProxy::~MediaProxy() {
    stopTimer();
}

void MediaProxy::initializeProxy() {
    Proxy::initializeProxy();
    // There is no audio session to configure here: the desktop sound server
    // already mixes our effects with whatever else is playing.
    trackTime_ = 0.0f;
    isBuffersLoaded_ = false;
}

void MediaProxy::loadSoundBuffers() {
    log("BUFERS LOAD");
    engine_.defineSourceGroups(std::vector<int>(SoundBank::kGroupCount, 1));

    const bool withStrings = displayName_ != kMetronomeOnlyName;
    std::vector<SoundRequest> requests;
    for (const auto& entry : SoundBank::kEntries) {
        if (!withStrings && SoundBank::isStringSound(entry.id))
            continue;
        requests.push_back({entry.id, SoundBank::path(entry.file)});
    }
    engine_.loadBuffersAsync(std::move(requests));

    if (!loadSoundsTimer_) {
        timerLoop_ = &MainLoop::instance();
        loadSoundsTimer_ = timerLoop_->startTimer(kLoadPollInterval, true, [this] { loadState(); });
    }
}

void MediaProxy::loadState() {
    if (engine_.loadProgress() < 1.0f)
        return;
    stopTimer();
    isBuffersLoaded_ = true;
    sendNotification("LoadSoundBuffersComplete");
}

void MediaProxy::stopTimer() {
    if (!loadSoundsTimer_)
        return;
    timerLoop_->stopTimer(*loadSoundsTimer_);
    loadSoundsTimer_.reset();
    timerLoop_ = nullptr;
}

void MediaProxy::unloadSoundBuffers() {
    for (int id = 1; id <= SoundBank::kLastId; ++id)
        engine_.unloadBuffer(id);
    isBuffersLoaded_ = false;
}

void MediaProxy::playSoundByID(int soundId, int group, bool loop) {
    engine_.playSound(soundId, group, 1.0f, 0.0f, 1.0f, loop);
}

void MediaProxy::playSoundByFret(int fret, int string, bool loop) {
    const float pitch = std::pow(2.0f, static_cast<float>(fret) / 12.0f);
    char line[96];
    std::snprintf(line, sizeof line, "fret = %d, string = %d pitch = %f", fret, string,
                  static_cast<double>(pitch));
    log(line);
    engine_.playSound(SoundBank::stringSoundId(string), string + 1, pitch, 0.0f, 1.0f, loop);
}

void MediaProxy::stopSound(int group) {
    engine_.stopSourceGroup(group);
}

}  // namespace zt
