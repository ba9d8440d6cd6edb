#include "dsp/HarmonicFit.h"

#include <algorithm>
#include <cmath>

namespace zt {

bool HarmonicFit::add(const Partial& partial) {
    if (count_ == kCapacity)
        return false;
    partials_[count_++] = partial;
    return true;
}

void HarmonicFit::remove(std::size_t i) {
    std::copy(partials_.begin() + static_cast<std::ptrdiff_t>(i) + 1,
              partials_.begin() + static_cast<std::ptrdiff_t>(count_),
              partials_.begin() + static_cast<std::ptrdiff_t>(i));
    --count_;
}

void HarmonicFit::regroup(int divisor) {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < count_; ++i) {
        if (partials_[i].harmonic % divisor != 0)
            continue;
        partials_[kept] = partials_[i];
        partials_[kept++].harmonic /= divisor;
    }
    count_ = kept;
}

bool HarmonicFit::solve() {
    // y = (f/h)^2 against x = h^2; dy = 2 f / h^2 df, so y's weight is the
    // frequency weight times (h^2 / 2f)^2.
    double sw = 0.0, sx = 0.0, sy = 0.0, sxx = 0.0, sxy = 0.0;
    int lowest = 0, highest = 0;
    for (std::size_t i = 0; i < count_; ++i) {
        const Partial& p = partials_[i];
        const double h = p.harmonic;
        const double x = h * h;
        const double y = (p.frequency / h) * (p.frequency / h);
        const double w = p.weight * (x / (2.0 * p.frequency)) * (x / (2.0 * p.frequency));
        sw += w;
        sx += w * x;
        sy += w * y;
        sxx += w * x * x;
        sxy += w * x * y;
        lowest = i == 0 ? p.harmonic : std::min(lowest, p.harmonic);
        highest = std::max(highest, p.harmonic);
    }
    if (sw <= 0.0)
        return false;

    double intercept = sy / sw;
    double slope = 0.0;
    const double spread = sw * sxx - sx * sx;
    if (highest > lowest && spread > 0.0) {
        slope = (sw * sxy - sx * sy) / spread;
        intercept = (sy - slope * sx) / sw;
    }
    // Outside the physical range, B is held at the nearer end and f0 refitted.
    const double b = intercept > 0.0 ? slope / intercept : 0.0;
    if (b < 0.0 || b > kMaxInharmonicity || intercept <= 0.0) {
        b_ = std::clamp(b, 0.0, kMaxInharmonicity);
        // y = f0^2 (1 + B x): f0^2 = sum w y (1 + B x) / sum w (1 + B x)^2.
        double num = 0.0, den = 0.0;
        for (std::size_t i = 0; i < count_; ++i) {
            const Partial& p = partials_[i];
            const double h = p.harmonic;
            const double x = h * h;
            const double y = (p.frequency / h) * (p.frequency / h);
            const double w = p.weight * (x / (2.0 * p.frequency)) * (x / (2.0 * p.frequency));
            num += w * y * (1.0 + b_ * x);
            den += w * (1.0 + b_ * x) * (1.0 + b_ * x);
        }
        f0_ = std::sqrt(num / den);
        return true;
    }
    b_ = b;
    f0_ = std::sqrt(intercept);
    return true;
}

double HarmonicFit::predict(int harmonic) const {
    const double h = harmonic;
    return h * f0_ * std::sqrt(1.0 + b_ * h * h);
}

double HarmonicFit::residualCents(std::size_t i) const {
    return 1200.0 * std::log2(partials_[i].frequency / predict(partials_[i].harmonic));
}

}  // namespace zt
