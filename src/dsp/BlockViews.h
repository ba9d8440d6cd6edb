#pragma once
// The fine detector's two views of a block and their spectra. B is the
// block's newest kView samples, A the kView samples ending `lag` earlier
// (976 in a 2000-sample block); each loses its mean and is transformed with
// zero padding to kTransform points, and its Hann-windowed spectrum is
// derived from that transform (three taps per bin).
//
// A note that has just begun (A's start much quieter than B's end) is not
// steady: A is not to be compared with B, and B's spectrum is replaced by
// that of the note alone, under a Hann window of the note's own length, so
// that the note's sharp start does not leak.
//
// All buffers are made with the object; nothing allocates afterwards.

#include <array>
#include <complex>
#include <cstdint>
#include <span>

#include "dsp/RealTransform.h"

namespace zt {

class BlockViews {
public:
    static constexpr std::size_t kView = 1024;
    static constexpr std::size_t kTransform = 2048;
    static constexpr std::size_t kBins = kTransform / 2 + 1;
    static constexpr std::size_t kMaxLag = 976;

    // False when the block is too short, or the note in it has sounded for
    // too short a time to be read.
    bool load(std::span<const std::int16_t> block);

    std::size_t lag() const { return lag_; }
    // A holds the same note as B.
    bool steady() const { return steady_; }
    // Samples of the note behind B's spectrum (kView unless it has just begun).
    std::size_t noteLength() const { return noteLength_; }

    // B's unwindowed transform, for its autocorrelation.
    const std::array<std::complex<float>, kBins>& rawB() const { return rawB_; }
    // squares[j]: the sum of the squares of B's first j samples (mean removed).
    const std::array<double, kView + 1>& squares() const { return squares_; }
    // |Hann spectrum of B|, on the scale of a sinusoid of amplitude a showing
    // a kView / 4.
    const std::array<float, kBins>& magnitudes() const { return magnitudes_; }
    // The phase advance of bin k from A to B; B's spectrum at k.
    std::complex<float> hannA(std::size_t k) const { return hannA_[k]; }
    std::complex<float> hannB(std::size_t k) const { return hannB_[k]; }

    // The inverse transform of kBins bins into kTransform values, unnormalised.
    void inverse(const std::complex<float>* bins, float* values) const {
        transform_.inverse(bins, values);
    }

    // The noise under each bin from lowBin up, as the median magnitude of
    // noise alone would read: the lower quartile of bands a quarter of an
    // octave wide (at least kNoiseBand bins), which partials standing at
    // most every other main lobe do not reach, scaled to the median of a
    // Rayleigh distribution, and interpolated between the bands' centres.
    // Coloured noise (pink, a fan's hum) is then judged where it lies.
    void estimateNoise(std::size_t lowBin);
    float noise(std::size_t k) const { return noise_[k]; }

private:
    void transform(const std::int16_t* samples, std::array<std::complex<float>, kBins>& raw,
                   std::array<std::complex<float>, kBins>& hann);
    // B's spectrum from the note alone; false when it is too short.
    bool viewNoteOnly(const std::int16_t* samples);

    RealTransform transform_{kTransform};
    std::array<float, kTransform> time_{};
    std::array<double, kView + 1> squares_{};
    std::array<std::complex<float>, kBins> rawA_{}, rawB_{}, hannA_{}, hannB_{};
    std::array<float, kBins> magnitudes_{};
    std::array<float, kBins> sampled_{};
    std::array<float, kBins> noise_{};
    std::size_t lag_ = 0;
    bool steady_ = false;
    std::size_t noteLength_ = kView;
};

}  // namespace zt
