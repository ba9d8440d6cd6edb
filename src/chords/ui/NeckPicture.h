#pragma once
// A fingering as the chords screen's views draw it. The neck is upright:
// the 6th string on the left, the nut at the top, frets counted downward;
// x positions are those of TouchView, in points of the 320-point layout.
// Drawn for a left-handed player, the neck is mirrored: the 6th string on
// the right; the maps' order and what they say stay the same.
// What a dot says (a finger number or a note name) is decided here.

#include <QVariantList>
#include <QVariantMap>

#include "chords/ChordShape.h"

namespace zt {

struct NeckPicture {
    static constexpr int kWindowFrets = ChordShape::kWindowFrets;

    // One map per string from the 6th to the 1st: "string" (its number),
    // "x", "fret" (-1 muted, 0 open), "muted", "open", "dot" (a finger
    // stands there and is drawn as a dot: not under a barre that says it
    // already), "text" (the dot's finger number or note name; for an open
    // string in note mode its note).
    QVariantList strings;
    // One map per barre: "fret", "fromX", "toX", "text" (its finger in
    // finger mode, else empty).
    QVariantList barres;
    // The fret drawn first below the nut: 1 when the shape fits there,
    // else its lowest fretted fret.
    int firstFret = 1;

    static NeckPicture of(const ChordShape& shape, bool notes, bool leftHanded = false);
    // The empty neck: six strings, nothing on them.
    static NeckPicture empty(bool leftHanded = false);
};

// A small diagram for the strip: "frets" (six numbers in the order drawn
// from left to right: from the 6th string to the 1st, or left-handed from
// the 1st to the 6th; -1 muted, 0 open), "barres" (maps of "fret", "from",
// "to" as string numbers, and "left", "right": the columns, 0 to 5, where
// the bar is drawn from and to), "firstFret", and "caption" ("/E" when the
// bass is not the root, else empty).
QVariantMap smallDiagram(const ChordShape& shape, const QString& caption, bool leftHanded = false);

}  // namespace zt
