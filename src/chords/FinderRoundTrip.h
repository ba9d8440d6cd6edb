#pragma once
// Every chord of the catalogue in every catalogue tuning, backwards: the
// first fingering shown of each is handed to the finder, and what comes
// first among the names is counted.

#include <string>
#include <vector>

#include "chords/ChordFinder.h"
#include "chords/ChordVariation.h"

namespace zt::chords {

// What a fingering holds, as the finder reads it.
HeldStrings heldStrings(const ChordVariation& v, const std::array<int, kStringCount>& open);

struct RoundTrip {
    int pairs = 0;      // chord and tuning pairs walked
    int shapeless = 0;  // pairs without any fingering
    // The first name is the chord the fingering came from.
    int named = 0;
    // The first name is another chord of the same notes, missing and
    // adding exactly what the chord's own name does (C2 for Cadd9, D#dim7
    // for a Cdim7 with D# in the bass, C6 for Am7 with C in the bass): the
    // chord is named later, and nothing held could tell the two apart.
    int sameNotes = 0;
    // The chord is named, but after a name that fits better.
    int later = 0;
    // The chord is not among the names at all.
    int absent = 0;
    // "Cadd9 in Standard: x 3 2 0 3 0 -> C2" for each pair counted in
    // later or absent.
    std::vector<std::string> misses;
};

// Walks every root and type in every catalogue tuning.
RoundTrip roundTrip();

}  // namespace zt::chords
