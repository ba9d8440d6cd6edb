#pragma once
// A fingering as a neck diagram shows it: string by string (by string
// number, 6 the lowest to 1 the highest), the fret, the finger and the note,
// and the barres as finger, fret and the strings they cover.

#include <array>
#include <string_view>

#include "chords/ChordVariation.h"

namespace zt {

struct ChordShape {
    // Frets a diagram shows at once: every shape fits in four.
    static constexpr int kWindowFrets = 4;

    struct String {
        int fret = -1;    // -1 muted, 0 open
        int finger = -1;  // 1 to 4; 0 open, -1 muted
        int pitch = -1;   // absolute note number (E2 = 28); -1 muted
    };
    struct Barre {
        int fret = 0;
        int finger = 0;
        int from = 0;  // string number on the bass side
        int to = 0;    // string number on the treble side, below from
    };

    std::array<String, kStringCount> strings;  // [n - 1] is string number n
    std::array<Barre, 6> barres;
    int barreCount = 0;
    int bassPitch = 0;  // the lowest note sounded
    // The lowest fret pressed, 0 when every string is open: the neck shows
    // frets from here.
    int position = 0;

    const String& string(int number) const { return strings[static_cast<std::size_t>(number - 1)]; }
    // Whether a barre lays the finger of string `number` at its fret, so
    // that a diagram showing fingers draws the barre and no dot there.
    bool underBarre(int number) const;
    // The fret a diagram draws first below the nut: 1 when the shape fits
    // there, else its lowest fretted fret.
    int firstShownFret() const;
};

ChordShape shapeOf(const ChordVariation& v);

// "C", "C#", ... of an absolute note number or a pitch class.
std::string_view noteName(int note);

// The note in the bass of a group of the set of a chord on `root` ("E" for
// the shapes of C major with E in the bass). The group with the root in the
// bass, and the one group of a "dim7" (whose shapes are all inversions of
// one another), give the root. Empty for a group outside the set.
std::string_view bassName(const VariationSet& set, int group, std::string_view root);

}  // namespace zt
