#include "sound/StreamVoice.h"

#include <algorithm>

#include "framework/Log.h"

namespace zt {

StreamVoice::StreamVoice(const AlContext& al, StreamRenderer& renderer, int rate)
    : al_(al), renderer_(renderer), rate_(rate), block_(kBlockFrames) {
    const int blocks = std::max(4, (2 * al.periodFrames() + kBlockFrames - 1) / kBlockFrames);
    buffers_.resize(static_cast<size_t>(blocks));
    {
        auto alLock = al_.lock();
        if (!attach(alLock))
            return;
    }
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
    auto alLock = al_.lock();
    if (!attached_ || generation_ != al_.generation())
        return;
    alSourceStop(source_);
    alSourcei(source_, AL_BUFFER, 0);
    alDeleteSources(1, &source_);
    alDeleteBuffers(static_cast<ALsizei>(buffers_.size()), buffers_.data());
}

bool StreamVoice::attach(std::unique_lock<std::mutex>& alLock) {
    attached_ = false;
    generation_ = al_.generation();
    alGetError();
    alGenSources(1, &source_);
    if (alGetError() != AL_NO_ERROR) {
        log("SoundEngine: no source left for the stream");
        return false;
    }
    alGenBuffers(static_cast<ALsizei>(buffers_.size()), buffers_.data());
    if (alGetError() != AL_NO_ERROR) {
        alDeleteSources(1, &source_);
        log("SoundEngine: no buffers left for the stream");
        return false;
    }
    alSourcei(source_, AL_SOURCE_RELATIVE, AL_TRUE);
    alSource3f(source_, AL_POSITION, 0.0f, 0.0f, 0.0f);
    alSourcef(source_, AL_ROLLOFF_FACTOR, 0.0f);
    attached_ = true;
    // The new queue starts where the stream has got to.
    retired_ = nextFrame_;
    for (ALuint buffer : buffers_) {
        if (!render(buffer, alLock))
            return true;  // the next look sees the newer device
    }
    alSourcePlay(source_);
    return true;
}

std::int64_t StreamVoice::position() const {
    auto alLock = al_.lock();
    if (lost_ || !attached_ || generation_ != al_.generation())
        return retired_.load();
    ALint offset = 0;
    alGetSourcei(source_, AL_SAMPLE_OFFSET, &offset);
    return retired_.load() + offset;
}

void StreamVoice::renderBlock(std::unique_lock<std::mutex>& alLock) {
    // The renderer runs without the OpenAL lock so that other threads can
    // play sounds meanwhile.
    alLock.unlock();
    renderer_.render(block_.data(), kBlockFrames, nextFrame_);
    nextFrame_ += kBlockFrames;
    alLock.lock();
}

bool StreamVoice::render(ALuint buffer, std::unique_lock<std::mutex>& alLock) {
    renderBlock(alLock);
    // The device may have been replaced meanwhile; its names are not ours.
    if (generation_ != al_.generation())
        return false;
    alBufferData(buffer, AL_FORMAT_MONO_FLOAT32, block_.data(),
                 static_cast<ALsizei>(block_.size() * sizeof(float)), rate_);
    alSourceQueueBuffers(source_, 1, &buffer);
    return true;
}

void StreamVoice::feed(std::unique_lock<std::mutex>& alLock) {
    // Refill what has been played, counted once: a source stopped by an
    // underrun counts every queued buffer as played, even one queued again
    // just now, so asking again would never end.
    ALint processed = 0;
    alGetSourcei(source_, AL_BUFFERS_PROCESSED, &processed);
    for (ALint i = 0; i < processed; ++i) {
        ALuint buffer = 0;
        alSourceUnqueueBuffers(source_, 1, &buffer);
        retired_ += kBlockFrames;
        if (!render(buffer, alLock))
            return;
    }
    // After an underrun the source has stopped; the refilled queue restarts it.
    ALint state = 0;
    alGetSourcei(source_, AL_SOURCE_STATE, &state);
    if (state != AL_PLAYING) {
        underruns_.fetch_add(1, std::memory_order_relaxed);
        alSourcePlay(source_);
    }
}

void StreamVoice::keepTime(std::unique_lock<std::mutex>& alLock) {
    const auto since = Clock::now() - lostAt_;
    const std::int64_t now =
        lostFrame_ +
        std::chrono::duration_cast<std::chrono::microseconds>(since).count() * rate_ / 1'000'000;
    // The frames queued when the device went were never heard: the clock
    // goes on from the one heard last, and the renderer is asked again only
    // once the clock has passed what it rendered.
    while (nextFrame_ + kBlockFrames <= now)
        renderBlock(alLock);
    retired_ = now;
}

void StreamVoice::run() {
    // Half a block between looks at the queue keeps it full without spinning.
    const auto pause = std::chrono::microseconds(1'000'000LL * kBlockFrames / 2 / rate_);
    std::unique_lock stopLock(stopMutex_);
    while (!stopRequested_) {
        stopLock.unlock();
        {
            auto alLock = al_.lock();
            const bool current = attached_ && generation_ == al_.generation();
            if (current && al_.connected()) {
                feed(alLock);
            } else {
                if (!lost_) {
                    lost_ = true;
                    lostAt_ = Clock::now();
                    ALint offset = 0;
                    if (current)
                        alGetSourcei(source_, AL_SAMPLE_OFFSET, &offset);
                    lostFrame_ = std::min(retired_.load() + offset, nextFrame_);
                }
                keepTime(alLock);
                // A device put in place of the lost one: tried once.
                if (generation_ != al_.generation() && al_.valid() && al_.connected())
                    lost_ = !attach(alLock);
            }
        }
        stopLock.lock();
        stopWake_.wait_for(stopLock, pause, [this] { return stopRequested_; });
    }
}

}  // namespace zt
