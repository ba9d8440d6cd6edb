// The fine detector's memory of the note it is reading. A string does not
// leap an octave while it rings, but the evidence for its octave can fade:
// a fundamental far under its octave sinks into a room's noise late in the
// note, and a sample's loop may add a weak component at half the note. Such
// blocks read alike an octave apart, so once a note has read the same for a
// while, a block that reads it an octave away keeps the note's octave when
// its partials allow that too. A fresh pluck (a rise in level, or a block
// whose older view does not hold the note yet) forgets it, and so does a
// block without pitch.
#include <algorithm>
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
// Below the held note, its octave's odd partials (off the held note's
// multiples) may hold at most this share of the decisive partials' power:
// more, and the lower note is heard, not guessed.
constexpr double kOddShare = 0.1;

double centsBetween(double a, double b) {
    return 1200.0 * std::log2(a / b);
}

}  // namespace

double FinePDA::continueNote(double first) {
    // A fresh pluck: the older view does not hold the note yet, or the
    // level rose.
    const bool pluck = !views_.steady() || fundamentalVolume > kPluckRise * heldVolume_;
    const bool held = heldReadings_ >= kHeldReadings && !pluck;
    double kept = first;
    if (held && std::fabs(centsBetween(first, 2.0 * heldFirst_)) < kSameNoteCents) {
        // Read an octave up: the held note's fundamental must still show.
        // (Not merely be hidden by noise: a note held an octave too low from
        // its first readings would then stay there.)
        Partial partial;
        if (partialNear(heldFirst_, heldFirst_, 1, partial, true) &&
            partial.amplitude >= kHeldShare * fit_.strongestAmplitude()) {
            for (std::size_t i = 0; i < fit_.size(); ++i)
                fit_.at(i).harmonic *= 2;
            const double model = kFirstPartialSpread * partial.frequency;
            partial.weight = 1.0 / (1.0 / partial.weight + model * model);
            fit_.add(partial);
            fit_.solve();
            kept = fit_.predict(1);
        }
    } else if (held && std::fabs(centsBetween(first, 0.5 * heldFirst_)) < kSameNoteCents) {
        // Read an octave down: only on the strength of weak odd partials.
        if (decisiveShareOff(2) < kOddShare) {
            const HarmonicFit before = fit_;
            fit_.regroup(2);
            if (fit_.solve() && soundsLow()) {
                kept = fit_.predict(1);
            } else {
                fit_ = before;
            }
        }
    }
    // The note is the one its first steady readings after a pluck found: a
    // reading an octave away, whether kept or not, does not replace it,
    // another note or a new pluck does.
    const double fromHeld = heldFirst_ > 0.0 ? centsBetween(kept, heldFirst_) : 1e9;
    if (pluck) {
        heldReadings_ = 0;
        heldFirst_ = kept;
    } else if (std::fabs(fromHeld) < kSameNoteCents) {
        ++heldReadings_;
        heldFirst_ = kept;
    } else if (!(heldReadings_ >= kHeldReadings &&
                 std::fabs(std::fabs(fromHeld) - 1200.0) < kSameNoteCents)) {
        heldReadings_ = 1;
        heldFirst_ = kept;
    }
    heldVolume_ = fundamentalVolume;
    return kept;
}

void FinePDA::forgetNote() {
    heldReadings_ = 0;
    heldFirst_ = 0.0;
}

}  // namespace zt
