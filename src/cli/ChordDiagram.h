#pragma once
// How zebtools-cli chords shows a fingering: as an ASCII neck diagram, and
// as a JSON object.

#include <nlohmann/json.hpp>
#include <string>

#include "chords/ChordVariation.h"

namespace zt::cli {

// The frets from the 6th string to the 1st, "x" for a muted string:
// "x 3 2 0 1 0".
std::string fretLine(const ChordVariation& v);

// The neck from the 6th string (left) to the 1st: a line of "x" (muted) and
// "o" (open), then one line per fret from the lowest pressed, numbered,
// with the finger (1 to 4) on each pressed string and a barre drawn as "-"
// across the strings it covers; a text line names each barre. Every line
// starts with `indent` and ends with a newline.
std::string diagram(const ChordVariation& v, const std::string& indent);

// {"frets": six numbers from the 6th string to the 1st, -1 muted, 0 open;
//  "fingers": six numbers in the same order, 0 open, -1 muted, 1 to 4;
//  "barres": [{"fret", "finger", "from", "to"}] with string numbers;
//  "bass": the bass note's name; "pitches": six note numbers (MIDI
//  numbering, middle C = 60) or -1}.
nlohmann::json toJson(const ChordVariation& v);

}  // namespace zt::cli
