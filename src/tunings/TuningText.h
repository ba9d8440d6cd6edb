#pragma once
// How tunings read to a guitarist and how a typed tuning is understood.
//
// Spelling: a tuning's notes are stored with sharps only; on screen they are
// spelled in the key its name gives. A name whose key note is a flat ("Drop
// Bb", "Eb (Hendrix)") spells with flats, and so does a minor key with flats
// in its signature: "Open G Minor" and the crossnote tunings, which are
// minor chords ("Crossnote F" is F minor, with A flat). Every other tuning
// keeps its sharps. A tuning typed with flats keeps them.

#include <optional>
#include <string>
#include <string_view>

namespace zt::tunings {

// Pitch 0 (C) to 11 (B) and octave 0 to 9 of a token such as "A#1", or
// nullopt when the token is not one.
struct Pitch {
    int pitch;
    int octave;
    int position() const { return 12 * octave + pitch; }
};
std::optional<Pitch> parseToken(std::string_view token);

// Whether a tuning of this name is spelled with flats (see above).
bool spellsWithFlats(std::string_view name);

// The six notes without octaves, spaced: "A#1&F2&..." -> "Bb F Bb Eb G Bb"
// with flats, "A# F A# D# G A#" without.
std::string spacedNotes(std::string_view notes, bool flats);

// Whether a tuning belongs under a filter query: its name holds the query,
// or its notes do, spaces and letter case aside, in either spelling. An
// empty query keeps everything.
bool matchesFilter(std::string_view query, std::string_view name, std::string_view notes);

// A tuning typed by the user: six notes with octaves, lowest string first,
// separated by spaces, commas or "&" ("D2 A2 D3 G3 A3 D4", "Eb2 Ab2 ...").
// Each string must lie within an octave of the standard tuning's.
struct TypedTuning {
    std::string notes;   // the stored form, "D2&A2&D3&G3&A3&D4"; empty on error
    bool flats = false;  // some note was typed as a flat
    std::string error;   // what is wrong, for the editor; empty when fine
};
TypedTuning parseTyped(std::string_view text);

// The stored form back as the user types it: "D2 A2 D3 G3 A3 D4".
std::string typedForm(std::string_view notes, bool flats);

}  // namespace zt::tunings
