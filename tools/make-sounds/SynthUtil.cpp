#include "SynthUtil.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zt::soundgen {

void applyEdges(std::vector<double>& samples, int rate, double attack, double release) {
    const size_t total = samples.size();
    const auto rise = std::min(total, static_cast<size_t>(attack * rate));
    const auto fall = std::min(total, static_cast<size_t>(release * rate));
    for (size_t n = 0; n < rise; ++n) {
        samples[n] *= 0.5 - 0.5 * std::cos(std::numbers::pi * static_cast<double>(n) / rise);
    }
    for (size_t n = 0; n < fall; ++n) {
        const double left = static_cast<double>(fall - 1 - n) / std::max<size_t>(fall - 1, 1);
        samples[total - fall + n] *= 0.5 - 0.5 * std::cos(std::numbers::pi * left);
    }
}

std::vector<float> normalized(const std::vector<double>& samples, double peak) {
    double highest = 0.0;
    for (double sample : samples)
        highest = std::max(highest, std::abs(sample));
    const double scale = highest > 0.0 ? peak / highest : 0.0;
    std::vector<float> out(samples.size());
    std::transform(samples.begin(), samples.end(), out.begin(),
                   [scale](double sample) { return static_cast<float>(sample * scale); });
    return out;
}

}  // namespace zt::soundgen
