#include "dsp/OvertonePDA.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zt {

OvertonePDA::OvertonePDA(const TaperSettings& settings) : FourierPDA(50.0, 200.0, settings) {}

void OvertonePDA::detectPitch() {
    fundamentalFrequency = NO_FREQUENCY;
    fillPikes();
    if (fundamentalVolume < treshold)
        return;
    if (volumePikes[0] / fundamentalVolume < SIGNAL_LEVEL) {
        fundamentalFrequency = frequencyPikes[1];
        return;
    }
    if (volumePikes[1] / fundamentalVolume >= SIGNAL_LEVEL) {
        detectByTwoMainPikes();
        correctByThirdPike();
        return;
    }
    fundamentalFrequency = frequencyPikes[0];
}

void OvertonePDA::fillPikes() {
    volumePikes = {};
    const auto start = static_cast<std::uint32_t>(std::floor(MIN_FREQUENCY / elementaryFrequency));
    const std::uint32_t end = dataSize - INTER_ORDER / 2;
    const std::uint32_t gap = start - 2u;
    // A peak needs a bin on each side for its refinement; a peak not found
    // keeps a valid bin (its magnitude stays 0, so it never decides).
    const std::uint32_t first = std::max(start, 1u);
    indexPikes.fill(first);

    auto far = [](std::uint32_t a, std::uint32_t b, std::uint32_t distance) {
        return (a > b ? a - b : b - a) >= distance;
    };
    for (int peak = 0; peak < 3; ++peak) {
        for (std::uint32_t i = first; i < end; ++i) {
            if (peak >= 1 && !far(i, indexPikes[0], gap))
                continue;
            if (peak == 2 && !far(i, indexPikes[1], gap))
                continue;
            if (data[i] > volumePikes[peak]) {
                volumePikes[peak] = data[i];
                indexPikes[peak] = i;
            }
        }
    }
    fundamentalVolume = volumePikes[0];

    for (int k = 0; k < 3; ++k)
        frequencyPikes[k] = accuracyFrequency(indexPikes[k]);
    if (frequencyPikes[0] > frequencyPikes[1]) {
        std::swap(volumePikes[0], volumePikes[1]);
        std::swap(indexPikes[0], indexPikes[1]);
        std::swap(frequencyPikes[0], frequencyPikes[1]);
    }
}

void OvertonePDA::detectByTwoMainPikes() {
    mode = -1;
    eps = 0.03;
    fundamentalFrequency = frequencyPikes[0];
    for (std::size_t p = 0; p < proportions.size(); p += 2) {
        const double a = proportions[p];
        const double b = proportions[p + 1];
        diff = std::fabs(frequencyPikes[0] / frequencyPikes[1] - a / b);
        possibleFreq = (frequencyPikes[0] / a + frequencyPikes[1] / b) / 2.0;
        if (diff < eps) {
            fundamentalFrequency = possibleFreq;
            eps = diff;
            mode = static_cast<std::int16_t>(p);
        }
    }
}

void OvertonePDA::correctByThirdPike() {
    if (static_cast<std::uint16_t>(mode) > 1)
        return;
    if (volumePikes[2] / fundamentalVolume < SIGNAL_LEVEL)
        return;
    diff = frequencyPikes[2] / fundamentalFrequency;
    possibleFreq = fundamentalFrequency / 2.0;
    // v starts at twice eps and only grows, so eps > v never holds: the
    // fundamental is never halved here.
    double v = 2.0 * eps;
    for (int k = 1; k <= 7; k += 2)
        v = std::max(v, std::fabs(diff - k / 2.0));
    if (eps > v)
        fundamentalFrequency = possibleFreq;
}

}  // namespace zt
