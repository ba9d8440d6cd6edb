#pragma once
// A live source read like a file: the source's thread queues every sample it
// captures, and the reader hands them on to the sink on its own thread, a
// hop at a time, with pump(). Analysing after each pump reads every block of
// live sound exactly once, in order, however late the reader wakes up, so
// live sound gives the same readings as a file of it.
//
// The queue is allocated once; when the reader falls behind by more than its
// capacity, newer samples are counted as lost rather than queued.

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

#include "dsp/AudioCapture.h"

namespace zt::cli {

class QueuedCapture final : public AudioCapture, private CaptureSink {
public:
    QueuedCapture(std::shared_ptr<AudioCapture> source, std::size_t capacity);
    ~QueuedCapture() override;

    bool start(CaptureSink& sink, int rate) override;
    void stop() override;
    // The source's state, but Lost only once the queue holds less than a hop.
    State state() const override;

    // Waits up to `timeout` for `count` samples; true when they are there.
    bool waitFor(std::size_t count, std::chrono::milliseconds timeout);
    // Hands the oldest `count` samples to the sink if that many are queued.
    bool pump(std::size_t count);
    std::int64_t lostSamples() const;

private:
    void captured(const std::int16_t* samples, std::size_t count) override;

    std::shared_ptr<AudioCapture> source_;
    CaptureSink* sink_ = nullptr;
    std::vector<std::int16_t> ring_;
    std::vector<std::int16_t> out_;
    mutable std::mutex mutex_;
    std::condition_variable arrived_;
    std::size_t head_ = 0;  // oldest queued sample
    std::size_t size_ = 0;
    std::int64_t lost_ = 0;
};

}  // namespace zt::cli
