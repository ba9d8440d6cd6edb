#pragma once
// A capo clamped across every string at one fret. The strings then sound
// that many semitones higher, so a chord's fingerings under the capo are
// those of the tuning raised by the capo, their frets counted from it: the
// same frets, shape for shape, as the chord that many semitones lower
// played without one (with a capo at 2, D is fingered as C). The pitches
// of such fingerings are those heard, at concert pitch.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "chords/ChordVariation.h"

namespace zt::chords {

// Frets a capo may sit on: 0 (no capo) to 12.
inline constexpr int kMaxCapo = 12;
// The highest fret of the neck; a fingering under a capo must stay below it.
inline constexpr int kLastFret = 24;

// The note tokens of a tuning ("E2" ... "E4", lowest first) as they sound
// with the capo at `capo`; nullopt for a token that is not a note, a capo
// outside 0 to kMaxCapo, or a note raised past the last token.
std::optional<std::vector<std::string>> raisedTokens(const std::vector<std::string>& tokens,
                                                     int capo);

// The note a shape is named by under the capo: `note` (a name of names(),
// "D") lowered by `capo` semitones ("C" for capo 2); empty for anything
// else.
std::string shapeNote(std::string_view note, int capo);

// The capo as a settings row says it: "none", "1st fret" ... "12th fret".
std::string capoFretText(int capo);

// Leaves out the fingerings whose highest fret, counted from a capo at
// `capo`, lies past kLastFret, keeping the order and the groups by bass
// (a group left empty goes). Nothing changes without a capo.
void dropPastLastFret(VariationSet& set, int capo);

}  // namespace zt::chords
