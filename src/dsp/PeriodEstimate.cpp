#include "dsp/PeriodEstimate.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zt {

namespace {

struct KeyMaximum {
    std::size_t lag;
    double value;
    double lagShift = 0.0;   // of the parabola's top from lag
    double peakValue = 0.0;  // the parabola's top
};

constexpr std::size_t kMaxKeys = 64;

double nsdf(const float* autocorrelation, const double* squares, std::size_t length,
            std::size_t lag) {
    const double m = squares[length - lag] + squares[length] - squares[lag];
    return m > 0.0 ? 2.0 * autocorrelation[lag] / m : 0.0;
}

}  // namespace

std::optional<PeriodEstimate> estimatePeriod(const float* autocorrelation, const double* squares,
                                             std::size_t length, std::size_t minLag,
                                             std::size_t maxLag, double keyRatio) {
    maxLag = std::min(maxLag, length - 2);
    if (squares[length] <= 0.0 || minLag < 1 || minLag >= maxLag)
        return std::nullopt;

    auto n = [&](std::size_t lag) { return nsdf(autocorrelation, squares, length, lag); };

    // Key maxima: one per positive lobe after the lobe at lag 0.
    std::array<KeyMaximum, kMaxKeys> keys{};
    std::size_t keyCount = 0;
    bool pastFirstLobe = false;
    bool inLobe = false;
    KeyMaximum best{0, 0.0};
    for (std::size_t lag = 1; lag <= maxLag + 1 && keyCount < kMaxKeys; ++lag) {
        const double value = n(lag);
        if (!pastFirstLobe) {
            pastFirstLobe = value <= 0.0;
            continue;
        }
        if (value > 0.0) {
            if (!inLobe)
                best = {lag, value};
            inLobe = true;
            if (value > best.value)
                best = {lag, value};
        } else if (inLobe) {
            inLobe = false;
            if (best.lag >= minLag && best.lag <= maxLag)
                keys[keyCount++] = best;
        }
    }
    if (inLobe && best.lag >= minLag && best.lag <= maxLag && keyCount < kMaxKeys)
        keys[keyCount++] = best;
    if (keyCount == 0)
        return std::nullopt;

    // Key maxima are compared at the top of a parabola through their
    // neighbours: at short periods the nearest whole lag can sit half a
    // sample from the true top and read well below a later multiple.
    double highest = 0.0;
    for (std::size_t i = 0; i < keyCount; ++i) {
        KeyMaximum& key = keys[i];
        const double left = n(key.lag - 1);
        const double right = n(key.lag + 1);
        const double curvature = left - 2.0 * key.value + right;
        key.lagShift =
            curvature < 0.0 ? std::clamp(0.5 * (left - right) / curvature, -0.5, 0.5) : 0.0;
        key.peakValue = key.value - 0.25 * (left - right) * key.lagShift;
        highest = std::max(highest, key.peakValue);
    }
    const KeyMaximum* chosen =
        std::find_if(keys.data(), keys.data() + keyCount,
                     [&](const KeyMaximum& key) { return key.peakValue >= keyRatio * highest; });
    return PeriodEstimate{static_cast<double>(chosen->lag) + chosen->lagShift, chosen->peakValue};
}

double repetitionNear(const float* autocorrelation, const double* squares, std::size_t length,
                      double lag) {
    const auto centre = static_cast<std::size_t>(std::lround(lag));
    if (centre < 2 || centre + 2 >= length)
        return 0.0;
    std::size_t top = centre - 1;
    for (std::size_t t = centre; t <= centre + 1; ++t)
        top =
            nsdf(autocorrelation, squares, length, t) > nsdf(autocorrelation, squares, length, top)
                ? t
                : top;
    const double left = nsdf(autocorrelation, squares, length, top - 1);
    const double value = nsdf(autocorrelation, squares, length, top);
    const double right = nsdf(autocorrelation, squares, length, top + 1);
    const double curvature = left - 2.0 * value + right;
    if (!(curvature < 0.0))
        return value;
    const double shift = std::clamp(0.5 * (left - right) / curvature, -0.5, 0.5);
    return value - 0.25 * (left - right) * shift;
}

}  // namespace zt
