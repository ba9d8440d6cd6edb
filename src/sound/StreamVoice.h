#pragma once
// One of the engine's streaming voices: an OpenAL source fed from a ring of small
// queued buffers by a thread that asks a StreamRenderer for each block. The
// ring holds at least two mixer periods so that the mixer never drains it
// between two refills. Everything is allocated before the thread starts.
//
// While the output device is gone the thread goes on asking the renderer for
// blocks at the pace of the clock, and drops them: the stream's clock keeps
// time (a metronome stays on its grid, its beats still reach the screen), and
// when a device is back the voice takes new OpenAL names on it and is heard
// again from the frame it has reached.

#include <AL/al.h>

#include <atomic>
#include <chrono>
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

    bool valid() const { return thread_.joinable(); }
    // Stream frame being heard now (frames since the start); while the
    // device is gone, the frame that would be heard.
    std::int64_t position() const;
    // How often the source ran dry and was started again: each time, the
    // device played silence that is not part of the stream.
    int underruns() const { return underruns_.load(std::memory_order_relaxed); }

private:
    using Clock = std::chrono::steady_clock;

    void run();
    // Under the lock: takes a source and buffers on the current device, fills
    // the ring from the frame reached and plays it. False when OpenAL refuses.
    bool attach(std::unique_lock<std::mutex>& alLock);
    // Under the lock: refills what the source has played.
    void feed(std::unique_lock<std::mutex>& alLock);
    // Under the lock, with the device gone: renders, unheard, the blocks the
    // clock has reached since it went.
    void keepTime(std::unique_lock<std::mutex>& alLock);
    // Fills the block from the renderer without the OpenAL lock.
    void renderBlock(std::unique_lock<std::mutex>& alLock);
    // Fills the block from the renderer and queues it in `buffer` (under the
    // lock); false when the device was replaced while the renderer ran.
    bool render(ALuint buffer, std::unique_lock<std::mutex>& alLock);

    const AlContext& al_;
    StreamRenderer& renderer_;
    const int rate_;
    // OpenAL names, valid while `generation_` is the context's; the stream
    // thread changes them, under the lock.
    ALuint source_ = 0;
    std::vector<ALuint> buffers_;
    unsigned generation_ = 0;
    bool attached_ = false;
    // Set while the device is gone (under the lock): where the clock stood
    // then and when.
    bool lost_ = false;
    std::int64_t lostFrame_ = 0;
    Clock::time_point lostAt_;

    std::vector<float> block_;
    std::int64_t nextFrame_ = 0;            // stream thread only
    std::atomic<std::int64_t> retired_{0};  // frames taken back from the source, or passed unheard
    std::atomic<int> underruns_{0};

    std::mutex stopMutex_;
    std::condition_variable stopWake_;
    bool stopRequested_ = false;
    std::thread thread_;
};

}  // namespace zt
