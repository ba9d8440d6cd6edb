#include "dsp/CaptureBuffer.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace zt {

void CaptureBuffer::reset() {
    head_ = 0;
    total_ = 0;
    inHop_ = 0;
    hopSquares_ = 0.0;
    hopPeak_ = 0;
    std::lock_guard lock(mutex_);
    newestBlock_ = {};
    meter_ = {};
}

void CaptureBuffer::captured(const std::int16_t* samples, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const int sample = samples[i];
        history_[head_] = samples[i];
        head_ = (head_ + 1) % kBlockSamples;
        ++total_;
        hopSquares_ += static_cast<double>(sample) * sample;
        hopPeak_ = std::max(hopPeak_, std::abs(sample));
        if (++inHop_ == kHopSamples)
            publish();
    }
}

void CaptureBuffer::publish() {
    const LevelMeter meter{static_cast<float>(std::sqrt(hopSquares_ / kHopSamples) / 32768.0),
                           static_cast<float>(hopPeak_ / 32768.0)};
    inHop_ = 0;
    hopSquares_ = 0.0;
    hopPeak_ = 0;

    std::lock_guard lock(mutex_);
    meter_ = meter;
    if (total_ < static_cast<std::int64_t>(kBlockSamples))
        return;
    // The ring's oldest sample sits at head_.
    const std::size_t older = kBlockSamples - head_;
    std::memcpy(newest_.data(), history_.data() + head_, older * sizeof(std::int16_t));
    std::memcpy(newest_.data() + older, history_.data(), head_ * sizeof(std::int16_t));
    newestBlock_ = {kBlockSamples, total_};
}

CaptureBuffer::Block CaptureBuffer::copyNewest(std::int16_t* out) const {
    std::lock_guard lock(mutex_);
    std::memcpy(out, newest_.data(), newestBlock_.length * sizeof(std::int16_t));
    return newestBlock_;
}

LevelMeter CaptureBuffer::meter() const {
    std::lock_guard lock(mutex_);
    return meter_;
}

}  // namespace zt
