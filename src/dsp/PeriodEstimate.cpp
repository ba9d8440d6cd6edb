#include "dsp/PeriodEstimate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>

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

double repetitionAt(const float* power, std::size_t bins, const double* squares, std::size_t length,
                    double lag) {
    if (!(lag >= 1.0) || lag + 2.0 >= static_cast<double>(length) || bins < 2)
        return 0.0;
    const double step = std::numbers::pi / static_cast<double>(bins - 1);
    // r and its first two derivatives at the lag: sums of the power's cosines.
    const std::complex<double> turn = std::polar(1.0, step * lag);
    std::complex<double> phasor = 1.0;
    double r = 0.0, slope = 0.0, curvature = 0.0;
    for (std::size_t k = 0; k < bins; ++k) {
        const double weight = (k == 0 || k + 1 == bins ? 1.0 : 2.0) * power[k];
        const double w = step * static_cast<double>(k);
        r += weight * phasor.real();
        slope -= weight * w * phasor.imag();
        curvature -= weight * w * w * phasor.real();
        phasor *= turn;
    }
    // The top of the quadratic through r at the lag, within half a sample.
    double t = lag;
    if (curvature < 0.0) {
        const double shift = std::clamp(-slope / curvature, -0.5, 0.5);
        r += shift * (slope + 0.5 * curvature * shift);
        t += shift;
    }
    // m(t) between whole lags, which it hardly leaves a straight line.
    const auto whole = static_cast<std::size_t>(t);
    const double share = t - static_cast<double>(whole);
    auto m = [&](std::size_t at) { return squares[length - at] + squares[length] - squares[at]; };
    const double norm = (1.0 - share) * m(whole) + share * m(whole + 1);
    // r was summed over the transform's 2 (bins - 1) points, unnormalised.
    return norm > 0.0 ? 2.0 * r / (2.0 * static_cast<double>(bins - 1)) / norm : 0.0;
}

}  // namespace zt
