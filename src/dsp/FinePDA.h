#pragma once
// The fine detector, our own, which the live tuner uses unless classic
// detection is chosen. It reads the block's samples rather than the classic
// spectrum, through two views of it (BlockViews): B, the newest 1024
// samples, and A, the 1024 ending 976 samples earlier.
//   1. Period: McLeod's normalised square difference of B (PeriodEstimate)
//      gives a coarse fundamental and the block's clarity. It is read in the
//      time domain, so a weak or missing fundamental does not matter.
//   2. Partials: at every multiple of a sixth of that fundamental
//      (kGridDivisions), up to four times it, the Hann spectrum of B is
//      searched for a peak; once the fundamental is settled, its own
//      multiples above. Each peak's frequency comes from the
//      phase it advanced between A and B, exact for a steady or decaying
//      partial wherever it lies between bins; where A does not hold the
//      partial yet (a note that has just begun) from a parabola through the
//      log magnitudes of B.
//   3. Harmonic numbers (FinePDAHarmonics.cpp): the period's fundamental,
//      unless the clear partials off its multiples lie close to those of a
//      half or third of it, one of them below it (or, for a half, two odd
//      partials of its own above), a third sounding in its own first
//      partials, and the block repeats after that longer period as well (a
//      strong second partial over a weak fundamental fools the period);
//      twice or three times it when partials stand only on every second or
//      third multiple. Each peak
//      is judged against the noise of its own quarter octave; one below the
//      period's fundamental with less margin if view A holds it clearly.
//   4. Fit: the partials are fitted with the stiff-string law (HarmonicFit),
//      each weighed by its measurement's noise and by how far partials stray
//      from the law (the first less than those above, but it too wanders);
//      the result is the first partial. A partial far off the fit of the
//      others is dropped, and if those kept all stand on every second or
//      third multiple they are numbered again. A string sounds in its first few
//      partials: a series none of whose first four comes within 30 dB of its
//      strongest (only components far up it) gives no pitch.
//   5. Memory (FinePDAContinuity.cpp): once a note has read the same for a
//      few steady readings, a block read an octave up or at a whole fraction
//      of it keeps the note where its partials allow both (a fundamental
//      fading under the octave or into the noise, odd partials the octave
//      cannot explain, a loop's weak components at a half or a quarter of
//      the note), until a new pluck or a tenth of a second without pitch.
// No pitch when the strongest partial is under the gate, the block is not
// periodic enough, or a note has sounded for less than 58 ms.
//
// Sensitivity: the gate is the classic threshold lowered by kGateRatio, as
// the clarity test rejects noise that the classic detector can only keep out
// by level. At the default sensitivity it lies near -65 dBFS for a sine: a
// string still rings there 40 dB under a moderate pluck, and a room's hiss
// spread over the band stands far lower in any one bin.
//
// Level: the strongest partial is put on the classic spectrum's scale for
// the chosen window, so the 0 ... 10 level (and the percentage level, which
// the analyzer computes as for any detector) read alike. The window itself
// does not shape the estimate: the phase advance is exact under any window,
// and the side lobes of the nearly flat default would otherwise cost cents.

#include "dsp/BlockViews.h"
#include "dsp/FourierPDA.h"
#include "dsp/HarmonicFit.h"

namespace zt {

class FinePDA final : public FourierPDA {
public:
    static constexpr double kGateRatio = 1.0 / 16.0;
    static constexpr double kMinClarity = 0.5;
    static constexpr int kGridDivisions = 6;
    static constexpr int kLowPartials = 4;

    explicit FinePDA(const TaperSettings& settings);
    static FinePDA& getInstance(const TaperSettings& settings);

    bool readsSamples() const override { return true; }
    void loadSamples(std::span<const std::int16_t> samples, std::uint32_t sampleRate) override;

    // Of the last analysis: how periodic the block was (0 ... 1) and the
    // fitted inharmonicity.
    double clarity() const { return clarity_; }
    double inharmonicity() const { return fit_.inharmonicity(); }

private:
    // The first partial strays from the stiff-string law less than those
    // above, but it does: a real string's fundamental beats against its twin
    // in the other plane and is pulled by the body, by about a third of a
    // cent within a reading. Without this, a reading follows the wander of a
    // strong fundamental however well the partials above agree.
    static constexpr double kFirstPartialSpread = 1.7e-4;
    // How far partials above the first stray from the law, as a share of
    // their frequency (a cent).
    static constexpr double kModelSpread = 5.8e-4;

    // Widens a partial's measured spread by how far it may stray from the law.
    static void addModelSpread(Partial& p) {
        const double model = (p.harmonic > 1 ? kModelSpread : kFirstPartialSpread) * p.frequency;
        p.weight = 1.0 / (1.0 / p.weight + model * model);
    }

    bool findPeriod(double& coarse);
    // The peak's frequency and weight into `partial`; false when the peak
    // has no usable shape.
    bool measurePartial(std::size_t k, double noise, Partial& partial) const;
    // The peak near `target`, measured as partial `number`, the multiples
    // searched lying `spacing` apart; false when no peak there passes for a
    // partial. `below`: the peak is sought under the period's fundamental;
    // `expected`: where the held note puts its fundamental.
    bool partialNear(double target, double spacing, int number, Partial& partial,
                     bool below = false, bool expected = false) const;
    void findPartials(double coarse);
    // Whether every decisive partial stands on a multiple of `multiple` (of
    // the grid).
    bool standOn(int multiple) const;
    // Whether the decisive partials that `multiple` adds to the period's own
    // multiples stand near its multiples of `fundamental`, and outweigh the
    // decisive peaks on none of them.
    bool standMostlyOn(int multiple, double fundamental) const;
    // Whether a multiple of `multiple` below the period's fundamental holds
    // a partial of some strength.
    bool soundsBelow(int multiple) const;
    // Whether a lower fundamental, `multiple` of the grid, sounds in partials
    // of its own (off the period's multiples): decisive ones on its first two
    // multiples, or a good share of the decisive partials' power.
    bool soundsInOwnPartials(int multiple) const;
    // Whether one of the fundamental's first kLowPartials multiples holds a
    // decisive partial.
    bool soundsLow() const;
    // How many partials are decisive (kCertainShare of the strongest).
    int decisiveCount() const;
    // The share of the decisive partials' power off the multiples of
    // `multiple` (in the fit's present numbering).
    double decisiveShareOff(int multiple) const;
    // How many decisive partials stand on multiples of `multiple` (of the
    // grid) off the period's own.
    int addedDecisive(int multiple) const;
    // Numbers the partials as harmonics of the fundamental chosen among the
    // grid's multiples; returns that multiple.
    int settleHarmonicNumbers();
    // Renumbers the partials as harmonics of twice or three times the
    // fundamental while they all stand on every second or third multiple (a
    // lone partial to the octave only if the block repeats after half of
    // `lag`, the fundamental's period in samples, as well); returns the factor.
    int climbHarmonicNumbers(double lag);
    // The first partial read, `first`, or the held note's octave of it
    // (FinePDAContinuity.cpp); remembers the reading.
    double continueNote(double first);
    // Adds a partial found beside the fit's own, weighed as they are.
    void addToFit(Partial partial);
    void forgetNote();
    // A block without pitch: the note is forgotten after a few in a row.
    void missNote();
    // The fit's first partial's magnitude over the noise at it; -1 when the
    // fit holds no first partial.
    double fundamentalOverNoise() const;
    // How well B repeats after `lag` samples (normalised square difference).
    double repeatsAfter(double lag) const;
    // Classic spectrum magnitude per unit of B's magnitudes.
    double classicScale(std::size_t blockLength);

    BlockViews views_;
    std::array<std::complex<float>, BlockViews::kBins> power_{};
    std::array<float, BlockViews::kTransform> autocorrelation_{};
    std::array<float, BlockViews::kBins> powerSpectrum_{};
    HarmonicFit fit_;
    // What a peak must pass to be a partial, for the block being read.
    struct Search {
        double noise = 0.0;
        double floor = 0.0;
        std::size_t lobeBins = 0;
    } search_;
    double clarity_ = 0.0;
    double periodLag_ = 0.0;
    // Whether every decisive peak of the grid's search stood on the period's
    // own multiples.
    bool periodAlone_ = false;
    double sampleRate_ = 8000.0;
    // The note being read: its first partial, how many readings in a row
    // found it, and the level of the last.
    double heldFirst_ = 0.0;
    int heldReadings_ = 0;
    double heldVolume_ = 0.0;
    // Of the held note's fundamental: in how many of the note's readings it
    // was found, and whether it stood faint over the noise in the last.
    int heldFundamentalReadings_ = 0;
    bool heldFaint_ = false;
    // Blocks without pitch in a row.
    int missedBlocks_ = 0;

    const SignalWindow* scaleWindow_ = nullptr;
    std::size_t scaleLength_ = 0;
    double scaleSum_ = 0.0;
};

}  // namespace zt
