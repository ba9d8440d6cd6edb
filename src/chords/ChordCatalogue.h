#pragma once
// The chord catalogue: the twelve note names, the 120 octave-qualified note
// tokens, the 24 chord types with their formulas, the labels of the two
// chord pickers, and the parsing of a chord name such as "C#m7" into its
// tonic, type and chord tones.
//
// Notes are sharps only ("C#", never "Db"); a pitch class is a note's
// position in names() (C = 0 ... B = 11), and a note's absolute number is
// its position in tokens() (C0 = 0, A4 = 57, B9 = 119).

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zt::chords {

inline constexpr int kPitchClasses = 12;
inline constexpr int kOctaveCount = 10;
inline constexpr int kTokenCount = kPitchClasses * kOctaveCount;
inline constexpr int kTypeCount = 24;
// The richest formula (the ninths) has five tones.
inline constexpr int kMaxTones = 5;

// "C", "C#", ... "B".
const std::array<std::string_view, kPitchClasses>& names();
// "C0", "C#0", ... "B9": octave by octave, each in the order of names().
const std::array<std::string, kTokenCount>& tokens();
// Absolute number of a token ("E2" -> 28); nullopt for anything else.
std::optional<int> tokenNumber(std::string_view token);
// Pitch class of a name ("C#" -> 1); nullopt for anything else.
std::optional<int> pitchClass(std::string_view name);

// The type keys in their fixed stored order: "" (major), "7", "maj7", ...
// "add9". The order matters: it is the order a search walks the types.
const std::array<std::string_view, kTypeCount>& typeKeys();
// Position of a type key in typeKeys(); nullopt for an unknown key.
std::optional<int> typeIndex(std::string_view key);

// A chord formula: its degrees as written ("1", "5", "8"; degree d is d - 1
// semitones above the tonic), in stored order, tonic first.
struct Formula {
    std::array<std::int8_t, kMaxTones> degrees{};
    int size = 0;

    int semitones(int i) const { return degrees[static_cast<std::size_t>(i)] - 1; }
};
// The formula of the type at typeKeys()[type].
const Formula& formula(int type);

// The labels of the root picker, chromatic from C; the black keys read
// "C♯ (D♭)" and so on.
const std::array<std::string, kPitchClasses>& rootLabels();
// The labels of the type picker in picker order ("major", "minor", "dim",
// ...); every label is its type key except "major" ("") and "minor" ("m").
const std::array<std::string_view, kTypeCount>& typeLabels();
// The root a picker label stands for, as the generator spells it: "C" -> "C",
// "C♯ (D♭)" -> "C#"; empty for a label that is not a root.
std::string rootForLabel(std::string_view label);
// The type key a picker label stands for: "major" -> "", "minor" -> "m",
// other labels are keys themselves; nullopt for an unknown label.
std::optional<std::string_view> typeKeyForLabel(std::string_view label);

// A chord name taken apart, in numbers: the tonic's pitch class, the type's
// position in typeKeys() and the chord tones' pitch classes in the
// formula's stored order (the tonic first).
struct ParsedChord {
    int tonic = 0;
    int type = 0;
    std::array<int, kMaxTones> tones{};
    int toneCount = 0;
};

// The name is a letter, an optional "#" and a type key: "C", "C#", "C#m7",
// "Bmaj9". nullopt for an unknown type or tonic (flats and the ♯ sign are
// not understood).
std::optional<ParsedChord> parseChord(std::string_view name);
// The same from a root name ("C#") and a type key ("m7").
std::optional<ParsedChord> parseChord(std::string_view root, std::string_view typeKey);

// The chord as names: tonic ("C#"), type key ("m7") and the chord tones'
// names in stored order ("C#", "E", "G#", "B").
struct ChordInfo {
    std::string tonic;
    std::string type;
    std::vector<std::string> notes;
};
std::optional<ChordInfo> chordInfo(std::string_view name);

}  // namespace zt::chords
