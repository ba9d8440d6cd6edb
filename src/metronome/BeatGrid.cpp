#include "metronome/BeatGrid.h"

#include <algorithm>
#include <cmath>

namespace zt {

BeatGrid::BeatGrid(std::int64_t startFrame, int sampleRate, int beatsPerMinute, int slotsPerBeat)
    : start_(startFrame),
      framesPerMinute_(60 * static_cast<std::int64_t>(std::max(sampleRate, 1))),
      slotsPerMinute_(static_cast<std::int64_t>(std::max(beatsPerMinute, 1)) *
                      std::max(slotsPerBeat, 1)) {}

BeatGrid BeatGrid::fromExactStart(double exactStart, int sampleRate, int beatsPerMinute,
                                  int slotsPerBeat) {
    BeatGrid grid(static_cast<std::int64_t>(std::floor(exactStart)), sampleRate, beatsPerMinute,
                  slotsPerBeat);
    grid.fraction_ = exactStart - static_cast<double>(grid.start_);
    return grid;
}

double BeatGrid::exactTimeOf(std::int64_t k) const {
    // Whole frames apart, so that the fraction keeps its precision however long the run.
    const std::int64_t a = k * framesPerMinute_;
    return static_cast<double>(start_ + a / slotsPerMinute_) +
           (static_cast<double>(a % slotsPerMinute_) / static_cast<double>(slotsPerMinute_) +
            fraction_);
}

std::int64_t BeatGrid::frameOf(std::int64_t k) const {
    if (fraction_ != 0.0) {
        const std::int64_t a = k * framesPerMinute_;
        const double rest =
            static_cast<double>(a % slotsPerMinute_) / static_cast<double>(slotsPerMinute_) +
            fraction_;
        return start_ + a / slotsPerMinute_ + static_cast<std::int64_t>(std::floor(rest + 0.5));
    }
    // round(a / b) = floor((2a + b) / (2b)) for a, b > 0. At 44.1 kHz and
    // the fastest subdivision (1920 instants a minute) 2a fits in 64 bits
    // for over a thousand years of playing.
    const std::int64_t a = k * framesPerMinute_;
    return start_ + (2 * a + slotsPerMinute_) / (2 * slotsPerMinute_);
}

}  // namespace zt
