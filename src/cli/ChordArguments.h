#pragma once
// The arguments of zebtools-cli chords: chord names (flats allowed) and
// tunings (by number or name), checked with messages that list what is
// valid.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "chords/ChordLibrary.h"

namespace CLI {
class Validator;
}

namespace zt::cli {

// The chord as the generator spells it: a flat written "b" ("Bb", "Ebm7")
// becomes the sharp below ("A#", "D#m7"); nullopt for a name that is not a
// chord.
std::optional<std::string> chordName(const std::string& text);
// Root and type key of a name chordName() accepts: "Bbm7" -> "A#", "m7".
std::pair<std::string, std::string> splitChord(const std::string& text);
// Accepts what chordName() does; the message lists the types.
CLI::Validator chordValidator();

// The catalogue index of a tuning given by number (0 to 52) or by name
// (any case); nullopt for anything else.
std::optional<std::size_t> tuningIndex(const std::string& text);
// Accepts what tuningIndex() does; the message lists the tunings.
CLI::Validator tuningValidator();

struct TuningChoice {
    std::string name;   // "Drop D"
    std::string notes;  // "D2 A2 D3 G3 B3 E4"
};
// Sets the library to the tuning at a catalogue index, as its strings
// sound with a capo at fret `capo` (0: none).
TuningChoice useTuning(ChordLibrary& library, std::size_t index, int capo = 0);

// A chord's fingerings in a catalogue tuning, in the order the app shows
// them.
struct Fingerings {
    TuningChoice tuning;
    std::string root;   // "A#"
    std::string chord;  // "A#m7"
    int capo = 0;       // the fret fingerings count from
    std::string shape;  // under a capo, the chord the shapes are named by ("Gm7")
    std::unique_ptr<VariationSet> set;

    // The fingering numbered `variation` from 1, or nullptr with the
    // reason in error (none exists, or the number is past the last).
    const ChordVariation* pick(int variation, std::string& error) const;
};
// text: a name chordName() accepts. Under a capo the frets count from it
// and the pitches are those heard (see chords/Capo.h).
Fingerings fingerings(const std::string& text, std::size_t tuningIndex, int capo = 0);

}  // namespace zt::cli
