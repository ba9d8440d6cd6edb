#include "metronome/BeatGrid.h"

#include <algorithm>

namespace zt {

BeatGrid::BeatGrid(std::int64_t startFrame, int sampleRate, int beatsPerMinute, int slotsPerBeat)
    : start_(startFrame),
      framesPerMinute_(60 * static_cast<std::int64_t>(std::max(sampleRate, 1))),
      slotsPerMinute_(static_cast<std::int64_t>(std::max(beatsPerMinute, 1)) *
                      std::max(slotsPerBeat, 1)) {}

std::int64_t BeatGrid::frameOf(std::int64_t k) const {
    // round(a / b) = floor((2a + b) / (2b)) for a, b > 0. At 44.1 kHz and
    // the fastest subdivision (1920 instants a minute) 2a fits in 64 bits
    // for over a thousand years of playing.
    const std::int64_t a = k * framesPerMinute_;
    return start_ + (2 * a + slotsPerMinute_) / (2 * slotsPerMinute_);
}

}  // namespace zt
