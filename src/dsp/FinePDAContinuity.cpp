// The fine detector's memory of the note it is reading. A string does not
// leap an octave while it rings, but the evidence for its octave can fade:
// a fundamental far under its octave sinks into a room's noise late in the
// note, and a sample's loop may add weak components at a half (a third, a
// quarter...) of the note. Such blocks read alike an octave apart, or at the
// loop's length, so once a note has read the same for a while, a block that
// reads it an octave up or at a whole fraction of it keeps the note when its
// partials allow that too. A fresh pluck (a rise in level, or a block
// whose older view does not hold the note yet) forgets it, and so does a
// tenth of a second without pitch.
#include <algorithm>
#include <array>
#include <cmath>

#include "dsp/FinePDA.h"

namespace zt {

namespace {

// Readings in a row within kSameNoteCents that make a note held.
constexpr int kHeldReadings = 3;
constexpr double kSameNoteCents = 50.0;
// An octave up, the held note's fundamental must stand at least this share
// of the strongest partial: a stray under a note read too low at its attack
// must not keep it there.
constexpr double kHeldShare = 0.03;
// A level this many times the held note's is a new pluck.
constexpr double kPluckRise = 2.0;
// Blocks without pitch in a row that forget the note: a tenth of a second
// of them. A single one is often a level dip at a sample's loop, or at the
// gate, after which the note resumes; a new pluck is told by its own rise.
constexpr int kMissedBlocks = 3;
// Read at a whole fraction of the held note, the partials off the held
// note's multiples may hold at most this share of the decisive partials'
// power: more, and the lower note is heard, not guessed.
constexpr double kOddShare = 0.1;
// An octave up, a held note whose fundamental was found in this many of its
// readings, and stood under kFaintOverNoise times the noise at it in the
// last, keeps its octave even where the fundamental no longer shows: the
// note fades into a room's noise, and its weak fundamental goes first. A
// stray under a note read too low at its attack (a body's thump) is gone
// sooner, and one that vanishes while it stands clear of the noise was no
// fundamental fading.
constexpr int kLastingReadings = 6;
constexpr double kFaintOverNoise = 6.0;
// An octave up, an odd partial of the held note (third, fifth or seventh)
// standing at this share of the strongest partial at least keeps the note:
// the octave has no partial there.
constexpr double kOddHeard = 0.1;

double centsBetween(double a, double b) {
    return 1200.0 * std::log2(a / b);
}

// A sample's loop may last several periods of the note, up to this many.
constexpr int kLoopPeriods = 8;

// The whole number k (2 to kLoopPeriods) for which `reading` is `note` / k,
// or 0.
int wholeFractionOf(double reading, double note) {
    for (int k = 2; k <= kLoopPeriods; ++k) {
        if (std::fabs(centsBetween(k * reading, note)) < kSameNoteCents)
            return k;
    }
    return 0;
}

}  // namespace

double FinePDA::continueNote(double first) {
    // A fresh pluck: the older view does not hold the note yet, or the
    // level rose.
    const bool pluck = !views_.steady() || fundamentalVolume > kPluckRise * heldVolume_;
    const bool held = heldReadings_ >= kHeldReadings && !pluck;
    double kept = first;
    if (held && std::fabs(centsBetween(first, 2.0 * heldFirst_)) < kSameNoteCents) {
        // Read an octave up: the held note's fundamental must still show, or
        // have faded into the noise after lasting, or its odd partials must
        // sound. (Not merely a fundamental that noise could hide: a note held
        // an octave too low from its first readings would then stay there.)
        const double strongest = fit_.strongestAmplitude();
        Partial partial;
        const bool shows = heldFundamentalReadings_ > 0 &&
                           partialNear(heldFirst_, heldFirst_, 1, partial, true, true) &&
                           partial.amplitude >= kHeldShare * strongest;
        std::array<Partial, 3> odd;
        std::size_t oddCount = 0;
        for (int h = 3; h <= 7; h += 2) {
            if (partialNear(h * heldFirst_, heldFirst_, h, odd[oddCount]) &&
                odd[oddCount].amplitude >= kOddHeard * strongest)
                ++oddCount;
        }
        if (shows || oddCount > 0 || (heldFaint_ && heldFundamentalReadings_ >= kLastingReadings)) {
            for (std::size_t i = 0; i < fit_.size(); ++i)
                fit_.at(i).harmonic *= 2;
            if (shows)
                addToFit(partial);
            for (std::size_t i = 0; i < oddCount; ++i)
                addToFit(odd[i]);
            fit_.solve();
            kept = fit_.predict(1);
        }
    } else if (const int below = held ? wholeFractionOf(first, heldFirst_) : 0; below > 1) {
        // Read at a half (a quarter...) of the note: only on the strength of
        // weak partials off the note's multiples.
        if (decisiveShareOff(below) < kOddShare) {
            const HarmonicFit before = fit_;
            fit_.regroup(below);
            if (fit_.solve() && soundsLow()) {
                kept = fit_.predict(1);
            } else {
                fit_ = before;
            }
        }
    }
    // The note is the one its first steady readings after a pluck found: a
    // reading an octave up or at a whole fraction of it, whether kept or not,
    // does not replace it, another note or a new pluck does; and so does a
    // reading an octave up where no reading of the note has found its
    // fundamental (read from the period alone, a note may be read an octave
    // low at its attack).
    const double fromHeld = heldFirst_ > 0.0 ? centsBetween(kept, heldFirst_) : 1e9;
    const bool sameNote = std::fabs(fromHeld) < kSameNoteCents;
    // A reading of the note without its fundamental leaves it as faint as
    // it was.
    const double over = fundamentalOverNoise();
    bool faint = over >= 0.0 ? over < kFaintOverNoise : sameNote && heldFaint_;
    const int found = over >= 0.0 ? 1 : 0;
    if (pluck) {
        heldReadings_ = 0;
        heldFirst_ = kept;
        heldFundamentalReadings_ = found;
    } else if (sameNote) {
        ++heldReadings_;
        heldFirst_ = kept;
        heldFundamentalReadings_ += found;
    } else if (heldReadings_ >= kHeldReadings &&
               (wholeFractionOf(kept, heldFirst_) > 1 ||
                (std::fabs(fromHeld - 1200.0) < kSameNoteCents && heldFundamentalReadings_ > 0))) {
        // Its fundamental is another partial: the held one's is as it was.
        faint = heldFaint_;
    } else {
        heldReadings_ = 1;
        heldFirst_ = kept;
        heldFundamentalReadings_ = found;
    }
    heldFaint_ = faint;
    heldVolume_ = fundamentalVolume;
    missedBlocks_ = 0;
    return kept;
}

void FinePDA::addToFit(Partial partial) {
    addModelSpread(partial);
    fit_.add(partial);
}

double FinePDA::fundamentalOverNoise() const {
    for (std::size_t i = 0; i < fit_.size(); ++i) {
        const Partial& p = fit_[i];
        if (p.harmonic != 1)
            continue;
        const auto k = static_cast<std::size_t>(
            std::lround(p.frequency * BlockViews::kTransform / sampleRate_));
        if (k >= BlockViews::kBins)
            return -1.0;
        return p.amplitude / std::max<double>(views_.noise(k), search_.noise);
    }
    return -1.0;
}

void FinePDA::missNote() {
    if (++missedBlocks_ >= kMissedBlocks)
        forgetNote();
}

void FinePDA::forgetNote() {
    heldReadings_ = 0;
    heldFirst_ = 0.0;
    heldFundamentalReadings_ = 0;
    heldFaint_ = false;
}

}  // namespace zt
