#pragma once
// The fine detector, our own, used by the live tuner unless classic detection
// is chosen. It reads the block's samples rather than the classic spectrum.
//
// Two views of the block, its newest 1024 samples (B) and the 1024 that end
// `lag` samples earlier (A, 976 samples earlier in a 2000-sample block), are
// transformed with zero padding to 2048 points.
//   1. Period: McLeod's normalised square difference of B (PeriodEstimate)
//      gives a coarse fundamental and the block's clarity. It is read in the
//      time domain, so a weak or missing fundamental does not matter.
//   2. Partials: near each multiple of the fundamental the Hann-windowed
//      spectrum of B is searched for a peak. Its frequency comes from the
//      phase it advanced between A and B, exact for a steady or decaying
//      partial whatever its place between bins; where A does not hold the
//      partial yet (a note that has just begun) from a parabola through the
//      log magnitudes of B instead.
//   3. Fit: the partials' frequencies are fitted with the stiff-string law
//      (HarmonicFit), which gives the first partial even when the string's
//      overtones run sharp.
// The result is the first partial's frequency; no pitch when the block's
// strongest partial is under the gate or the block is not periodic enough.
//
// Sensitivity: the gate is the classic threshold scale lowered by kGateRatio,
// as the clarity test rejects noise that the classic detector could only
// keep out by level. Level: the strongest partial is expressed on the
// classic spectrum's scale for the chosen window, so the 0 ... 10 level and
// the percentage level read as with the classic detector.

#include <array>
#include <complex>
#include <cstdint>
#include <span>

#include "dsp/FourierPDA.h"
#include "dsp/HarmonicFit.h"
#include "dsp/RealTransform.h"

namespace zt {

class FinePDA final : public FourierPDA {
public:
    static constexpr std::size_t kView = 1024;
    static constexpr std::size_t kTransform = 2048;
    static constexpr std::size_t kMaxLag = 976;
    static constexpr std::size_t kBins = kTransform / 2 + 1;
    static constexpr double kGateRatio = 1.0 / 8.0;
    static constexpr double kMinClarity = 0.5;

    explicit FinePDA(const TaperSettings& settings);
    static FinePDA& getInstance(const TaperSettings& settings);

    bool readsSamples() const override { return true; }
    void loadSamples(std::span<const std::int16_t> samples, std::uint32_t sampleRate) override;

    // Of the last analysis: how periodic the block was (0 ... 1) and the
    // fitted inharmonicity.
    double clarity() const { return clarity_; }
    double inharmonicity() const { return fit_.inharmonicity(); }

private:
    // Samples without their mean, zero-padded, transformed; its Hann-windowed
    // spectrum derived from the transform.
    void transformView(const std::int16_t* samples, std::array<std::complex<float>, kBins>& raw,
                       std::array<std::complex<float>, kBins>& hann);
    // For a note that begins within view B, B's spectrum becomes that of
    // the note alone; false when it has not sounded long enough.
    bool viewNoteOnly(const std::int16_t* samples);
    bool findPeriod(double& coarse);
    // The median magnitude of B's spectrum from lowBin up, sampled.
    double noiseMagnitude(std::size_t lowBin);
    // The frequency of the peak at bin k and its weight; false when the peak
    // has no usable shape.
    bool measurePartial(std::size_t k, std::size_t lag, double noise, Partial& partial) const;
    void findPartials(double coarse, std::size_t lag);
    void settleHarmonicNumbers();
    double classicScale(std::size_t blockLength);

    RealTransform transform_{kTransform};
    std::array<float, kTransform> time_{};
    std::array<double, kView + 1> squares_{};
    std::array<std::complex<float>, kBins> rawA_{}, rawB_{}, hannA_{}, hannB_{};
    std::array<float, kBins> magnitudeB_{};
    std::array<std::complex<float>, kBins> power_{};
    std::array<float, kTransform> autocorrelation_{};
    std::array<float, kBins / 4 + 1> sampled_{};
    HarmonicFit fit_;
    double clarity_ = 0.0;
    // View A holds the same note as B (it has not just begun).
    bool steady_ = false;
    // Samples of the note in view B's spectrum.
    std::size_t noteLength_ = kView;
    double sampleRate_ = 8000.0;

    const SignalWindow* scaleWindow_ = nullptr;
    std::size_t scaleLength_ = 0;
    double scaleSum_ = 0.0;
};

}  // namespace zt
