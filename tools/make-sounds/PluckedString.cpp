#include "PluckedString.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "SynthUtil.h"

namespace zt::soundgen {

std::vector<float> PluckedString::render(int rate) const {
    const auto frames = static_cast<size_t>(seconds * rate);
    std::vector<double> out(frames, 0.0);
    const double pi = std::numbers::pi;

    // Lower strings ring longer; high partials lose energy fastest.
    const double fundamentalDecay = 1.2 + std::sqrt(82.4 / frequency);
    const double highest = std::min(12000.0, 0.45 * rate);
    for (int k = 1; k * frequency < highest; ++k) {
        const double stretch = std::sqrt((1.0 + stiffness * k * k) / (1.0 + stiffness));
        const double partial = k * frequency * stretch;
        const double amplitude = std::sin(k * pi * pluckPoint) / std::pow(k, 1.4);
        const double damping = 1.0 / fundamentalDecay + 7e-7 * partial * partial;
        const double step = 2.0 * pi * partial / rate;
        const double fall = std::exp(-damping / rate);
        // Recurrence for amplitude * e^(-damping t) * sin(2 pi partial t).
        double level = amplitude;
        for (size_t n = 0; n < frames && level * level > 1e-14; ++n) {
            out[n] += level * std::sin(step * static_cast<double>(n));
            level *= fall;
        }
    }

    // The pick scraping off the string: lowpassed noise dying in a few ms.
    Noise noise(seed);
    const double noiseFall = std::exp(-1.0 / (0.006 * rate));
    const double smoothing = std::exp(-2.0 * pi * 3000.0 / rate);
    double noiseLevel = 0.06, filtered = 0.0;
    for (size_t n = 0; n < frames && noiseLevel > 1e-6; ++n) {
        filtered = (1.0 - smoothing) * noise.next() + smoothing * filtered;
        out[n] += noiseLevel * filtered;
        noiseLevel *= noiseFall;
    }

    applyEdges(out, rate, 0.003, 0.25);
    return normalized(out, 0.89);
}

}  // namespace zt::soundgen
