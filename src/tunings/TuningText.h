#pragma once
// How tunings read to a guitarist and how a typed tuning is understood.
//
// Spelling: a tuning's notes are stored with sharps only; on screen they are
// spelled in the key its name gives. A name whose key note is a flat ("Drop
// Bb", "Eb (Hendrix)") spells with flats, and so does a minor key with flats
// in its signature: "Open G Minor" and the crossnote tunings, which are
// minor chords ("Crossnote F" is F minor, with A flat). Every other tuning
// keeps its sharps. A tuning typed with flats keeps them.

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zt::tunings {

// Pitch 0 (C) to 11 (B) and octave 0 to 9 of a token such as "A#1", or
// nullopt when the token is not one.
struct Pitch {
    int pitch;
    int octave;
    int position() const { return 12 * octave + pitch; }
};
std::optional<Pitch> parseToken(std::string_view token);

// Standard tuning as positions (12 * octave + pitch), sixth string first:
// E2 A2 D3 G3 B3 E4. A user's string may lie up to kStringReach semitones
// either side of its standard note.
inline constexpr std::array<int, 6> kStandardStrings = {28, 33, 38, 43, 47, 52};
inline constexpr int kStringReach = 12;

// A position as a note with its octave, "A#1", or "Bb1" with flats.
std::string noteName(int position, bool flats);

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

// The words of a typed tuning as they lie in the text, separators left out.
std::vector<std::string_view> typedWords(std::string_view text);
// One typed word as a note: parseToken once the music signs (U+266F, U+266D)
// are read as # and b.
std::optional<Pitch> parseTypedWord(std::string_view word);
// Whether a typed word spells its note with a flat.
bool typedFlat(std::string_view word);

// The stored form back as the user types it: "D2 A2 D3 G3 A3 D4".
std::string typedForm(std::string_view notes, bool flats);

}  // namespace zt::tunings
