#pragma once
// The instants of a steady pulse on a sample clock. Instant k (k >= 1) lies at
//   start + round(k * 60 * sampleRate / (beatsPerMinute * slotsPerBeat))
// computed in integers from the start every time, so the rounding of one
// instant never carries into the next and the pulse does not drift however
// long it runs. Beats use one slot per beat; a subdivision grid with n slots
// per beat shares every n-th instant with the beat grid, sample for sample.
//
// A grid may also start between two samples (where a grid of another tempo
// left off): then its instants are rounded from that exact start, so a chain
// of grids stays as exact as one.

#include <cstdint>

namespace zt {

class BeatGrid {
public:
    BeatGrid() = default;
    // sampleRate in hertz, beatsPerMinute and slotsPerBeat at least 1.
    BeatGrid(std::int64_t startFrame, int sampleRate, int beatsPerMinute, int slotsPerBeat);
    // Starts at an exact, possibly fractional, frame.
    static BeatGrid fromExactStart(double exactStart, int sampleRate, int beatsPerMinute,
                                   int slotsPerBeat);

    std::int64_t startFrame() const { return start_; }
    // The frame of instant k, rounded half up.
    std::int64_t frameOf(std::int64_t k) const;
    // The exact time of instant k, in frames.
    double exactTimeOf(std::int64_t k) const;
    // Moves the whole grid by frames (a jump of the stream clock).
    void shift(std::int64_t frames) { start_ += frames; }

private:
    std::int64_t start_ = 0;
    double fraction_ = 0.0;             // of a frame past start_, in [0, 1)
    std::int64_t framesPerMinute_ = 0;  // 60 * sampleRate
    std::int64_t slotsPerMinute_ = 1;   // beatsPerMinute * slotsPerBeat
};

}  // namespace zt
