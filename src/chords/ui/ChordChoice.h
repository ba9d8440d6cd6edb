#pragma once
// The chord chosen on the two picker wheels, and how the wheels' titles
// become the names the rest of the tool uses. The root wheel's titles are
// "C", "C♯ (D♭)", ...; the type wheel's are "major", "minor", "dim", ...

#include <optional>
#include <string>
#include <vector>

#include "chords/ChordFinder.h"

namespace zt {

struct ChordChoice {
    int rootRow = 0;
    int typeRow = 0;
    // The root as the chord label shows it: "C", "C♯".
    std::string chordPartOne = "C";
    // The type key: "" (major), "m", "m7", ...
    std::string chordPartTwo;

    // The chord label: "C", "C♯m7".
    std::string label() const { return chordPartOne + chordPartTwo; }
    // The root as the generator spells it: "C#".
    std::string generatorRoot() const;
    // The chord's tones and formula ("C E G", "1 3 5"); empty for a choice
    // the catalogue does not know.
    chords::ChordTones tones() const;

    bool operator==(const ChordChoice&) const = default;
};

// The root of a root title: its first two characters when it has more than
// one ("C♯ (D♭)" gives "C♯"), else the title.
std::string rootOfTitle(const std::string& title);
// The type key of a type title: "major" -> "", "minor" -> "m", any other
// title is the key itself.
std::string typeKeyOfTitle(const std::string& title);
// "C♯" -> "C#"; other roots unchanged.
std::string withAsciiSharp(const std::string& root);

// The choice at the wheels' rows; nullopt for a row outside its list.
std::optional<ChordChoice> choiceAt(const std::vector<std::string>& roots,
                                    const std::vector<std::string>& types, int rootRow,
                                    int typeRow);
// The row of the root wheel whose title gives this root ("C♯" or "C#"), or
// of the type wheel whose title gives this key; -1 when none does.
int rowOfRoot(const std::vector<std::string>& roots, const std::string& root);
int rowOfType(const std::vector<std::string>& types, const std::string& key);
// The row a typed letter jumps to: the next row after `current` whose title
// begins with the letter (either case), going round, so that typing C again
// steps from "C" to "C♯ (D♭)" and back; -1 when no title begins with it.
int rowForLetter(const std::vector<std::string>& titles, int current, char letter);

}  // namespace zt
