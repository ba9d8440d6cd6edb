#include "dsp/FinePDA.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "dsp/PeriodEstimate.h"

namespace zt {

namespace {

constexpr double kPi = std::numbers::pi;
// Range of fundamentals searched, Hz.
constexpr double kLowest = 35.0;
constexpr double kHighest = 2100.0;
// Partials are looked for below this share of the sample rate, up to this
// many multiples of half the period's fundamental.
constexpr double kPartialLimit = 0.4875;
constexpr int kMaxSlots = 40;
// A peak counts as a partial when it stands this far above the spectrum's
// median magnitude (the noise) and within this ratio of the strongest...
constexpr double kFloorOverNoise = 4.0;
constexpr double kFloorOverStrongest = 3e-3;
// ...and is no side lobe: at least this share of the largest magnitude
// within a main lobe and a half of it (the window's side lobes are under
// -31 dB; a Hann window of n samples has a main lobe of 4 / n of the sample
// rate).
constexpr double kLobeShare = 0.05;
// A partial whose view A holds less than this share of its magnitude in B
// has just begun: its phase advance is not yet to be trusted.
constexpr double kSteadyRatio = 0.5;
// A note has just begun when the start of view A is this much quieter than
// the end of view B (a decay alone takes far longer), or louder: a note
// played over another.
constexpr std::size_t kEdgeSamples = 128;
constexpr double kOnsetRatio = 0.05;
// A note that has sounded for less than this gives no pitch yet.
constexpr std::size_t kMinNoteSamples = 320;
// How far partials above the first stray from the stiff-string law, as a
// share of their frequency (one cent); the first partial is the pitch itself.
constexpr double kModelSpread = 5.8e-4;
// Partials further than this from the fit are dropped and the fit redone.
constexpr double kOutlierCents = 15.0;

double wrapPhase(double phase) {
    return phase - 2.0 * kPi * std::floor((phase + kPi) / (2.0 * kPi));
}

}  // namespace

FinePDA::FinePDA(const TaperSettings& settings) : FourierPDA(50.0, 200.0, settings) {}

void FinePDA::transformView(const std::int16_t* samples,
                            std::array<std::complex<float>, kBins>& raw,
                            std::array<std::complex<float>, kBins>& hann) {
    double mean = 0.0;
    for (std::size_t i = 0; i < kView; ++i)
        mean += samples[i];
    mean /= kView;
    for (std::size_t i = 0; i < kView; ++i)
        time_[i] = static_cast<float>(samples[i] - mean);
    std::fill(time_.begin() + kView, time_.end(), 0.0f);
    transform_.forward(time_.data(), raw.data());

    // The periodic Hann window over kView samples is 1/2 - e^(+2i) / 4 -
    // e^(-2i) / 4 in steps of two bins of the padded transform, so its
    // spectrum is three taps of the unwindowed one (mirrored at both ends).
    auto at = [&raw](std::ptrdiff_t k) {
        if (k < 0)
            return std::conj(raw[static_cast<std::size_t>(-k)]);
        if (k >= static_cast<std::ptrdiff_t>(kBins))
            return std::conj(raw[static_cast<std::size_t>(2 * (kBins - 1) - k)]);
        return raw[static_cast<std::size_t>(k)];
    };
    for (std::size_t k = 0; k < kBins; ++k) {
        const auto i = static_cast<std::ptrdiff_t>(k);
        hann[k] = 0.5f * raw[k] - 0.25f * (at(i - 2) + at(i + 2));
    }
}

bool FinePDA::viewNoteOnly(const std::int16_t* samples) {
    // Where the note begins in B: the first stretch whose power reaches a
    // tenth of the power at B's end.
    constexpr std::size_t kStretch = 32;
    const double endPower = (squares_[kView] - squares_[kView - kEdgeSamples]) / kEdgeSamples;
    std::size_t start = 0;
    while (start + kStretch < kView &&
           squares_[start + kStretch] - squares_[start] < 0.1 * endPower * kStretch)
        start += kStretch;
    const std::size_t length = kView - start;
    if (start == 0)
        return true;
    if (length < kMinNoteSamples)
        return false;
    noteLength_ = length;

    // B's spectrum replaced by that of the note alone under a Hann window of
    // its own length: the window over all of B would cut the note off with
    // its sharp start, and leak.
    double mean = 0.0;
    for (std::size_t i = start; i < kView; ++i)
        mean += samples[i];
    mean /= static_cast<double>(length);
    const std::complex<double> turn = std::polar(1.0, 2.0 * kPi / static_cast<double>(length));
    std::complex<double> phasor = 1.0;
    for (std::size_t i = 0; i < length; ++i) {
        time_[i] = static_cast<float>((samples[start + i] - mean) * (0.5 - 0.5 * phasor.real()));
        phasor *= turn;
    }
    std::fill(time_.begin() + static_cast<std::ptrdiff_t>(length), time_.end(), 0.0f);
    transform_.forward(time_.data(), hannB_.data());
    // Same scale as a sinusoid in the whole of B.
    const auto scale = static_cast<float>(static_cast<double>(kView) / length);
    for (auto& bin : hannB_)
        bin *= scale;
    return true;
}

double FinePDA::classicScale(std::size_t blockLength) {
    if (taper != scaleWindow_ || blockLength != scaleLength_) {
        scaleSum_ = 0.0;
        for (std::size_t i = 0; i < blockLength; ++i) {
            scaleSum_ += taper ? taper->getValue(static_cast<double>(i),
                                                 static_cast<std::uint32_t>(blockLength))
                               : 1.0;
        }
        scaleWindow_ = taper;
        scaleLength_ = blockLength;
    }
    // A sinusoid of amplitude a shows |X| = a kView / 4 in B's Hann spectrum
    // and a * sum(window) / 2 / 4096 in the classic one.
    return 4.0 / kView * scaleSum_ / (2.0 * 4096.0);
}

bool FinePDA::findPeriod(double& coarse) {
    for (std::size_t k = 0; k < kBins; ++k)
        power_[k] = std::norm(rawB_[k]);
    transform_.inverse(power_.data(), autocorrelation_.data());
    for (float& value : autocorrelation_)
        value /= static_cast<float>(kTransform);

    const auto minLag = static_cast<std::size_t>(std::max(2.0, std::floor(sampleRate_ / kHighest)));
    const auto maxLag = static_cast<std::size_t>(std::ceil(sampleRate_ / kLowest));
    const auto period =
        estimatePeriod(autocorrelation_.data(), squares_.data(), kView, minLag, maxLag, 0.9);
    if (!period)
        return false;
    clarity_ = period->clarity;
    coarse = sampleRate_ / period->lag;
    return clarity_ >= kMinClarity;
}

double FinePDA::noiseMagnitude(std::size_t lowBin) {
    std::size_t count = 0;
    for (std::size_t k = lowBin; k < kBins; k += 4)
        sampled_[count++] = magnitudeB_[k];
    std::nth_element(sampled_.begin(), sampled_.begin() + count / 2, sampled_.begin() + count);
    return sampled_[count / 2];
}

bool FinePDA::measurePartial(std::size_t k, std::size_t lag, double noise, Partial& partial) const {
    const double binHz = sampleRate_ / kTransform;
    const double peak = magnitudeB_[k];
    // The frequency from the phase B advanced over A, for a partial that A
    // holds as well: exact for a steady or decaying sinusoid.
    if (steady_ && std::abs(hannA_[k]) >= kSteadyRatio * peak) {
        const double advance = std::arg(hannB_[k] * std::conj(hannA_[k]));
        const double expected = 2.0 * kPi * static_cast<double>(k * lag) / kTransform;
        const double offset = wrapPhase(advance - expected) * kTransform / (2.0 * kPi * lag);
        if (std::fabs(offset) <= 1.5) {
            partial.frequency = (k + offset) * binHz;
            const double spread = noise / peak * sampleRate_ / (2.0 * kPi * lag);
            partial.weight = 1.0 / (spread * spread);
            return true;
        }
    }
    // Otherwise a parabola through the log magnitudes around the peak.
    const double l = std::log(magnitudeB_[k - 1]);
    const double c = std::log(peak);
    const double r = std::log(magnitudeB_[k + 1]);
    const double curvature = l - 2.0 * c + r;
    if (!(curvature < 0.0))
        return false;
    partial.frequency = (k + std::clamp(0.5 * (l - r) / curvature, -1.0, 1.0)) * binHz;
    const double spread = noise / peak * binHz;
    partial.weight = 1.0 / (spread * spread);
    return true;
}

void FinePDA::findPartials(double coarse, std::size_t lag) {
    const double binHz = sampleRate_ / kTransform;
    const auto lowBin = static_cast<std::size_t>(kLowest * 0.8 / binHz);
    const double strongest = *std::max_element(magnitudeB_.begin() + lowBin, magnitudeB_.end());
    // The noise of one windowed bin, never quite zero.
    const double noise = std::max(noiseMagnitude(lowBin), 1e-6 * strongest);
    const double floor = std::max(kFloorOverNoise * noise, kFloorOverStrongest * strongest);
    const std::size_t lobeBins = 6 * kTransform / noteLength_;

    // Partials are sought at every multiple of half the fundamental the
    // period gave, so that a period read at half its length (a strong second
    // partial over a weak fundamental) is caught by the odd multiples.
    const double grid = coarse / 2.0;
    fit_.clear();
    for (int slot = 1; slot <= kMaxSlots; ++slot) {
        const double target = fit_.size() > 0 ? fit_.predict(slot) : slot * grid;
        if (target > kPartialLimit * sampleRate_)
            break;
        const double tolerance = std::max(2.0 * binHz, std::min(0.03 * target, 0.3 * grid));
        const auto first = static_cast<std::size_t>(std::max(1.0, (target - tolerance) / binHz));
        const auto last =
            std::min(kBins - 2, static_cast<std::size_t>((target + tolerance) / binHz));
        if (first > last)
            continue;
        const std::size_t k = static_cast<std::size_t>(
            std::max_element(magnitudeB_.begin() + first, magnitudeB_.begin() + last + 1) -
            magnitudeB_.begin());
        const double peak = magnitudeB_[k];
        if (peak < floor || peak < magnitudeB_[k - 1] || peak < magnitudeB_[k + 1])
            continue;
        const auto near = std::max_element(magnitudeB_.begin() + std::max(k, lobeBins) - lobeBins,
                                           magnitudeB_.begin() + std::min(k + lobeBins, kBins - 1));
        if (peak < kLobeShare * *near)
            continue;
        Partial partial{slot, 0.0, 0.0, peak};
        if (!measurePartial(k, lag, noise, partial))
            continue;
        fit_.add(partial);
        fit_.solve();
    }
    if (fit_.size() == 0)
        return;
    settleHarmonicNumbers();

    for (std::size_t i = fit_.size(); i-- > 0;) {
        if (fit_.size() > 1 && std::fabs(fit_.residualCents(i)) > kOutlierCents)
            fit_.remove(i);
    }
    // Above the first partial the law holds to about a cent.
    for (std::size_t i = 0; i < fit_.size(); ++i) {
        Partial& p = fit_.at(i);
        if (p.harmonic > 1) {
            const double model = kModelSpread * p.frequency;
            p.weight = 1.0 / (1.0 / p.weight + model * model);
        }
    }
    fit_.solve();
}

void FinePDA::settleHarmonicNumbers() {
    // The fundamental is the finest grid that all partials stand on: partials
    // only on every second (or third...) multiple of the grid are the
    // harmonics of that multiple.
    for (bool regrouped = true; regrouped;) {
        regrouped = false;
        for (int divisor : {2, 3}) {
            bool onGrid = true;
            for (std::size_t i = 0; i < fit_.size() && onGrid; ++i) {
                onGrid = fit_[i].harmonic % divisor == 0;
            }
            if (onGrid) {
                fit_.regroup(divisor);
                regrouped = fit_.size() > 0;
                break;
            }
        }
    }
    fit_.solve();
}

void FinePDA::loadSamples(std::span<const std::int16_t> samples, std::uint32_t sampleRate) {
    fundamentalFrequency = NO_FREQUENCY;
    fundamentalVolume = 0.0;
    clarity_ = 0.0;
    fit_.clear();
    sampleRate_ = sampleRate;
    if (samples.size() < kView) {
        updateVolumeLevel();
        return;
    }
    const std::size_t lag = std::min(samples.size() - kView, kMaxLag);
    const std::int16_t* viewB = samples.data() + samples.size() - kView;
    transformView(viewB, rawB_, hannB_);
    squares_[0] = 0.0;
    for (std::size_t i = 0; i < kView; ++i)
        squares_[i + 1] = squares_[i] + static_cast<double>(time_[i]) * time_[i];
    steady_ = false;
    noteLength_ = kView;
    if (lag > 0) {
        transformView(viewB - lag, rawA_, hannA_);
        double edgeA = 0.0;
        for (std::size_t i = 0; i < kEdgeSamples; ++i)
            edgeA += static_cast<double>(time_[i]) * time_[i];
        const double edgeB = squares_[kView] - squares_[kView - kEdgeSamples];
        steady_ = edgeA >= kOnsetRatio * edgeB;
    }
    const bool longEnough = steady_ || viewNoteOnly(viewB);
    for (std::size_t k = 0; k < kBins; ++k)
        magnitudeB_[k] = std::abs(hannB_[k]);

    const double binHz = sampleRate_ / kTransform;
    const auto lowBin = static_cast<std::size_t>(kLowest * 0.8 / binHz);
    const float strongest = *std::max_element(magnitudeB_.begin() + lowBin, magnitudeB_.end());
    fundamentalVolume = strongest * classicScale(samples.size());

    double coarse = 0.0;
    if (longEnough && fundamentalVolume >= kGateRatio * treshold && findPeriod(coarse)) {
        findPartials(coarse, lag);
        if (fit_.size() > 0)
            fundamentalFrequency = fit_.predict(1);
    }
    updateVolumeLevel();
}

}  // namespace zt
