#pragma once
// Picking a tuning string by string instead of typing it: each string offers
// the notes within reach of its standard note, lowest first, so that row
// kStringReach is the standard note itself. The typed text stays the one
// record of the tuning; the picks are read from it and written into it.

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "tunings/TuningText.h"

namespace zt::tunings {

inline constexpr int kStringCount = static_cast<int>(kStandardStrings.size());
// Rows of each string's list: an octave down, the standard note, an octave up.
inline constexpr int kChoiceCount = 2 * kStringReach + 1;

using StringRows = std::array<int, kStandardStrings.size()>;

// The standard tuning's rows.
StringRows standardRows();

// The notes string `string` (0, the sixth, to 5, the first) may be tuned
// to, lowest first: "E1" to "E3" for the sixth string. Empty for no string.
std::vector<std::string> stringChoices(int string, bool flats);

// The picks a typed text gives. A word that names a note within reach of
// its string moves that string's row there; a string whose word is missing,
// not a note or out of reach keeps its row from `before` and is not known.
struct StringPicks {
    StringRows rows{};
    std::array<bool, kStandardStrings.size()> known{};
    bool flats = false;  // some word is spelled with a flat
};
StringPicks readPicks(std::string_view typed, const StringRows& before);

// The typed text once `string` is set to `row` of its choices. Six words
// keep their separators and only that string's word is replaced; any other
// count of words is written afresh from `rows` with that string's row set,
// spelled with flats or sharps. The text comes back as it was for a string
// or a row out of range.
std::string pickInto(std::string_view typed, int string, int row, const StringRows& rows,
                     bool flats);

}  // namespace zt::tunings
