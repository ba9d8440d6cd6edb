#pragma once
// The order in which the fingerings of a chord are shown. Groups keep their
// places (the tonic in the bass first); within a group: lower position
// first, then more open strings, then more strings sounded, then fewer
// fingers. Shapes equal in all four come lower frets first, comparing the
// strings from the 6th to the 1st (a muted string before an open one), so
// every run shows the same order.

#include "chords/ChordVariation.h"

namespace zt {

// The fret of a string number 1 to 6 in a shape: -1 muted, 0 open.
int fretOnString(const ChordVariation& v, int stringNumber);

// True when a is shown before b.
bool showsBefore(const ChordVariation& a, const ChordVariation& b);

// Sorts each group of the set in place.
void sortVariations(VariationSet& set);

}  // namespace zt
