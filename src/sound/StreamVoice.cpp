#include "sound/StreamVoice.h"

#include <algorithm>
#include <chrono>

#include "framework/Log.h"

namespace zt {

StreamVoice::StreamVoice(const AlContext& al, StreamRenderer& renderer, int rate)
    : al_(al), renderer_(renderer), rate_(rate), block_(kBlockFrames) {
    const int blocks = std::max(4, (2 * al.periodFrames() + kBlockFrames - 1) / kBlockFrames);
    buffers_.resize(static_cast<size_t>(blocks));

    auto alLock = al_.lock();
    alGetError();
    alGenSources(1, &source_);
    if (alGetError() != AL_NO_ERROR) {
        source_ = 0;
        log("SoundEngine: no source left for the stream");
        return;
    }
    alGenBuffers(blocks, buffers_.data());
    if (alGetError() != AL_NO_ERROR) {
        alDeleteSources(1, &source_);
        source_ = 0;
        log("SoundEngine: no buffers left for the stream");
        return;
    }
    alSourcei(source_, AL_SOURCE_RELATIVE, AL_TRUE);
    alSource3f(source_, AL_POSITION, 0.0f, 0.0f, 0.0f);
    alSourcef(source_, AL_ROLLOFF_FACTOR, 0.0f);
    thread_ = std::thread(&StreamVoice::run, this);
}

StreamVoice::~StreamVoice() {
    if (thread_.joinable()) {
        {
            std::lock_guard guard(stopMutex_);
            stopRequested_ = true;
        }
        stopWake_.notify_all();
        thread_.join();
    }
    if (source_ == 0)
        return;
    auto alLock = al_.lock();
    alSourceStop(source_);
    alSourcei(source_, AL_BUFFER, 0);
    alDeleteSources(1, &source_);
    alDeleteBuffers(static_cast<ALsizei>(buffers_.size()), buffers_.data());
}

std::int64_t StreamVoice::position() const {
    if (source_ == 0)
        return 0;
    auto alLock = al_.lock();
    ALint offset = 0;
    alGetSourcei(source_, AL_SAMPLE_OFFSET, &offset);
    return retired_.load() + offset;
}

void StreamVoice::render(ALuint buffer, std::unique_lock<std::mutex>& alLock) {
    // The renderer runs without the OpenAL lock so that other threads can
    // play sounds meanwhile.
    alLock.unlock();
    renderer_.render(block_.data(), kBlockFrames, nextFrame_);
    nextFrame_ += kBlockFrames;
    alLock.lock();
    alBufferData(buffer, AL_FORMAT_MONO_FLOAT32, block_.data(),
                 static_cast<ALsizei>(block_.size() * sizeof(float)), rate_);
    alSourceQueueBuffers(source_, 1, &buffer);
}

void StreamVoice::run() {
    // Half a block between looks at the queue keeps it full without spinning.
    const auto pause = std::chrono::microseconds(1'000'000LL * kBlockFrames / 2 / rate_);
    {
        auto alLock = al_.lock();
        for (ALuint buffer : buffers_)
            render(buffer, alLock);
        alSourcePlay(source_);
    }
    std::unique_lock stopLock(stopMutex_);
    while (!stopRequested_) {
        stopLock.unlock();
        {
            auto alLock = al_.lock();
            // Refill what has been played, counted once: a source stopped by
            // an underrun counts every queued buffer as played, even one
            // queued again just now, so asking again would never end.
            ALint processed = 0;
            alGetSourcei(source_, AL_BUFFERS_PROCESSED, &processed);
            for (ALint i = 0; i < processed; ++i) {
                ALuint buffer = 0;
                alSourceUnqueueBuffers(source_, 1, &buffer);
                retired_ += kBlockFrames;
                render(buffer, alLock);
            }
            // After an underrun the source has stopped; the refilled queue restarts it.
            ALint state = 0;
            alGetSourcei(source_, AL_SOURCE_STATE, &state);
            if (state != AL_PLAYING) {
                underruns_.fetch_add(1, std::memory_order_relaxed);
                alSourcePlay(source_);
            }
        }
        stopLock.lock();
        stopWake_.wait_for(stopLock, pause, [this] { return stopRequested_; });
    }
}

}  // namespace zt
