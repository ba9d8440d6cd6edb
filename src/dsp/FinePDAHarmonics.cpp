// The fine detector's choice of harmonic numbers: which multiple of the
// search grid (a kGridDivisions-th of the period's fundamental) is the
// fundamental.
#include <algorithm>
#include <cmath>

#include "dsp/FinePDA.h"
#include "dsp/PeriodEstimate.h"

namespace zt {

namespace {

// Off the fundamental's multiples, only a peak this strong against the
// strongest partial says that the fundamental lies lower...
constexpr double kCertainShare = 0.03;
// ...and only if the block repeats after the lower fundamental's period
// nearly as well as after the period found (a true lower fundamental
// repeats it better: its odd partials are out of phase at half its period).
// The period's half or third may repeat a little worse (a stiff string's
// partials drift apart over the longer lag, and noise weighs more there).
constexpr double kRepeatTolerance = 0.03;
// Noise, and an attack's, repeats the worse the longer the lag: a block that
// repeats after the period only so well (a fresh pluck, a room's noise) is
// allowed this share of what it lacks there as the longer period's shortfall.
constexpr double kRepeatNoiseShare = 0.75;
// A third of the period's fundamental must also sound in both of its first
// two partials (neither on the period's multiples), or carry this share of
// the decisive partials' power in the partials it adds. On sampled strings a
// lone weak peak near a third was never a fundamental: a sympathetic string,
// a body resonance, an ensemble's other layer or a render's alias. A string
// sounds in its first partials, and a period read three times too short (a
// strong third partial, or noise that repeats best after short lags) leaves
// them weaker, not gone.
constexpr double kThirdShare = 0.1;
constexpr double kOnMultiple = 0.015;
constexpr double kOnMultipleSpacing = 0.1;
// A lower fundamental must also sound below the period's own: one of its
// multiples under the period's fundamental holds a partial this strong
// against the strongest. A half whose fundamental is missing or under the
// noise may instead show two decisive partials of its own (the third and
// fifth): on sampled instruments a lone peak above, on an odd multiple of the
// half, was a loop's or a resonance's six times in seven, two such peaks a
// fundamental four times in five.
constexpr double kBelowShare = 0.01;
}  // namespace

bool FinePDA::standOn(int multiple) const {
    // Peaks weaker than kCertainShare of the strongest (noise, most likely)
    // do not count.
    const double strongest = fit_.strongestAmplitude();
    for (std::size_t i = 0; i < fit_.size(); ++i) {
        const Partial& p = fit_[i];
        if (p.amplitude >= kCertainShare * strongest && p.harmonic % multiple != 0)
            return false;
    }
    return fit_.size() > 0;
}

bool FinePDA::standMostlyOn(int multiple, double fundamental) const {
    // A decisive peak that `multiple` adds to the period's multiples must lie
    // within kOnMultiple of that multiple of `fundamental` (an attack's thump
    // or a body resonance near a sub-harmonic's multiple is no partial of
    // it); one off the period's own multiples speaks against either. The
    // peaks it adds to the period's series must outweigh those that stand on
    // no multiple of it: such strays (a body's thump under a fresh pluck)
    // fit the period's fundamental no better, and alone they must not keep
    // the reading up at the octave.
    const double strongest = fit_.strongestAmplitude();
    double added = 0.0, strays = 0.0;
    for (std::size_t i = 0; i < fit_.size(); ++i) {
        const Partial& p = fit_[i];
        if (p.amplitude < kCertainShare * strongest)
            continue;
        const double power = p.amplitude * p.amplitude;
        if (p.harmonic % multiple != 0) {
            strays += power;
            continue;
        }
        if (p.harmonic % kGridDivisions == 0)
            continue;
        if (std::fabs(p.frequency - fundamental * p.harmonic / multiple) >
            std::min(kOnMultiple * p.frequency, kOnMultipleSpacing * fundamental))
            return false;
        added += power;
    }
    return added > strays;
}

bool FinePDA::soundsBelow(int multiple) const {
    const double strongest = fit_.strongestAmplitude();
    for (std::size_t i = 0; i < fit_.size(); ++i) {
        const Partial& p = fit_[i];
        if (p.harmonic < kGridDivisions && p.harmonic % multiple == 0 &&
            p.amplitude >= kBelowShare * strongest)
            return true;
    }
    return false;
}

bool FinePDA::soundsInOwnPartials(int multiple) const {
    const double strongest = fit_.strongestAmplitude();
    bool first = false, second = false;
    double added = 0.0, total = 0.0;
    for (std::size_t i = 0; i < fit_.size(); ++i) {
        const Partial& p = fit_[i];
        if (p.amplitude < kCertainShare * strongest)
            continue;
        const double power = p.amplitude * p.amplitude;
        total += power;
        if (p.harmonic % multiple == 0 && p.harmonic % kGridDivisions != 0)
            added += power;
        first = first || p.harmonic == multiple;
        second = second || p.harmonic == 2 * multiple;
    }
    return (first && second) || added >= kThirdShare * total;
}

int FinePDA::addedDecisive(int multiple) const {
    const double strongest = fit_.strongestAmplitude();
    int count = 0;
    for (std::size_t i = 0; i < fit_.size(); ++i) {
        const Partial& p = fit_[i];
        count += p.harmonic % multiple == 0 && p.harmonic % kGridDivisions != 0 &&
                 p.amplitude >= kCertainShare * strongest;
    }
    return count;
}

double FinePDA::decisiveShareOff(int multiple) const {
    const double strongest = fit_.strongestAmplitude();
    double off = 0.0, total = 0.0;
    for (std::size_t i = 0; i < fit_.size(); ++i) {
        const Partial& p = fit_[i];
        if (p.amplitude < kCertainShare * strongest)
            continue;
        const double power = p.amplitude * p.amplitude;
        total += power;
        off += p.harmonic % multiple != 0 ? power : 0.0;
    }
    return total > 0.0 ? off / total : 0.0;
}

int FinePDA::decisiveCount() const {
    const double strongest = fit_.strongestAmplitude();
    int count = 0;
    for (std::size_t i = 0; i < fit_.size(); ++i)
        count += fit_[i].amplitude >= kCertainShare * strongest;
    return count;
}

bool FinePDA::soundsLow() const {
    // A weak fundamental, even a missing one, still leaves the second, third
    // or fourth partial clear; the sum of stray components whose period
    // happens to be long holds them only high up the series of that period.
    const double strongest = fit_.strongestAmplitude();
    for (std::size_t i = 0; i < fit_.size(); ++i) {
        if (fit_[i].harmonic <= kLowPartials && fit_[i].amplitude >= kCertainShare * strongest)
            return true;
    }
    return false;
}

int FinePDA::settleHarmonicNumbers() {
    // The period's fundamental unless decisive partials off its multiples
    // stand on those of a half or a third of it, outweighing the peaks that
    // stand on no multiple of either, and the block repeats after that longer
    // period as well: a stray peak (a body resonance, a sample's loop, noise)
    // must not pull the reading down to a sub-harmonic, nor keep it up at the
    // octave. A third must sound in its own first partials too. (A sixth is
    // never taken: on sampled instruments it was wrong every time, a lone
    // peak among multiples so close that any stray lies near one.) Then up,
    // while the partials stand only on every second or third multiple (a
    // period read too long). Peaks off the multiples kept are dropped.
    int divisor = kGridDivisions;
    periodAlone_ = standOn(kGridDivisions);
    if (!periodAlone_) {
        // The fundamental as the period's multiples among the partials show it.
        double sum = 0.0, weight = 0.0;
        for (std::size_t i = 0; i < fit_.size(); ++i) {
            const Partial& p = fit_[i];
            if (p.harmonic % kGridDivisions == 0) {
                sum += p.amplitude * p.frequency * kGridDivisions / p.harmonic;
                weight += p.amplitude;
            }
        }
        const double fundamental = weight > 0.0 ? sum / weight : 0.0;
        const double periodRepeats = repeatsAfter(periodLag_);
        for (int d : {3, 2}) {
            const double lag = periodLag_ * kGridDivisions / d;
            if (standMostlyOn(d, fundamental / kGridDivisions * d) &&
                (soundsBelow(d) || (d == 3 && addedDecisive(d) > 1)) &&
                (d != 2 || soundsInOwnPartials(d)) &&
                repeatsAfter(lag) >=
                    periodRepeats -
                        std::max(kRepeatTolerance, kRepeatNoiseShare * (1.0 - periodRepeats))) {
                divisor = d;
                break;
            }
        }
    }
    fit_.regroup(divisor);
    divisor *= climbHarmonicNumbers(periodLag_ * kGridDivisions / divisor);
    fit_.solve();
    return divisor;
}

double FinePDA::repeatsAfter(double lag) const {
    return repetitionAt(powerSpectrum_.data(), BlockViews::kBins, views_.squares().data(),
                        BlockViews::kView, lag);
}

int FinePDA::climbHarmonicNumbers(double lag) {
    // `lag`: the fundamental's period, samples. A lone decisive partial
    // stands on every multiple of its own number, though: where nothing clear
    // stood off the period's multiples, the octave is taken only if the block
    // repeats after the shorter period as well; otherwise what the period
    // heard beside the partial (partials under the noise floor, as at a fresh
    // pluck in noise) keeps the numbering. A lone third partial climbs as
    // before: on sampled instruments the blocks that repeat best after three
    // of its periods were as often a sitar's sympathetic strings as a
    // fundamental under the noise.
    int multiple = 1;
    for (bool regrouped = true; regrouped;) {
        regrouped = false;
        for (int d : {2, 3}) {
            if (standOn(d) && (d != 2 || decisiveCount() > 1 || !periodAlone_ ||
                               repeatsAfter(lag / d) >= repeatsAfter(lag) - kRepeatTolerance)) {
                fit_.regroup(d);
                lag /= d;
                multiple *= d;
                regrouped = true;
                break;
            }
        }
    }
    return multiple;
}

}  // namespace zt
