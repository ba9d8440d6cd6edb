#include "dsp/OvertonePDA.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
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

    // Each peak is the strongest bin (the lowest of equals) at least `gap`
    // bins from the peaks already taken: the scan skips the band around each.
    auto strongest = [this](int peak, std::uint32_t from, std::uint32_t to) {
        for (std::uint32_t i = from; i < to; ++i) {
            if (data[i] > volumePikes[peak]) {
                volumePikes[peak] = data[i];
                indexPikes[peak] = i;
            }
        }
    };
    // The band around a peak: bins from bandStart up to, not including, bandEnd.
    auto bandStart = [gap](std::uint32_t peak) { return peak + 1 >= gap ? peak + 1 - gap : 0u; };
    auto bandEnd = [gap](std::uint32_t peak) {
        return peak + gap < peak ? std::numeric_limits<std::uint32_t>::max() : peak + gap;
    };
    strongest(0, first, end);
    const std::uint32_t i0 = indexPikes[0];
    strongest(1, first, std::min(end, bandStart(i0)));
    strongest(1, std::max(first, bandEnd(i0)), end);
    const std::uint32_t low = std::min(i0, indexPikes[1]);
    const std::uint32_t high = std::max(i0, indexPikes[1]);
    strongest(2, first, std::min(end, bandStart(low)));
    strongest(2, std::max(first, bandEnd(low)), std::min(end, bandStart(high)));
    strongest(2, std::max({first, bandEnd(low), bandEnd(high)}), end);
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
