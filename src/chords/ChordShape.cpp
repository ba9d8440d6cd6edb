#include "chords/ChordShape.h"

#include <algorithm>

#include "chords/ChordCatalogue.h"

namespace zt {

ChordShape shapeOf(const ChordVariation& v) {
    ChordShape shape;
    for (int p = 0; p < v.playedStrings(); ++p) {
        auto& s = shape.strings[static_cast<std::size_t>(v.firstString - p - 1)];
        s.fret = v.frets[p];
        s.finger = fingercode::number(v.fingers[p]);
        s.pitch = v.pitches[p];
    }
    shape.barreCount = v.barres.count;
    for (int b = 0; b < v.barres.count; ++b) {
        shape.barres[b] = {v.barres.fret[b], v.barres.finger[b], v.firstString - v.barres.first[b],
                           v.firstString - v.barres.last[b]};
    }
    shape.bassPitch = v.pitches[0];
    shape.position = v.lowestFrettedFret == kNoFrettedString ? 0 : v.lowestFrettedFret;
    return shape;
}

bool ChordShape::underBarre(int number) const {
    const auto& s = string(number);
    for (int b = 0; b < barreCount; ++b) {
        const auto& barre = barres[static_cast<std::size_t>(b)];
        if (s.fret == barre.fret && s.finger == barre.finger && number <= barre.from &&
            number >= barre.to)
            return true;
    }
    return false;
}

int ChordShape::firstShownFret() const {
    int highest = 0;
    for (const auto& s : strings)
        highest = std::max(highest, s.fret);
    return highest <= kWindowFrets ? 1 : std::max(position, 1);
}

std::string_view noteName(int note) {
    return chords::names()[static_cast<std::size_t>(
        ((note % chords::kPitchClasses) + chords::kPitchClasses) % chords::kPitchClasses)];
}

std::string_view bassName(const VariationSet& set, int group, std::string_view root) {
    if (group < 0 || group >= set.groupCount || set.groupStart[group] >= set.count)
        return {};
    const int bass = set.records[static_cast<std::size_t>(set.groupStart[group])].bassNote;
    return bass < 0 ? root : noteName(bass);
}

}  // namespace zt
