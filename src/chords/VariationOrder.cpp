#include "chords/VariationOrder.h"

#include <algorithm>

namespace zt {

int fretOnString(const ChordVariation& v, int stringNumber) {
    const int p = v.position(stringNumber);
    return p < 0 ? -1 : v.frets[p];
}

bool showsBefore(const ChordVariation& a, const ChordVariation& b) {
    if (a.lowestFret != b.lowestFret)
        return a.lowestFret < b.lowestFret;
    if (a.openStrings != b.openStrings)
        return a.openStrings > b.openStrings;
    if (a.playedStrings() != b.playedStrings())
        return a.playedStrings() > b.playedStrings();
    if (a.fingersUsed != b.fingersUsed)
        return a.fingersUsed < b.fingersUsed;
    for (int string = kStringCount; string >= 1; --string) {
        const int fa = fretOnString(a, string), fb = fretOnString(b, string);
        if (fa != fb)
            return fa < fb;
    }
    return false;
}

void sortVariations(VariationSet& set) {
    for (int g = 0; g < set.groupCount; ++g) {
        std::sort(set.records.begin() + set.groupStart[g],
                  set.records.begin() + set.groupStart[g + 1], showsBefore);
    }
}

}  // namespace zt
