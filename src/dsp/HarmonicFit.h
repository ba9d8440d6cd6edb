#pragma once
// The fundamental of a string from the frequencies of its partials. A stiff
// string's partial h lies at
//   f_h = h f0 sqrt(1 + B h^2)
// (B, the inharmonicity, is about 1e-5 to 1e-3 for guitar strings), so
// (f_h / h)^2 = f0^2 + f0^2 B h^2 is a straight line in h^2. A weighted least
// squares fit of that line over the partials found gives f0 and B, and the
// first partial, the pitch a tuner shows, is the line at h = 1. A partial
// measured to within df weighs (h / df)^2 in its own coordinates.
//
// Fixed capacity; nothing allocates.

#include <array>
#include <cstddef>
#include <span>

namespace zt {

struct Partial {
    int harmonic = 0;
    double frequency = 0.0;  // Hz
    double weight = 0.0;     // 1 / variance of the frequency, 1 / Hz^2
    double amplitude = 0.0;  // any unit, the same for all partials
};

class HarmonicFit {
public:
    static constexpr std::size_t kCapacity = 48;
    static constexpr double kMaxInharmonicity = 2e-3;

    void clear() { count_ = 0; }
    // False when full.
    bool add(const Partial& partial);
    std::size_t size() const { return count_; }
    const Partial& operator[](std::size_t i) const { return partials_[i]; }
    Partial& at(std::size_t i) { return partials_[i]; }
    void remove(std::size_t i);
    // The largest amplitude among the partials; 0 without any.
    double strongestAmplitude() const;
    // Keeps the partials on multiples of divisor, numbered as harmonics of
    // divisor times the fundamental.
    void regroup(int divisor);

    // Fits f0 and B; B is kept within 0 ... kMaxInharmonicity, and is 0 until
    // the partials span at least two harmonic numbers. False without partials.
    bool solve();

    double f0() const { return f0_; }
    double inharmonicity() const { return b_; }
    // Where the fitted partial h lies.
    double predict(int harmonic) const;
    // Cents of a partial's measured frequency from the fitted one.
    double residualCents(std::size_t i) const;
    // For each partial, cents of its measured frequency from where the
    // others, fitted without it, put it (0 with fewer than three partials).
    // A stray high up the series, which draws the fit towards itself, stands
    // out here as it does not in its own residual.
    void deletedResidualsCents(std::span<double> cents) const;

private:
    std::array<Partial, kCapacity> partials_{};
    std::size_t count_ = 0;
    double f0_ = 0.0;
    double b_ = 0.0;
};

}  // namespace zt
