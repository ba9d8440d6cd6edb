#pragma once
// Synthetic plucked strings for measuring pitch detectors: a sum of decaying
// partials near the stiff-string law f_h = h f0 sqrt(1 + B h^2), with the
// spectrum of a string plucked at a point, a weak fundamental (as a small
// instrument body or a phone microphone gives it), higher partials dying
// faster, and a pick attack of 2 ms. Real strings stray from the ideal: each
// partial above the first is moved off the law by up to partialSpreadCents
// and made louder or softer by up to partialLevelSpreadDb (the body and the
// room), and each partial has a weaker twin a little sharper (the string's
// second plane of vibration), so that partials beat.

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <numbers>
#include <random>
#include <vector>

namespace zt::testing {

struct StringPluck {
    double frequency = 110.0;      // the first partial, Hz: the pitch a tuner should show
    double inharmonicity = 1e-4;   // B
    double pluckPosition = 0.15;   // share of the string's length from the bridge
    double fundamentalGain = 0.2;  // the first partial against the plucked spectrum
    double level = 0.25;           // peak of the first 0.1 s, full scale 1
    double decay = 2.0;            // time constant of the first partial, s
    double partialSpreadCents = 2.0;
    double partialLevelSpreadDb = 8.0;
    double twinCents = 0.8;  // the twin's offset
    double twinGain = 0.2;
};

// `before` seconds of silence, then the pluck for `after` seconds, at `rate`.
inline std::vector<double> renderPluck(const StringPluck& pluck, double before, double after,
                                       int rate, std::mt19937& random) {
    const auto onset = static_cast<std::size_t>(before * rate);
    std::vector<double> out(onset + static_cast<std::size_t>(after * rate), 0.0);
    const double f0 = pluck.frequency / std::sqrt(1.0 + pluck.inharmonicity);
    std::uniform_real_distribution<double> phase(0.0, 2.0 * std::numbers::pi);
    std::uniform_real_distribution<double> spread(-1.0, 1.0);
    for (int h = 1;; ++h) {
        double hertz = h * f0 * std::sqrt(1.0 + pluck.inharmonicity * h * h);
        double amplitude = std::fabs(std::sin(std::numbers::pi * h * pluck.pluckPosition)) / h;
        if (h == 1) {
            amplitude *= pluck.fundamentalGain;
        } else {
            hertz *= std::pow(2.0, spread(random) * pluck.partialSpreadCents / 1200.0);
            amplitude *= std::pow(10.0, spread(random) * pluck.partialLevelSpreadDb / 20.0);
        }
        if (hertz > 0.475 * rate)
            break;
        const double tau = pluck.decay / (1.0 + 0.15 * (h - 1));
        const double twinHertz = hertz * std::pow(2.0, pluck.twinCents / 1200.0);
        for (const auto& [f, a] :
             {std::pair{hertz, amplitude}, std::pair{twinHertz, amplitude * pluck.twinGain}}) {
            const std::complex<double> step =
                std::polar(std::exp(-1.0 / (tau * rate)), 2.0 * std::numbers::pi * f / rate);
            std::complex<double> z = std::polar(a, phase(random));
            for (std::size_t i = onset; i < out.size(); ++i) {
                out[i] += z.imag();
                z *= step;
            }
        }
    }
    const auto attack = static_cast<std::size_t>(0.002 * rate);
    for (std::size_t i = 0; i < attack && onset + i < out.size(); ++i)
        out[onset + i] *= static_cast<double>(i) / attack;
    const auto head = std::min(out.size(), onset + static_cast<std::size_t>(0.1 * rate));
    double peak = 0.0;
    for (std::size_t i = onset; i < head; ++i)
        peak = std::max(peak, std::fabs(out[i]));
    if (peak > 0.0) {
        for (double& s : out)
            s *= pluck.level / peak;
    }
    return out;
}

// Adds white noise, or pink noise (Paul Kellet's filter of white noise,
// its power falling 3 dB an octave, as a room's or a fan's), whose power is
// `snrDb` below the mean power of signal[from, to).
inline void addNoise(std::vector<double>& signal, std::size_t from, std::size_t to, double snrDb,
                     std::mt19937& random, bool pink = false) {
    double power = 0.0;
    for (std::size_t i = from; i < to; ++i)
        power += signal[i] * signal[i];
    power /= static_cast<double>(to - from);
    std::normal_distribution<double> white(0.0, 1.0);
    std::vector<double> noise(signal.size());
    double b[7] = {};
    double noisePower = 0.0;
    for (double& n : noise) {
        const double w = white(random);
        n = w;
        if (pink) {
            b[0] = 0.99886 * b[0] + w * 0.0555179;
            b[1] = 0.99332 * b[1] + w * 0.0750759;
            b[2] = 0.96900 * b[2] + w * 0.1538520;
            b[3] = 0.86650 * b[3] + w * 0.3104856;
            b[4] = 0.55000 * b[4] + w * 0.5329522;
            b[5] = -0.7616 * b[5] - w * 0.0168980;
            n = b[0] + b[1] + b[2] + b[3] + b[4] + b[5] + b[6] + w * 0.5362;
            b[6] = w * 0.115926;
        }
        noisePower += n * n;
    }
    const double gain =
        std::sqrt(power * std::pow(10.0, -snrDb / 10.0) * noise.size() / noisePower);
    for (std::size_t i = 0; i < signal.size(); ++i)
        signal[i] += gain * noise[i];
}

// Full scale 1 to 16-bit samples, clipped.
inline std::vector<std::int16_t> toSamples(const std::vector<double>& signal) {
    std::vector<std::int16_t> samples(signal.size());
    for (std::size_t i = 0; i < signal.size(); ++i)
        samples[i] = static_cast<std::int16_t>(
            std::clamp(std::lround(signal[i] * 32767.0), -32768L, 32767L));
    return samples;
}

}  // namespace zt::testing
