#pragma once
// The six subdivision patterns ("notesPerBeat"): how many slots a beat is cut
// into and which of them click. Slot 0 coincides with the beat and is always
// silent.
//
//   1  no subdivision        beats only
//   2  2 slots  0 1          eighths
//   3  3 slots  0 1 1        triplets
//   4  4 slots  0 1 1 1      sixteenths
//   5  4 slots  0 0 0 1      one sixteenth before each beat
//   6  3 slots  0 0 1        the last triplet of each beat (shuffle)

#include <array>

#include "state/StateKeys.h"

namespace zt {

inline constexpr int kFirstPattern = state::metronome::kNotesPerBeat.min;
inline constexpr int kLastPattern = state::metronome::kNotesPerBeat.max;

struct SubdivisionPattern {
    static constexpr int kMaxSlots = 7;

    int slotsPerBeat = 0;                // 0: no subdivision at all
    std::array<bool, kMaxSlots> mask{};  // which slots click, slot 0 first

    bool hasSubdivision() const { return slotsPerBeat > 0; }
};

// The pattern for notesPerBeat; a value outside 2..6 has no subdivision.
SubdivisionPattern subdivisionPattern(int notesPerBeat);

}  // namespace zt
