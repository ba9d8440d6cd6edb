#include "cli/QueuedCapture.h"

#include <algorithm>

#include "dsp/CaptureBuffer.h"

namespace zt::cli {

QueuedCapture::QueuedCapture(std::shared_ptr<AudioCapture> source, std::size_t capacity)
    : source_(std::move(source)), ring_(std::max<std::size_t>(capacity, 1)) {}

QueuedCapture::~QueuedCapture() {
    stop();
}

bool QueuedCapture::start(CaptureSink& sink, int rate) {
    stop();
    {
        std::lock_guard lock(mutex_);
        sink_ = &sink;
        head_ = 0;
        size_ = 0;
        lost_ = 0;
    }
    return source_ && source_->start(*this, rate);
}

void QueuedCapture::stop() {
    if (source_)
        source_->stop();
}

AudioCapture::State QueuedCapture::state() const {
    const State source = source_ ? source_->state() : State::Stopped;
    if (source != State::Lost)
        return source;
    std::lock_guard lock(mutex_);
    return size_ >= CaptureBuffer::kHopSamples ? State::Running : State::Lost;
}

void QueuedCapture::captured(const std::int16_t* samples, std::size_t count) {
    {
        std::lock_guard lock(mutex_);
        const std::size_t room = ring_.size() - size_;
        const std::size_t taken = std::min(count, room);
        lost_ += static_cast<std::int64_t>(count - taken);
        for (std::size_t i = 0; i < taken; ++i)
            ring_[(head_ + size_ + i) % ring_.size()] = samples[i];
        size_ += taken;
    }
    arrived_.notify_one();
}

bool QueuedCapture::waitFor(std::size_t count, std::chrono::milliseconds timeout) {
    std::unique_lock lock(mutex_);
    return arrived_.wait_for(lock, timeout, [&] { return size_ >= count; });
}

bool QueuedCapture::pump(std::size_t count) {
    out_.resize(count);
    CaptureSink* sink = nullptr;
    {
        std::lock_guard lock(mutex_);
        if (size_ < count || !sink_)
            return false;
        for (std::size_t i = 0; i < count; ++i)
            out_[i] = ring_[(head_ + i) % ring_.size()];
        head_ = (head_ + count) % ring_.size();
        size_ -= count;
        sink = sink_;
    }
    // The sink is called outside the lock, as a capture thread would call it.
    sink->captured(out_.data(), count);
    return true;
}

std::int64_t QueuedCapture::lostSamples() const {
    std::lock_guard lock(mutex_);
    return lost_;
}

}  // namespace zt::cli
