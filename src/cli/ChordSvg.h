#pragma once
// A fingering as an SVG picture for song sheets, drawn as the chords
// screen draws its neck: upright, the 6th string on the left, dark wood,
// light strings, yellow dots with the finger numbers, barres as bars, a
// cross over a muted string and a ring over an open one, the first fret numbered
// when the shape sits up the neck. The chord's name heads it and its notes
// and formula close it.

#include <string>

#include "chords/ChordShape.h"

namespace zt::cli {

// title: "C", "C/E"; caption: "C E G  ·  1 3 5" (either may be empty).
// Under a capo (capo > 0) the capo lies across the nut, "Capo 2" on it,
// and capoLine ("capo at the 2nd fret: C shape") closes the picture.
std::string chordSvg(const ChordShape& shape, const std::string& title, const std::string& caption,
                     int capo = 0, const std::string& capoLine = "");

}  // namespace zt::cli
