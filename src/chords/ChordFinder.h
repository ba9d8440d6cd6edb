#pragma once
// Chords backwards: the names that fit a set of strings held on the neck,
// and the tones and formula of any chord of the catalogue.
//
// A name fits when its root sounds and either every chord tone sounds and
// at most one note besides them (an added note, "C7 with F"), or every tone
// but the fifth sounds (the tone players leave out first) and at least
// three tones remain. A name with an added note is left out when the same
// root has a name without one that misses no more. Names are ordered best
// first: names without an added note, then the root in the bass, then
// fewest missing tones, then fewest added notes, then catalogue order.
//
// Strings are given lowest first, as a chord chart reads: the 6th string's
// open note and fret first.

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "chords/ChordCatalogue.h"
#include "chords/ChordVariation.h"

namespace zt::chords {

// A chord's tones as names ("C", "E", "G") and as degrees ("1", "3", "5"),
// in the formula's stored order (the tonic first).
struct ChordTones {
    std::vector<std::string> notes;
    std::vector<std::string> degrees;

    // "C E G" and "1 3 5".
    std::string notesText() const;
    std::string formulaText() const;
};

// tonic: a pitch class; type: a position in typeKeys().
ChordTones chordTones(int tonic, int type);
// From a chord name the catalogue reads ("C#m7"); nullopt when it does not.
std::optional<ChordTones> chordTones(std::string_view name);

// The degree a note `semitones` above the root is called in a chord of the
// type: "b3", "5", "9" in a ninth or add9 chord but "2" in a sus2, "bb7" in
// a dim7.
std::string_view degreeName(int type, int semitones);

// One name that fits.
struct FoundChord {
    int root = 0;  // pitch class
    int type = 0;  // position in typeKeys()
    int bass = 0;  // pitch class of the lowest note sounded
    ChordTones tones;
    std::vector<std::string> missing;  // chord tones not sounded (the fifth at most)
    std::vector<std::string> added;    // notes sounded that are not chord tones (one at most)

    bool rootInBass() const { return root == bass; }
    // "C", "C7/E", "Am7/C".
    std::string name() const;
};

// What is held: per string, lowest first, its open note (absolute number,
// E2 = 28) and its fret (-1 muted, 0 open).
struct HeldStrings {
    std::array<int, kStringCount> open{};
    std::array<int, kStringCount> frets{};
};

// Every name that fits the notes held, best first. Empty when fewer than
// two strings sound or no name fits.
std::vector<FoundChord> identify(const HeldStrings& held);

// The open notes of a tuning's six tokens ("E2" ... "E4", lowest first);
// nullopt unless there are six known tokens.
std::optional<std::array<int, kStringCount>> openNotes(const std::vector<std::string>& tokens);

}  // namespace zt::chords
