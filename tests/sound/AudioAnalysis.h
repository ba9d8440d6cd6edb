#pragma once
// Measurements on recorded or generated sound for the sound tests.

#include <cstddef>
#include <filesystem>
#include <span>
#include <vector>

namespace zt::testing {

struct Recording {
    std::vector<float> samples;  // mono (channels averaged)
    int rate = 0;
    int channels = 0;
    int format = 0;  // libsndfile format word
};

// The whole file; empty samples when it cannot be read.
Recording readSound(const std::filesystem::path& path);

// Frequency in hertz of the strongest sinusoid within +-4 % of `guess`:
// the maximum of the Hann-windowed spectrum, searched continuously, so the
// answer is not limited to FFT bins.
double toneFrequency(std::span<const float> samples, int rate, double guess);
// Amplitude of the sinusoid at `frequency` (Hann window, 1.0 for a full-scale sine).
double toneAmplitude(std::span<const float> samples, int rate, double frequency);

double rms(std::span<const float> samples);
double peak(std::span<const float> samples);
double cents(double frequency, double reference);
// First index whose magnitude exceeds `threshold`; size() when none does.
size_t onset(std::span<const float> samples, float threshold);
// Magnitude spectrum (size/2 bins) of the samples zero-padded to `size`, a power of two.
std::vector<double> magnitudeSpectrum(std::span<const float> samples, size_t size);

// Samples [from, to) seconds after `start`, clipped to the recording.
std::span<const float> window(const Recording& recording, size_t start, double from, double to);

}  // namespace zt::testing
