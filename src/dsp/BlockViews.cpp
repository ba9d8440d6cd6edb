#include "dsp/BlockViews.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zt {

namespace {
// A note has just begun when the start of view A is this much quieter than
// the end of view B: a decay alone takes far longer.
constexpr std::size_t kEdgeSamples = 128;
constexpr double kOnsetRatio = 0.05;
// Where the note begins: the first stretch whose power reaches this share of
// the power at B's end.
constexpr std::size_t kStretch = 32;
constexpr double kStartShare = 0.1;
// A note that has sounded for less than this gives no pitch yet: two
// periods of the lowest string read (35 Hz), as fewer periods of a low
// string with a weak fundamental look like its octave.
constexpr std::size_t kMinNoteSamples = 460;
// Narrowest band of the noise estimate, bins (94 Hz at 8000 Hz).
constexpr std::size_t kNoiseBand = 24;
}  // namespace

bool BlockViews::load(std::span<const std::int16_t> block) {
    if (block.size() < kView)
        return false;
    lag_ = std::min(block.size() - kView, kMaxLag);
    const std::int16_t* viewB = block.data() + block.size() - kView;
    transform(viewB, rawB_, hannB_);
    squares_[0] = 0.0;
    for (std::size_t i = 0; i < kView; ++i)
        squares_[i + 1] = squares_[i] + static_cast<double>(time_[i]) * time_[i];

    steady_ = false;
    noteLength_ = kView;
    if (lag_ > 0) {
        // A's start against B's end, each about its own mean (B's is removed
        // in time_ already): A is transformed only when it holds the note.
        const std::int16_t* viewA = viewB - lag_;
        double sum = 0.0, squares = 0.0;
        for (std::size_t i = 0; i < kEdgeSamples; ++i) {
            sum += viewA[i];
            squares += static_cast<double>(viewA[i]) * viewA[i];
        }
        const double edgeA = squares - sum * sum / kEdgeSamples;
        steady_ = edgeA >= kOnsetRatio * (squares_[kView] - squares_[kView - kEdgeSamples]);
        if (steady_)
            transform(viewA, rawA_, hannA_);
    }
    const bool readable = steady_ || viewNoteOnly(viewB);
    for (std::size_t k = 0; k < kBins; ++k)
        magnitudes_[k] = std::sqrt(std::norm(hannB_[k]));
    return readable;
}

void BlockViews::transform(const std::int16_t* samples, std::array<std::complex<float>, kBins>& raw,
                           std::array<std::complex<float>, kBins>& hann) {
    double sum = 0.0;
    for (std::size_t i = 0; i < kView; ++i)
        sum += samples[i];
    const auto mean = static_cast<float>(sum / kView);
    for (std::size_t i = 0; i < kView; ++i)
        time_[i] = static_cast<float>(samples[i]) - mean;
    std::fill(time_.begin() + kView, time_.end(), 0.0f);
    transform_.forward(time_.data(), raw.data());

    // The periodic Hann window over kView samples is 1/2 - e^(+2i) / 4 -
    // e^(-2i) / 4 in steps of two bins of the padded transform; the
    // spectrum is mirrored at both ends.
    auto at = [&raw](std::ptrdiff_t k) {
        if (k < 0)
            return std::conj(raw[static_cast<std::size_t>(-k)]);
        if (k >= static_cast<std::ptrdiff_t>(kBins))
            return std::conj(raw[static_cast<std::size_t>(2 * (kBins - 1) - k)]);
        return raw[static_cast<std::size_t>(k)];
    };
    hann[0] = 0.5f * raw[0] - 0.25f * (at(-2) + at(2));
    hann[1] = 0.5f * raw[1] - 0.25f * (at(-1) + at(3));
    for (std::size_t k = 2; k + 2 < kBins; ++k)
        hann[k] = 0.5f * raw[k] - 0.25f * (raw[k - 2] + raw[k + 2]);
    for (std::size_t k = kBins - 2; k < kBins; ++k) {
        const auto i = static_cast<std::ptrdiff_t>(k);
        hann[k] = 0.5f * raw[k] - 0.25f * (at(i - 2) + at(i + 2));
    }
}

bool BlockViews::viewNoteOnly(const std::int16_t* samples) {
    const double endPower = (squares_[kView] - squares_[kView - kEdgeSamples]) / kEdgeSamples;
    std::size_t start = 0;
    while (start + kStretch < kView &&
           squares_[start + kStretch] - squares_[start] < kStartShare * endPower * kStretch)
        start += kStretch;
    if (start == 0)
        return true;
    const std::size_t length = kView - start;
    if (length < kMinNoteSamples)
        return false;
    noteLength_ = length;

    double sum = 0.0;
    for (std::size_t i = start; i < kView; ++i)
        sum += samples[i];
    const double mean = sum / static_cast<double>(length);
    // The window's cosine by rotation, one complex product a sample.
    const std::complex<double> turn =
        std::polar(1.0, 2.0 * std::numbers::pi / static_cast<double>(length));
    std::complex<double> phasor = 1.0;
    for (std::size_t i = 0; i < length; ++i) {
        time_[i] = static_cast<float>((samples[start + i] - mean) * (0.5 - 0.5 * phasor.real()));
        phasor *= turn;
    }
    std::fill(time_.begin() + static_cast<std::ptrdiff_t>(length), time_.end(), 0.0f);
    transform_.forward(time_.data(), hannB_.data());
    // The scale of a sinusoid in the whole of B.
    const auto scale = static_cast<float>(static_cast<double>(kView) / length);
    for (auto& bin : hannB_)
        bin *= scale;
    return true;
}

void BlockViews::estimateNoise(std::size_t lowBin) {
    // Lower quartile to median of a Rayleigh distribution:
    // sqrt(ln 2 / -ln(3/4)).
    constexpr double kQuartileToMedian = 1.5524;
    std::size_t previous = lowBin;
    double previousLevel = -1.0;
    for (std::size_t start = lowBin; start < kBins;) {
        std::size_t width = std::max(kNoiseBand, start / 4);
        if (start + 2 * width > kBins)
            width = kBins - start;
        std::copy(magnitudes_.begin() + static_cast<std::ptrdiff_t>(start),
                  magnitudes_.begin() + static_cast<std::ptrdiff_t>(start + width),
                  sampled_.begin());
        const auto quartile = sampled_.begin() + static_cast<std::ptrdiff_t>(width / 4);
        std::nth_element(sampled_.begin(), quartile,
                         sampled_.begin() + static_cast<std::ptrdiff_t>(width));
        const double level = *quartile * kQuartileToMedian;
        const std::size_t centre = start + width / 2;
        if (previousLevel < 0.0)
            previousLevel = level;
        for (std::size_t k = previous; k < centre; ++k)
            noise_[k] = static_cast<float>(
                previousLevel + (level - previousLevel) * static_cast<double>(k - previous) /
                                    static_cast<double>(centre - previous));
        previous = centre;
        previousLevel = level;
        start += width;
    }
    std::fill(noise_.begin() + static_cast<std::ptrdiff_t>(previous), noise_.end(),
              static_cast<float>(previousLevel));
}

}  // namespace zt
