#pragma once
// Which sound ids a click pack plays, and the source groups they play in.

#include "state/StateKeys.h"

namespace zt {

// Beats play in group 1 and subdivisions in group 2. Each group has a single
// voice: a click cuts the previous click of its own group, while a beat and a
// subdivision sound together.
inline constexpr int kBeatGroup = 1;
inline constexpr int kSubdivisionGroup = 2;

inline constexpr int kFirstPackNumber = state::metronome::kPackNumber.min;
inline constexpr int kLastPackNumber = state::metronome::kPackNumber.max;

// The three clicks of one pack (SND_ID_TICK, SND_ID_TOCK, SND_ID_SUBTICK).
struct ClickSounds {
    int packNumber = kFirstPackNumber;  // the pack in use: 1 when an unknown one was asked for
    int tick = 51;                      // a beat
    int tock = 52;                      // the accented first beat of a bar
    int subtick = 53;                   // a subdivision

    bool operator==(const ClickSounds&) const = default;
};

// Packs 1 to 5 own ids 51 to 65, three in a row; any other pack number falls
// back to pack 1.
constexpr ClickSounds clickSoundsForPack(int packNumber) {
    if (packNumber < kFirstPackNumber || packNumber > kLastPackNumber)
        packNumber = 1;
    const int first = 51 + 3 * (packNumber - 1);
    return {packNumber, first, first + 1, first + 2};
}

}  // namespace zt
