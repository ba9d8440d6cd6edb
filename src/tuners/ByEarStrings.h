#pragma once
// What the by-ear tuner's six strings play in a tuning. The sound bank holds
// one recorded open string per string of standard tuning (E4, B3, G3, D3,
// A2, E2 for strings 1 to 6); any other tuning is reached by playing string
// n's recording transposed by the semitones between the tuning's note and
// that recording, 2^(semitones/12) times faster.

#include <array>
#include <string>
#include <string_view>

namespace zt {

struct ByEarStrings {
    static constexpr int kStrings = 6;
    // By string number: [n - 1] is string n, 1 the highest.
    // Semitones from the recorded open string, signed (Drop D: -2 on the 6th).
    std::array<int, kStrings> offsets{};
    // The pitch name without its octave ("C#").
    std::array<std::string, kStrings> notes{};
};

// A note token ("A#3") as 12 x octave + pitch class (C0 = 0, E2 = 28, B9 =
// 119); -1 for anything else.
int notePosition(std::string_view token);

// The strings of a tuning string ("D2&A2&D3&G3&B3&E4", lowest first) as
// they sound with a capo at fret `capo` (0: none), each `capo` semitones
// higher and named by the note heard. A token that is not a note leaves its
// string at the recorded pitch (raised by the capo), named by the token
// itself; a tuning of fewer than six tokens leaves the rest so too.
ByEarStrings byEarStrings(std::string_view tuning, int capo = 0);

}  // namespace zt
