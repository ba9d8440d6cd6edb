#pragma once
// The generator's results: one fingering of a chord (ChordVariation), its
// barres (BarreInfo), and every fingering of a chord in one fixed-size block
// (VariationSet), grouped by the note in the bass.
//
// Positions count the sounding strings from the bass: position 0 is the
// bass string, whose string number is firstString (6 = the lowest string of
// the instrument, 1 = the highest); position i is string number
// firstString - i. Positions past the highest sounding string are muted.
// Frets: 0 open, -1 muted. Pitches are absolute note numbers (C0 = 0,
// E2 = 28, A4 = 57).

#include <array>
#include <cstdint>
#include <span>

namespace zt {

inline constexpr int kStringCount = 6;
// ChordVariation::lowestFrettedFret of a shape with every string open.
inline constexpr int kNoFrettedString = 20;

// Finger codes in ChordVariation::fingers.
namespace fingercode {
inline constexpr std::int32_t kOpen = 0;
inline constexpr std::int32_t kMuted = -1;
// A cell under a barre holds -4 - the barre's finger: -5 for the barre at
// the lowest fretted fret (always finger 1), -6 to -8 for higher barres.
inline constexpr std::int32_t kLowestBarre = -5;
constexpr bool isBarre(std::int32_t code) {
    return code <= kLowestBarre;
}
// The finger (1 to 4) that presses a string, barre or not; 0 open, -1 muted.
constexpr std::int32_t number(std::int32_t code) {
    return isBarre(code) ? -4 - code : code;
}
}  // namespace fingercode

// Up to six barres; the valid ones come first, in the order they were found
// (the one at the lowest fretted fret, if any, first).
struct BarreInfo {
    std::array<std::uint8_t, 8> valid;   // 1 = a barre; only the first six are used
    std::array<std::int32_t, 6> first;   // position of its first string, from the bass
    std::array<std::int32_t, 6> last;    // position of its last string
    std::array<std::int32_t, 6> fret;    // the fret it lies on
    std::int32_t count;                  // number of valid barres
    std::array<std::int32_t, 6> finger;  // the finger that lays it, 1 to 4
};

struct ChordVariation {
    std::int32_t firstString;  // string number of the bass, 6 to 3
    std::int32_t lastString;   // string number of the highest sounding string
    std::array<std::int32_t, kStringCount> frets;
    std::int32_t bassNote;  // pitch class of the bass when it is not the tonic, else -1
    std::array<std::int32_t, kStringCount> pitches;  // -1 for muted positions
    std::array<std::int32_t, kStringCount> fingers;  // finger codes, see above
    std::int32_t lowestFret;         // lowest fret among sounding strings, 0 counted
    std::int32_t lowestFrettedFret;  // lowest non-zero fret, or kNoFrettedString
    std::int32_t openStrings;
    std::int32_t fingersUsed;
    BarreInfo barres;

    // Sounding strings: positions 0 to playedStrings() - 1.
    int playedStrings() const { return firstString - lastString + 1; }
    // Position of a string number 1 to 6, or -1 when that string is muted.
    int position(int stringNumber) const {
        const int p = firstString - stringNumber;
        return p >= 0 && p < playedStrings() ? p : -1;
    }
};

// Records are plain words, as the screen and the tools exchange them.
static_assert(sizeof(BarreInfo) == 27 * sizeof(std::int32_t));
static_assert(sizeof(ChordVariation) == 52 * sizeof(std::int32_t));

// Every fingering of one chord in one tuning. Records sharing a bass note
// follow each other: group g is records groupStart[g] to groupStart[g + 1] - 1,
// and groupStart[groupCount] = count. The first group has the tonic in the
// bass, unless no such shape exists. Only the first `count` records are
// meaningful; the rest of the block is left as it was.
struct VariationSet {
    static constexpr int kCapacity = 1000;
    // Five tones at most, so five bass notes, and the end mark.
    static constexpr int kMaxGroups = 5;

    std::array<ChordVariation, kCapacity> records;
    std::int32_t count = 0;
    std::array<std::int32_t, kMaxGroups + 1> groupStart{};
    std::int32_t groupCount = 1;

    std::span<const ChordVariation> variations() const {
        return std::span(records).first(static_cast<std::size_t>(count));
    }
    std::span<ChordVariation> variations() {
        return std::span(records).first(static_cast<std::size_t>(count));
    }
    std::span<const ChordVariation> group(int g) const {
        return std::span(records).subspan(
            static_cast<std::size_t>(groupStart[g]),
            static_cast<std::size_t>(groupStart[g + 1] - groupStart[g]));
    }
};

}  // namespace zt
