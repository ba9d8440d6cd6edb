#pragma once
// The tempo wheel and its read-outs. The wheel has 221 rows; row r means
// r + 20 beats per minute (20 to 240). The saved "BPM" key holds the row.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "state/StateKeys.h"

namespace zt {

// One row per saved "BPM" value.
inline constexpr int kWheelRows = state::metronome::kBPM.max - state::metronome::kBPM.min + 1;
inline constexpr int kMinTempo = 20;
inline constexpr int kMaxTempo = kMinTempo + kWheelRows - 1;

constexpr int tempoForRow(int row) {
    return row + kMinTempo;
}
constexpr int rowForTempo(int tempo) {
    return tempo - kMinTempo;
}
constexpr bool isWheelRow(int row) {
    return row >= 0 && row < kWheelRows;
}

// Plus: the next row up, or nothing at all (no restart either) at the top.
std::optional<int> rowAfterPlus(int row);
// Minus has no bottom check of its own: it asks the wheel for row - 1, and at
// row 0 the wheel refuses, so the row stays 0. The restart still happens.
int rowAfterMinus(int row);

// The digits text: "%d" above 99, else "0%d" (80 -> "080").
std::string tempoDigitsText(int tempo);
// The three digit images of that text, -1 for a leading "0", which shows blank.
std::array<int, 3> tempoDigits(int tempo);

// Italian tempo name ("Andante") by tempo, and its upper-case label form.
// Tempos outside 20..240 take the name of the nearest end.
std::string_view tempoName(int tempo);
std::string tempoLabel(int tempo);

}  // namespace zt
