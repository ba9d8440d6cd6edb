#pragma once
// One of the engine's streaming voices: an OpenAL source fed from a ring of small
// queued buffers by a thread that asks a StreamRenderer for each block. The
// ring holds at least two mixer periods so that the mixer never drains it
// between two refills. Everything is allocated before the thread starts.

#include <AL/al.h>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

#include "sound/AlContext.h"
#include "sound/StreamRenderer.h"

namespace zt {

class StreamVoice {
public:
    static constexpr int kBlockFrames = 256;

    // Starts streaming from `renderer` at `rate` hertz on a valid context.
    StreamVoice(const AlContext& al, StreamRenderer& renderer, int rate);
    // Stops the thread and frees the source and its buffers.
    ~StreamVoice();
    StreamVoice(const StreamVoice&) = delete;
    StreamVoice& operator=(const StreamVoice&) = delete;

    bool valid() const { return source_ != 0; }
    // Stream frame being heard now (frames since the start).
    std::int64_t position() const;
    // How often the source ran dry and was started again: each time, the
    // device played silence that is not part of the stream.
    int underruns() const { return underruns_.load(std::memory_order_relaxed); }

private:
    void run();
    // Fills the block from the renderer and queues it in `buffer` (under the lock).
    void render(ALuint buffer, std::unique_lock<std::mutex>& alLock);

    const AlContext& al_;
    StreamRenderer& renderer_;
    const int rate_;
    ALuint source_ = 0;
    std::vector<ALuint> buffers_;
    std::vector<float> block_;
    std::int64_t nextFrame_ = 0;            // stream thread only
    std::atomic<std::int64_t> retired_{0};  // frames of buffers taken back from the source
    std::atomic<int> underruns_{0};

    std::mutex stopMutex_;
    std::condition_variable stopWake_;
    bool stopRequested_ = false;
    std::thread thread_;
};

}  // namespace zt
