#include "dsp/FourierUtils.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "dsp/SignalWindow.h"

namespace zt {

namespace {

// In-place decimation in time over interleaved (re, im) doubles, indexed from
// 1 as the algorithm is usually written: d[1], d[2] is the first value.
void transformInPlace(double* data, std::size_t n, int sign) {
    double* d = data - 1;
    const std::size_t doubles = 2 * n;

    std::size_t j = 1;
    for (std::size_t i = 1; i < doubles; i += 2) {
        if (j > i) {
            std::swap(d[j], d[i]);
            std::swap(d[j + 1], d[i + 1]);
        }
        std::size_t m = n;
        while (m >= 2 && j > m) {
            j -= m;
            m >>= 1;
        }
        j += m;
    }

    // Butterflies; the twiddle factor advances by a recurrence, so each stage
    // costs two sines.
    std::size_t mmax = 2;
    while (doubles > mmax) {
        const std::size_t istep = 2 * mmax;
        const double theta = (2.0 * sign) * std::numbers::pi / static_cast<double>(mmax);
        const double wtemp = std::sin(theta / 2.0);
        const double wpr = -2.0 * wtemp * wtemp;
        const double wpi = std::sin(theta);
        double wr = 1.0;
        double wi = 0.0;
        for (std::size_t m = 1; m < mmax; m += 2) {
            for (std::size_t i = m; i <= doubles; i += istep) {
                const std::size_t k = i + mmax;
                const double tempr = wr * d[k] - wi * d[k + 1];
                const double tempi = wr * d[k + 1] + wi * d[k];
                d[k] = d[i] - tempr;
                d[k + 1] = d[i + 1] - tempi;
                d[i] += tempr;
                d[i + 1] += tempi;
            }
            const double previous = wr;
            wr = wr * wpr - wi * wpi + wr;
            wi = wi * wpr + previous * wpi + wi;
        }
        mmax = istep;
    }

    if (sign == -1) {
        for (std::size_t i = 1; i <= doubles; ++i)
            d[i] /= static_cast<double>(n);
    }
}

std::optional<ComplexBuffer> spectrum(std::span<const std::int16_t> samples,
                                      std::uint32_t fftLength, const SignalWindow* window) {
    ComplexBuffer buffer(fftLength);
    const std::size_t count = std::min<std::size_t>(samples.size(), fftLength);
    double maximum = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        double value = samples[i];
        maximum = std::max(maximum, value);
        if (window)
            value *= window->getValue(static_cast<double>(i),
                                      static_cast<std::uint32_t>(samples.size()));
        buffer[i] = value;
    }
    if (maximum <= 1.0)
        return std::nullopt;
    return FourierUtils::straightFourierTransform(buffer);
}

}  // namespace

ComplexBuffer FourierUtils::fastFourierTransform(std::span<const std::complex<double>> data,
                                                 std::int16_t sign) {
    ComplexBuffer result(data.begin(), data.end());
    // std::complex<double> is laid out as two doubles, real first.
    transformInPlace(reinterpret_cast<double*>(result.data()), result.size(), sign);
    return result;
}

std::optional<ComplexBuffer> FourierUtils::calculateSpectrum(std::span<const std::int16_t> samples,
                                                             std::uint32_t fftLength) {
    return spectrum(samples, fftLength, nullptr);
}

std::optional<ComplexBuffer> FourierUtils::calculateSpectrumWithTaper(
    std::span<const std::int16_t> samples, std::uint32_t fftLength, const SignalWindow& window) {
    return spectrum(samples, fftLength, &window);
}

std::vector<double> FourierUtils::calculateVolume(std::span<const std::complex<double>> spectrum,
                                                  bool quarter) {
    const std::size_t bins = quarter ? spectrum.size() / 4 : spectrum.size() / 2;
    std::vector<double> magnitudes(bins);
    for (std::size_t k = 0; k < bins; ++k)
        magnitudes[k] = std::abs(spectrum[k]);
    return magnitudes;
}

}  // namespace zt
