#pragma once
// Which finger presses which string of a shape, and where barres lie.
//
// Barres are found on a grid of frets (rows, from the lowest fretted fret up)
// by strings (columns, from the bass): at the lowest fret, the fretted
// strings after the last open string form a barre when there are two or
// more; higher up, at most until two barres exist, a row with two or more
// fretted strings beyond those already covered makes one, unless the hand
// could not hold it (see the .cpp). Fingers are then numbered fret by fret
// from the lowest, and above the lowest fret from the bass string up: a
// barre takes one finger, each other fretted string its own. A shape needing
// a fifth finger is marked unplayable.

#include <array>
#include <cstdint>

#include "chords/ChordVariation.h"

namespace zt {

struct FingerAssignment {
    std::array<std::int32_t, kStringCount> fingers{};  // finger codes by position
    BarreInfo barres{};
    int maxFret = 0;      // highest fret used (0 when every string is open)
    int openCount = 0;    // open strings
    int fingerCount = 1;  // next free finger: fingers used + 1
};

// frets by position from the bass, `played` of them sounding (frets 0 to 24;
// the rest are ignored); lowestFretted: their lowest non-zero fret
// (kNoFrettedString when all are open). fingers[0] is -1 when more than four
// fingers are needed.
FingerAssignment assignFingers(const std::array<std::int32_t, kStringCount>& frets, int played,
                               int lowestFretted);

// Spreads two or three fingers over a shape spanning two or three frets so
// that the hand covers the frets it skips: the fingers on the top fret (and
// the one below it when only that is used) move up.
void spreadFingers(FingerAssignment& assignment,
                   const std::array<std::int32_t, kStringCount>& frets, int played,
                   int lowestFretted);

}  // namespace zt
