#pragma once
// A radix-2 fast Fourier transform on complex doubles, the spectrum of a
// block of 16-bit samples with or without a tapering window, and spectrum
// magnitudes. Every operation returns a new buffer owned by the caller.
//
// The forward transform is normalised: X[k] = (1/n) sum_j x[j] e^(-2 pi i j k / n);
// the inverse is the plain sum with e^(+2 pi i j k / n). n must be a power of two.

#include <complex>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace zt {

class SignalWindow;

using ComplexBuffer = std::vector<std::complex<double>>;

class FourierUtils {
public:
    // sign -1: forward, normalised by 1/n; sign +1: inverse, not normalised.
    static ComplexBuffer fastFourierTransform(std::span<const std::complex<double>> data,
                                              std::int16_t sign);
    static ComplexBuffer straightFourierTransform(std::span<const std::complex<double>> data) {
        return fastFourierTransform(data, -1);
    }
    static ComplexBuffer inverseFourierTransform(std::span<const std::complex<double>> data) {
        return fastFourierTransform(data, +1);
    }

    // The forward transform of the samples zero-padded to fftLength values;
    // nullopt for a silent block, one whose largest sample (signed, not
    // absolute) is not above 1.
    static std::optional<ComplexBuffer> calculateSpectrum(std::span<const std::int16_t> samples,
                                                          std::uint32_t fftLength);
    // The same with each sample weighted by the window over samples.size().
    static std::optional<ComplexBuffer> calculateSpectrumWithTaper(
        std::span<const std::int16_t> samples, std::uint32_t fftLength, const SignalWindow& window);

    // Magnitudes of the first n/2 bins, or of the first n/4 when quarter.
    static std::vector<double> calculateVolume(std::span<const std::complex<double>> spectrum,
                                               bool quarter);
};

}  // namespace zt
