#pragma once
// The overtone detector: it takes the three strongest peaks of the magnitude
// spectrum and decides, from the frequency ratio of the two strongest, which
// harmonics of one fundamental they are.
//
//   1. No pitch when the strongest peak is below the threshold.
//   2. A second peak under SIGNAL_LEVEL (2.5 %) of the strongest: a pure tone,
//      the strongest peak's frequency.
//   3. Otherwise the lower of the two strongest peaks f1 < f2 is compared
//      with the pairs (1,2) (1,3) (1,4) (2,3) (2,5) (2,7) (3,4) (3,5): the
//      pair a:b whose ratio lies nearest f1/f2, closer than 0.03, gives the
//      fundamental (f1/a + f2/b) / 2; with no such pair, f1.
//
// Peak frequencies are refined by interpolation on a 0.1 Hz grid. The third
// peak is examined for the (1,2) pair, but by construction that check never
// halves the fundamental; it is kept exactly so.

#include <array>
#include <cstdint>

#include "dsp/FourierPDA.h"

namespace zt {

class OvertonePDA final : public FourierPDA {
public:
    explicit OvertonePDA(const TaperSettings& settings);
    // The shared instance; every call applies the given window.
    static OvertonePDA& getInstance(const TaperSettings& settings);

    void detectPitch() override;

    // Steps of detectPitch, public for tests.
    void fillPikes();
    void detectByTwoMainPikes();
    void correctByThirdPike();

    std::uint16_t matchedMode() const { return static_cast<std::uint16_t>(mode); }
    double pikeFrequency(int k) const { return frequencyPikes[k]; }

private:
    std::array<double, 3> volumePikes{};
    std::array<std::uint32_t, 3> indexPikes{};
    std::array<double, 3> frequencyPikes{};
    // Harmonic-number pairs (lower, upper); (2, 7) is deliberate.
    const std::array<std::int16_t, 16> proportions{1, 2, 1, 3, 1, 4, 2, 3, 2, 5, 2, 7, 3, 4, 3, 5};
    // Position in proportions of the matching pair's first number; -1 (65535
    // as unsigned) when none matched.
    std::int16_t mode = -1;
    double eps = 0.03;
    double diff = 0.0;
    double possibleFreq = 0.0;
};

}  // namespace zt
