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

double HarmonicFit::strongestAmplitude() const {
    double strongest = 0.0;
    for (std::size_t i = 0; i < count_; ++i)
        strongest = std::max(strongest, partials_[i].amplitude);
    return strongest;
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

namespace {

// The weighted sums of the line y = (f / h)^2 against x = h^2 over partials.
struct LineSums {
    double w = 0.0, x = 0.0, y = 0.0, xx = 0.0, xy = 0.0;

    // y's weight is the frequency's weight times (dy / df)^-2 = (h^2 / 2f)^2.
    void add(const Partial& p, double sign) {
        const double h = p.harmonic;
        const double px = h * h;
        const double py = (p.frequency / h) * (p.frequency / h);
        const double pw = sign * p.weight * (px / (2.0 * p.frequency)) * (px / (2.0 * p.frequency));
        w += pw;
        x += pw * px;
        y += pw * py;
        xx += pw * px * px;
        xy += pw * px * py;
    }

    // f0 and B of the line; B only when the partials span two harmonic
    // numbers, and within 0 ... maxB, f0 then refitted with B held. False
    // (f0 and B untouched) without partials of weight.
    bool fit(bool spans, double maxB, double& f0, double& b) const {
        if (w <= 0.0)
            return false;
        double intercept = y / w;
        double slope = 0.0;
        const double spread = w * xx - x * x;
        if (spans && spread > 0.0) {
            slope = (w * xy - x * y) / spread;
            intercept = (y - slope * x) / w;
        }
        const double free = intercept > 0.0 ? slope / intercept : 0.0;
        if (free >= 0.0 && free <= maxB && intercept > 0.0) {
            b = free;
            f0 = std::sqrt(intercept);
            return true;
        }
        // y = f0^2 (1 + B x): f0^2 = sum w y (1 + B x) / sum w (1 + B x)^2.
        const double held = std::clamp(free, 0.0, maxB);
        const double num = y + held * xy;
        const double den = w + 2.0 * held * x + held * held * xx;
        if (!(num > 0.0 && den > 0.0))
            return false;
        b = held;
        f0 = std::sqrt(num / den);
        return true;
    }
};

}  // namespace

bool HarmonicFit::solve() {
    LineSums sums;
    int lowest = 0, highest = 0;
    for (std::size_t i = 0; i < count_; ++i) {
        sums.add(partials_[i], 1.0);
        lowest = i == 0 ? partials_[i].harmonic : std::min(lowest, partials_[i].harmonic);
        highest = std::max(highest, partials_[i].harmonic);
    }
    return sums.fit(highest > lowest, kMaxInharmonicity, f0_, b_);
}

double HarmonicFit::predict(int harmonic) const {
    const double h = harmonic;
    return h * f0_ * std::sqrt(1.0 + b_ * h * h);
}

double HarmonicFit::residualCents(std::size_t i) const {
    return 1200.0 * std::log2(partials_[i].frequency / predict(partials_[i].harmonic));
}

void HarmonicFit::deletedResidualsCents(std::span<double> cents) const {
    LineSums all;
    for (std::size_t i = 0; i < count_; ++i)
        all.add(partials_[i], 1.0);
    for (std::size_t i = 0; i < count_ && i < cents.size(); ++i) {
        cents[i] = 0.0;
        LineSums others = all;
        others.add(partials_[i], -1.0);
        // Each partial stands at a harmonic number of its own, so that any
        // two others span two of them.
        double f0 = 0.0, b = 0.0;
        if (count_ > 2 && others.fit(true, kMaxInharmonicity, f0, b)) {
            const double h = partials_[i].harmonic;
            cents[i] =
                1200.0 * std::log2(partials_[i].frequency / (h * f0 * std::sqrt(1.0 + b * h * h)));
        }
    }
}

}  // namespace zt
