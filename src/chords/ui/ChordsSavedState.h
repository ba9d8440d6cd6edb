#pragma once
// What the chords screen keeps between runs, and its form in the saved
// state's "ChordsSettings" section: numbers as decimal strings ("%d"),
// flags as "1" or "0", the display mode as a boolean.

#include <array>
#include <string>
#include <vector>

#include "chords/ChordVariation.h"
#include "chords/ui/ChordChoice.h"
#include "framework/Value.h"

namespace zt {

struct ChordsState {
    ChordChoice choice;
    int currentVariationsIndex = 0;
    std::array<bool, kStringCount> canPlayString{true, true, true, true, true, true};
    std::array<bool, kStringCount> lockedString{};
    // Note names on the neck instead of finger numbers.
    bool notes = false;

    bool operator==(const ChordsState&) const = default;
};

// Every key: "ChordName" (the label), "currentVariationsIndex",
// "canPlayString1" to "6", "lockedString1" to "6", "chordPart1",
// "chordPart2", "notes", "pickerComponent0Row", "pickerComponent1Row".
Dictionary savedDictionary(const ChordsState& state);

// A saved section read back onto the wheels' lists. Each value becomes the
// nearest valid one: a root or type the wheels do not offer gives way to
// the saved wheel row, and that (out of range or not a number) to the
// default; a negative index reads as 0 (the screen bounds it by the number
// of variations once they are known); flags that are neither number nor
// boolean keep their defaults. The wheel rows always end up at the chord.
// An empty section is the defaults.
ChordsState restoredState(const Dictionary& section, const std::vector<std::string>& roots,
                          const std::vector<std::string>& types);

// A saved number: an integer, a real, or a string holding one ("12",
// " 7", "3.0", "1e30"), bounded to what an int holds; nullopt for anything
// else.
std::optional<int> savedInt(const Value& value);

}  // namespace zt
