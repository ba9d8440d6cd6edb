#pragma once
// Between the capture thread and the analysis: keeps the newest block of
// kBlockSamples (0.25 s at 8000 Hz) for a reader, renewed every kHopSamples
// (50 ms), so that blocks overlap and each poll of the tuner sees fresh
// sound. The first block is there once kBlockSamples have arrived.
//
// The capture thread copies a finished block in under a lock, and the
// reader copies it out under the same lock: each holds it for one copy of
// 4000 bytes, so neither waits for long. Nothing allocates.

#include <array>
#include <cstdint>
#include <mutex>

#include "dsp/AudioCapture.h"

namespace zt {

// Input levels of the newest hop, linear: 1.0 is full scale.
struct LevelMeter {
    float average = 0.0f;  // root mean square
    float peak = 0.0f;
};

class CaptureBuffer final : public CaptureSink {
public:
    static constexpr std::size_t kBlockSamples = 2000;
    static constexpr std::size_t kHopSamples = 400;

    struct Block {
        std::size_t length = 0;  // samples copied, 0 before the first block
        std::int64_t end = 0;    // samples captured up to and including the block's newest
    };

    // Forgets everything; only while no capture runs.
    void reset();

    // Capture thread.
    void captured(const std::int16_t* samples, std::size_t count) override;

    // Reader: copies the newest block into out (room for kBlockSamples).
    Block copyNewest(std::int16_t* out) const;
    LevelMeter meter() const;

private:
    void publish();

    // Capture thread only.
    std::array<std::int16_t, kBlockSamples> history_{};
    std::size_t head_ = 0;  // where the next sample goes
    std::int64_t total_ = 0;
    std::size_t inHop_ = 0;
    double hopSquares_ = 0.0;
    int hopPeak_ = 0;

    mutable std::mutex mutex_;
    std::array<std::int16_t, kBlockSamples> newest_{};
    Block newestBlock_;
    LevelMeter meter_;
};

}  // namespace zt
