#include "sound/SoundEngine.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <type_traits>

#include "framework/Log.h"
#include "sound/AlContext.h"
#include "sound/SoundDecoder.h"
#include "sound/StreamVoice.h"

namespace zt {

static_assert(std::is_same_v<ALuint, unsigned int>);

SoundEngine::SoundEngine() : al_(std::make_unique<AlContext>(kSampleRate)) {
    if (al_->valid())
        watcher_ = std::thread(&SoundEngine::watchLoop, this);
}

SoundEngine::~SoundEngine() {
    stopWatching();
    {
        std::lock_guard guard(streamMutex_);
        streams_.clear();
    }
    {
        std::lock_guard guard(loadMutex_);
        quitting_ = true;
    }
    loadWake_.notify_all();
    if (loader_.joinable())
        loader_.join();
    if (!al_->valid())
        return;

    auto alLock = al_->lock();
    deleteGroups();
    for (auto& [id, sound] : sounds_)
        dropBuffer(sound);
    sounds_.clear();
}

SoundEngine& SoundEngine::shared() {
    static SoundEngine engine;
    return engine;
}

bool SoundEngine::hasDevice() const {
    return al_->valid();
}

void SoundEngine::defineSourceGroups(const std::vector<int>& sizes) {
    if (!al_->valid())
        return;
    auto alLock = al_->lock();
    deleteGroups();
    groupSizes_ = sizes;
    makeGroups(sizes);
}

void SoundEngine::makeGroups(const std::vector<int>& sizes) {
    alGetError();
    for (int size : sizes) {
        Group group;
        for (int i = 0; i < size; ++i) {
            ALuint source = 0;
            alGenSources(1, &source);
            if (alGetError() != AL_NO_ERROR) {
                log("SoundEngine: no source left for group " + std::to_string(groups_.size()));
                break;
            }
            // Sources sit on the listener, moved sideways only to pan.
            alSourcei(source, AL_SOURCE_RELATIVE, AL_TRUE);
            alSourcef(source, AL_ROLLOFF_FACTOR, 0.0f);
            group.sources.push_back(source);
        }
        groups_.push_back(std::move(group));
    }
}

void SoundEngine::deleteGroups() {
    for (auto& group : groups_) {
        for (ALuint source : group.sources) {
            alSourceStop(source);
            alDeleteSources(1, &source);
        }
    }
    groups_.clear();
}

void SoundEngine::loadBuffersAsync(std::vector<SoundRequest> requests) {
    if (!al_->valid() || requests.empty())
        return;
    {
        std::lock_guard guard(loadMutex_);
        if (completed_ == requested_)
            requested_ = completed_ = 0;
        requested_ += static_cast<int>(requests.size());
        for (auto& request : requests)
            pending_.push_back(std::move(request));
        if (!loader_.joinable())
            loader_ = std::thread(&SoundEngine::loadLoop, this);
    }
    loadWake_.notify_all();
}

float SoundEngine::loadProgress() const {
    std::lock_guard guard(loadMutex_);
    if (completed_ >= requested_)
        return 1.0f;
    return static_cast<float>(completed_) / static_cast<float>(requested_);
}

void SoundEngine::loadLoop() {
    std::unique_lock guard(loadMutex_);
    for (;;) {
        loadWake_.wait(guard, [this] { return quitting_ || !pending_.empty(); });
        if (quitting_)
            return;
        SoundRequest request = std::move(pending_.front());
        pending_.pop_front();
        guard.unlock();
        load(request);
        guard.lock();
        ++completed_;
    }
}

void SoundEngine::load(const SoundRequest& request) {
    std::string error;
    auto samples = SoundDecoder(kSampleRate).decode(request.path, error);
    if (!samples) {
        log("SoundEngine: sound " + std::to_string(request.id) + " stays silent, cannot read " +
            request.path.string() + ": " + error);
        return;
    }

    auto alLock = al_->lock();
    Sound& sound = sounds_[request.id];
    dropBuffer(sound);
    sound.samples = std::make_unique<std::vector<float>>(std::move(*samples));
}

bool SoundEngine::makeBuffer(int soundId, Sound& sound) {
    if (sound.buffer != 0)
        return true;
    alGetError();
    alGenBuffers(1, &sound.buffer);
    if (alGetError() == AL_NO_ERROR) {
        alBufferData(sound.buffer, AL_FORMAT_MONO_FLOAT32, sound.samples->data(),
                     static_cast<ALsizei>(sound.samples->size() * sizeof(float)), kSampleRate);
        if (alGetError() == AL_NO_ERROR)
            return true;
        alDeleteBuffers(1, &sound.buffer);
    }
    sound.buffer = 0;
    log("SoundEngine: sound " + std::to_string(soundId) + " stays silent, OpenAL refused it");
    return false;
}

void SoundEngine::dropBuffer(Sound& sound) {
    if (sound.buffer == 0)
        return;
    detach(sound.buffer);
    alDeleteBuffers(1, &sound.buffer);
    sound.buffer = 0;
}

void SoundEngine::detach(ALuint buffer) {
    for (auto& group : groups_) {
        for (ALuint source : group.sources) {
            ALint bound = 0;
            alGetSourcei(source, AL_BUFFER, &bound);
            if (static_cast<ALuint>(bound) != buffer)
                continue;
            alSourceStop(source);
            alSourcei(source, AL_BUFFER, 0);
        }
    }
}

bool SoundEngine::playSound(int soundId, int group, float pitch, float pan, float gain, bool loop) {
    if (!al_->valid())
        return false;
    auto alLock = al_->lock();
    if (group < 0 || group >= static_cast<int>(groups_.size()))
        return false;
    Group& voices = groups_[static_cast<size_t>(group)];
    if (voices.sources.empty())
        return false;
    const ALuint source = voices.sources[voices.next];
    voices.next = (voices.next + 1) % voices.sources.size();

    alSourceStop(source);
    const auto sound = sounds_.find(soundId);
    if (sound == sounds_.end() || !makeBuffer(soundId, sound->second)) {
        alSourcei(source, AL_BUFFER, 0);
        return false;
    }
    alSourcei(source, AL_BUFFER, static_cast<ALint>(sound->second.buffer));
    alSourcef(source, AL_PITCH, std::max(pitch, 1e-3f));
    // A point on the unit circle in front of the listener: -1 hard left,
    // 0 ahead, +1 hard right, at the reference distance (no attenuation).
    const float x = std::clamp(pan, -1.0f, 1.0f);
    alSource3f(source, AL_POSITION, x, 0.0f, -std::sqrt(1.0f - x * x));
    alSourcef(source, AL_GAIN, std::max(gain, 0.0f));
    alSourcei(source, AL_LOOPING, loop ? AL_TRUE : AL_FALSE);
    alSourcePlay(source);
    return true;
}

void SoundEngine::stopSourceGroup(int group) {
    if (!al_->valid())
        return;
    auto alLock = al_->lock();
    if (group < 0 || group >= static_cast<int>(groups_.size()))
        return;
    for (ALuint source : groups_[static_cast<size_t>(group)].sources)
        alSourceStop(source);
}

void SoundEngine::unloadBuffer(int soundId) {
    if (!al_->valid())
        return;
    auto alLock = al_->lock();
    const auto sound = sounds_.find(soundId);
    if (sound == sounds_.end())
        return;
    dropBuffer(sound->second);
    sounds_.erase(sound);
}

bool SoundEngine::startStream(StreamRenderer* renderer) {
    if (!al_->valid() || !renderer)
        return false;
    std::lock_guard guard(streamMutex_);
    streams_.erase(renderer);
    auto voice = std::make_unique<StreamVoice>(*al_, *renderer, kSampleRate);
    if (!voice->valid())
        return false;
    streams_.emplace(renderer, std::move(voice));
    return true;
}

void SoundEngine::stopStream(const StreamRenderer* renderer) {
    std::lock_guard guard(streamMutex_);
    streams_.erase(renderer);
}

std::int64_t SoundEngine::streamPosition(const StreamRenderer* renderer) const {
    std::lock_guard guard(streamMutex_);
    const auto stream = streams_.find(renderer);
    return stream == streams_.end() ? 0 : stream->second->position();
}

int SoundEngine::streamUnderruns() const {
    std::lock_guard guard(streamMutex_);
    int underruns = 0;
    for (const auto& [renderer, voice] : streams_)
        underruns += voice->underruns();
    return underruns;
}

const std::vector<float>* SoundEngine::decodedSamples(int soundId) const {
    if (!al_->valid())
        return nullptr;
    auto alLock = al_->lock();
    const auto sound = sounds_.find(soundId);
    return sound == sounds_.end() ? nullptr : sound->second.samples.get();
}

}  // namespace zt
