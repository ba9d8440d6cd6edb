#include "dsp/FinePDA.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "dsp/PeriodEstimate.h"

namespace zt {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr std::size_t kView = BlockViews::kView;
constexpr std::size_t kTransform = BlockViews::kTransform;
constexpr std::size_t kBins = BlockViews::kBins;
// Range of fundamentals searched, Hz.
constexpr double kLowest = 35.0;
constexpr double kHighest = 2100.0;
// Partials are looked for below this share of the sample rate.
constexpr double kPartialLimit = 0.4875;
// Partials are first sought at every multiple of a kGridDivisions-th of the
// period's fundamental, up to kProbed times that fundamental.
constexpr int kProbed = 4;
// A peak counts as a partial when it stands this far above the noise and
// within this ratio of the strongest...
constexpr double kFloorOverNoise = 4.0;
constexpr double kFloorOverStrongest = 3e-3;
// ...and is no side lobe: at least this share of the largest magnitude
// within a main lobe and a half of it (Hann side lobes are under -31 dB; a
// Hann window of n samples has a main lobe 4 / n of the rate wide).
constexpr double kLobeShare = 0.05;
// Below the period's fundamental, a peak that view A (122 ms earlier in the
// same block) holds at least kFloorOverNoise above the noise needs only this
// much in B: a weak fundamental sinking into the noise late in a note is
// still there, and noise seldom stands out at the same bin in both views.
constexpr double kFloorOverNoiseHeldInA = 2.0;
// Where a held note puts its fundamental, a peak needs only this much: the
// search looks at one place the note has already shown, not the whole block.
constexpr double kFloorOverNoiseExpected = 3.0;
// A partial whose view A holds less than this share of its magnitude in B
// has just begun: its phase advance is not yet to be trusted.
constexpr double kSteadyRatio = 0.5;
// Partials further than this from the fit are dropped and the fit redone.
constexpr double kOutlierCents = 15.0;
// A period that gives no note is tried divided by up to this many, where the
// block repeats within this much as well after the shorter one.
constexpr int kPeriodFractions = 8;
constexpr double kFractionTolerance = 0.03;

double wrapPhase(double phase) {
    return phase - 2.0 * kPi * std::floor((phase + kPi) / (2.0 * kPi));
}

}  // namespace

FinePDA::FinePDA(const TaperSettings& settings) : FourierPDA(50.0, 200.0, settings) {}

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
    // A sinusoid of amplitude a shows a kView / 4 in B and a * sum(window)
    // / 2 / 4096 in the classic spectrum.
    return 4.0 / kView * scaleSum_ / (2.0 * 4096.0);
}

bool FinePDA::findPeriod(double& coarse) {
    const auto minLag = static_cast<std::size_t>(std::max(2.0, std::floor(sampleRate_ / kHighest)));
    const auto maxLag = static_cast<std::size_t>(std::ceil(sampleRate_ / kLowest));
    for (std::size_t k = 0; k < kBins; ++k) {
        powerSpectrum_[k] = std::norm(views_.rawB()[k]);
        power_[k] = powerSpectrum_[k];
    }
    views_.inverse(power_.data(), autocorrelation_.data());
    for (std::size_t lag = 0; lag <= maxLag + 1; ++lag)
        autocorrelation_[lag] /= static_cast<float>(kTransform);

    const auto period = estimatePeriod(autocorrelation_.data(), views_.squares().data(), kView,
                                       minLag, maxLag, 0.9);
    if (!period)
        return false;
    clarity_ = period->clarity;
    periodLag_ = period->lag;
    coarse = sampleRate_ / period->lag;
    return clarity_ >= kMinClarity;
}

bool FinePDA::measurePartial(std::size_t k, double noise, Partial& partial) const {
    const double binHz = sampleRate_ / kTransform;
    const auto& magnitudes = views_.magnitudes();
    const double peak = magnitudes[k];
    const std::size_t lag = views_.lag();
    if (views_.steady() && std::abs(views_.hannA(k)) >= kSteadyRatio * peak) {
        const double advance = std::arg(views_.hannB(k) * std::conj(views_.hannA(k)));
        const double expected = 2.0 * kPi * static_cast<double>(k * lag) / kTransform;
        const double offset = wrapPhase(advance - expected) * kTransform / (2.0 * kPi * lag);
        if (std::fabs(offset) <= 1.5) {
            partial.frequency = (k + offset) * binHz;
            const double spread = noise / peak * sampleRate_ / (2.0 * kPi * lag);
            partial.weight = 1.0 / (spread * spread);
            return true;
        }
    }
    const double l = std::log(magnitudes[k - 1]);
    const double c = std::log(peak);
    const double r = std::log(magnitudes[k + 1]);
    const double curvature = l - 2.0 * c + r;
    if (!(curvature < 0.0))
        return false;
    partial.frequency = (k + std::clamp(0.5 * (l - r) / curvature, -1.0, 1.0)) * binHz;
    const double spread = noise / peak * binHz;
    partial.weight = 1.0 / (spread * spread);
    return true;
}

bool FinePDA::partialNear(double target, double spacing, int number, Partial& partial, bool below,
                          bool expected) const {
    const double binHz = sampleRate_ / kTransform;
    const auto& magnitudes = views_.magnitudes();
    const double tolerance = std::max(2.0 * binHz, std::min(0.03 * target, 0.3 * spacing));
    const auto first =
        static_cast<std::size_t>(std::max(kLowest * 0.8, target - tolerance) / binHz);
    const auto last = std::min(kBins - 2, static_cast<std::size_t>((target + tolerance) / binHz));
    if (first > last)
        return false;
    const auto k = static_cast<std::size_t>(
        std::max_element(magnitudes.begin() + first, magnitudes.begin() + last + 1) -
        magnitudes.begin());
    const double peak = magnitudes[k];
    const double noise = std::max<double>(views_.noise(k), search_.noise);
    const bool heldInA =
        below && views_.steady() && std::abs(views_.hannA(k)) >= kFloorOverNoise * noise;
    double over = heldInA ? kFloorOverNoiseHeldInA : kFloorOverNoise;
    if (expected)
        over = std::min(over, kFloorOverNoiseExpected);
    const double floor = over * noise;
    if (peak < std::max(floor, search_.floor) || peak < magnitudes[k - 1] ||
        peak < magnitudes[k + 1])
        return false;
    const std::size_t lobe = search_.lobeBins;
    const auto near = std::max_element(magnitudes.begin() + std::max(k, lobe) - lobe,
                                       magnitudes.begin() + std::min(k + lobe, kBins - 1));
    if (peak < kLobeShare * *near)
        return false;
    partial = {number, 0.0, 0.0, peak};
    // A peak nearer another multiple belongs to that one.
    return measurePartial(k, noise, partial) &&
           std::fabs(partial.frequency - target) < 0.5 * spacing;
}

void FinePDA::findPartials(double coarse) {
    const double binHz = sampleRate_ / kTransform;
    const auto& magnitudes = views_.magnitudes();
    const auto lowBin = static_cast<std::size_t>(kLowest * 0.8 / binHz);
    const double strongest = *std::max_element(magnitudes.begin() + lowBin, magnitudes.end());
    // The noise of one bin, never quite zero.
    views_.estimateNoise(lowBin);
    search_.noise = 1e-6 * strongest;
    search_.floor = kFloorOverStrongest * strongest;
    search_.lobeBins = 6 * kTransform / views_.noteLength();
    const double limit = kPartialLimit * sampleRate_;

    // 1. Which multiples of a sixth of the period's fundamental hold
    // partials, up to kProbed times that fundamental: a period read two or
    // three times too short shows partials off its own multiples, one read
    // too long none on most of them.
    const double grid = coarse / kGridDivisions;
    fit_.clear();
    Partial partial;
    for (int slot = 1; slot <= kProbed * kGridDivisions; ++slot) {
        const double target = slot * grid;
        if (target > limit)
            break;
        if (partialNear(target, grid, slot, partial, slot < kGridDivisions))
            fit_.add(partial);
    }
    if (fit_.size() == 0)
        return;
    const int divisor = settleHarmonicNumbers();
    if (fit_.size() == 0)
        return;

    // 2. The partials above, on the fundamental's own multiples.
    for (int h = kProbed * kGridDivisions / divisor + 1; fit_.size() < HarmonicFit::kCapacity;
         ++h) {
        const double target = fit_.predict(h);
        if (!(target <= limit))
            break;
        if (partialNear(target, fit_.f0(), h, partial)) {
            fit_.add(partial);
            fit_.solve();
        }
    }
    // A stray peak taken for a partial bends the fit towards itself, the more
    // so the higher up the series it lies, so that the true partials seem to
    // stray instead (a strong fundamental 16 cents off a fit that a stray
    // 9th partial has stretched): each partial is judged against the fit of
    // the others, the worst dropped first and the rest judged again.
    std::array<double, HarmonicFit::kCapacity> residuals{};
    double strongestDropped = 0.0;
    while (fit_.size() > 1) {
        if (fit_.size() > 2) {
            fit_.deletedResidualsCents(residuals);
        } else {
            for (std::size_t i = 0; i < fit_.size(); ++i)
                residuals[i] = fit_.residualCents(i);
        }
        std::size_t worst = 0;
        for (std::size_t i = 1; i < fit_.size(); ++i) {
            if (std::fabs(residuals[i]) > std::fabs(residuals[worst]))
                worst = i;
        }
        if (std::fabs(residuals[worst]) <= kOutlierCents)
            break;
        strongestDropped = std::max(strongestDropped, fit_[worst].amplitude);
        fit_.remove(worst);
        fit_.solve();
    }
    // A peak dropped there was no partial, and so no evidence of a lower
    // fundamental either: a component near a sub-harmonic (a sample's
    // release, a body resonance) can lead the period to a multiple of the
    // note's, with nothing else standing on that longer period's multiples,
    // so the partials kept are numbered again. Not when the strongest peak
    // was dropped (a block of clashing components, an attack) nor for a series
    // that only the renumbering would make sound in its first partials.
    if (strongestDropped > 0.0 && strongestDropped < fit_.strongestAmplitude() && soundsLow())
        climbHarmonicNumbers(periodLag_ * kGridDivisions / divisor);
    for (std::size_t i = 0; i < fit_.size(); ++i)
        addModelSpread(fit_.at(i));
    fit_.solve();
    // A series whose partials all stand high up it is no note: it is what
    // stray components (a render's aliases, say) leave when they happen to
    // share a long period.
    if (!soundsLow())
        fit_.clear();
}

void FinePDA::loadSamples(std::span<const std::int16_t> samples, std::uint32_t sampleRate) {
    fundamentalFrequency = NO_FREQUENCY;
    fundamentalVolume = 0.0;
    clarity_ = 0.0;
    fit_.clear();
    sampleRate_ = sampleRate;
    const bool readable = views_.load(samples);
    if (samples.size() >= kView) {
        const auto& magnitudes = views_.magnitudes();
        const auto lowBin = static_cast<std::size_t>(kLowest * 0.8 / (sampleRate_ / kTransform));
        fundamentalVolume = *std::max_element(magnitudes.begin() + lowBin, magnitudes.end()) *
                            classicScale(samples.size());
    }
    double coarse = 0.0;
    if (readable && fundamentalVolume >= kGateRatio * treshold && findPeriod(coarse)) {
        findPartials(coarse);
        // The square difference is read at whole lags only. Where a high
        // partial rules the waveform, the lags nearest the true period miss
        // it by a good part of that partial's cycle, and the first lag to
        // repeat well is several periods long: its multiples searched hold
        // none of the note's partials. When that long period gives no note,
        // the shortest whole fraction of it after which the block repeats as
        // well (read at the exact lag) is tried instead.
        const double lag = periodLag_;
        const double longest = repeatsAfter(lag);
        for (int k = 2; fit_.size() == 0 && k <= kPeriodFractions; ++k) {
            if (sampleRate_ * k / lag > kHighest)
                break;
            if (repeatsAfter(lag / k) < longest - kFractionTolerance)
                continue;
            periodLag_ = lag / k;
            findPartials(coarse * k);
        }
        // Outside the range searched a fit has gone astray.
        const double first = fit_.size() > 0 ? fit_.predict(1) : 0.0;
        if (first >= kLowest && first <= kHighest)
            fundamentalFrequency = continueNote(first);
    }
    if (fundamentalFrequency == NO_FREQUENCY)
        missNote();
    updateVolumeLevel();
}

}  // namespace zt
