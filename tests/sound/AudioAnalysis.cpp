#include "sound/AudioAnalysis.h"

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace zt::testing {

namespace {

double hannSpectrum(std::span<const float> samples, int rate, double frequency) {
    const size_t n = samples.size();
    std::complex<double> sum = 0.0,
                         rotation = std::polar(1.0, -2.0 * std::numbers::pi * frequency / rate);
    std::complex<double> phasor = 1.0;
    for (size_t i = 0; i < n; ++i) {
        const double w = 0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * i / (n - 1));
        sum += w * samples[i] * phasor;
        phasor *= rotation;
        // Renormalise now and then against rounding drift.
        if ((i & 1023) == 1023)
            phasor /= std::abs(phasor);
    }
    return std::abs(sum);
}

}  // namespace

Recording readSound(const std::filesystem::path& path) {
    Recording recording;
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    if (!file)
        return recording;
    std::vector<float> interleaved(static_cast<size_t>(info.frames * info.channels));
    const sf_count_t frames = sf_readf_float(file, interleaved.data(), info.frames);
    sf_close(file);
    recording.rate = info.samplerate;
    recording.channels = info.channels;
    recording.format = info.format;
    recording.samples.resize(static_cast<size_t>(std::max<sf_count_t>(frames, 0)));
    for (size_t i = 0; i < recording.samples.size(); ++i) {
        double sum = 0.0;
        for (int c = 0; c < info.channels; ++c)
            sum += interleaved[i * info.channels + c];
        recording.samples[i] = static_cast<float>(sum / info.channels);
    }
    return recording;
}

double toneFrequency(std::span<const float> samples, int rate, double guess) {
    // Coarse scan at a quarter of the window's bin width, then golden-section
    // search around the best point.
    const double binWidth = static_cast<double>(rate) / samples.size();
    const double low = guess * 0.96, high = guess * 1.04;
    double best = low, bestLevel = -1.0;
    for (double f = low; f <= high; f += binWidth / 4) {
        const double level = hannSpectrum(samples, rate, f);
        if (level > bestLevel) {
            bestLevel = level;
            best = f;
        }
    }
    double a = best - binWidth / 4, b = best + binWidth / 4;
    const double ratio = (std::sqrt(5.0) - 1.0) / 2.0;
    double c = b - ratio * (b - a), d = a + ratio * (b - a);
    double fc = hannSpectrum(samples, rate, c), fd = hannSpectrum(samples, rate, d);
    while (b - a > 1e-5) {
        if (fc > fd) {
            b = d, d = c, fd = fc;
            c = b - ratio * (b - a);
            fc = hannSpectrum(samples, rate, c);
        } else {
            a = c, c = d, fc = fd;
            d = a + ratio * (b - a);
            fd = hannSpectrum(samples, rate, d);
        }
    }
    return (a + b) / 2;
}

double toneAmplitude(std::span<const float> samples, int rate, double frequency) {
    if (samples.size() < 2)
        return 0.0;
    // The Hann window sums to (n - 1) / 2; a sine of amplitude A gives A/2 of that.
    return 4.0 * hannSpectrum(samples, rate, frequency) / static_cast<double>(samples.size() - 1);
}

double rms(std::span<const float> samples) {
    if (samples.empty())
        return 0.0;
    double sum = 0.0;
    for (float s : samples)
        sum += static_cast<double>(s) * s;
    return std::sqrt(sum / samples.size());
}

double peak(std::span<const float> samples) {
    double highest = 0.0;
    for (float s : samples)
        highest = std::max(highest, static_cast<double>(std::abs(s)));
    return highest;
}

double cents(double frequency, double reference) {
    return 1200.0 * std::log2(frequency / reference);
}

size_t onset(std::span<const float> samples, float threshold) {
    const auto it = std::find_if(samples.begin(), samples.end(),
                                 [threshold](float s) { return std::abs(s) > threshold; });
    return static_cast<size_t>(it - samples.begin());
}

std::vector<double> magnitudeSpectrum(std::span<const float> samples, size_t size) {
    std::vector<std::complex<double>> data(size);
    for (size_t i = 0; i < std::min(size, samples.size()); ++i)
        data[i] = samples[i];
    // Iterative radix-2 FFT.
    for (size_t i = 1, j = 0; i < size; ++i) {
        size_t bit = size >> 1;
        for (; j & bit; bit >>= 1)
            j ^= bit;
        j ^= bit;
        if (i < j)
            std::swap(data[i], data[j]);
    }
    for (size_t length = 2; length <= size; length <<= 1) {
        const auto step = std::polar(1.0, -2.0 * std::numbers::pi / length);
        for (size_t start = 0; start < size; start += length) {
            std::complex<double> w = 1.0;
            for (size_t k = 0; k < length / 2; ++k, w *= step) {
                const auto even = data[start + k], odd = w * data[start + k + length / 2];
                data[start + k] = even + odd;
                data[start + k + length / 2] = even - odd;
            }
        }
    }
    std::vector<double> magnitudes(size / 2);
    for (size_t i = 0; i < magnitudes.size(); ++i)
        magnitudes[i] = std::abs(data[i]);
    return magnitudes;
}

std::span<const float> window(const Recording& recording, size_t start, double from, double to) {
    const size_t total = recording.samples.size();
    const size_t first = std::min(total, start + static_cast<size_t>(from * recording.rate));
    const size_t last = std::min(total, start + static_cast<size_t>(to * recording.rate));
    return std::span<const float>(recording.samples).subspan(first, last - first);
}

}  // namespace zt::testing
