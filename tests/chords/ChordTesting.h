#pragma once
// Shapes written the way guitarists write them: one entry per string from
// the 6th to the 1st, "x" muted, so that a test reads like a chord chart.

#include <string>
#include <string_view>
#include <vector>

#include "chords/ChordLibrary.h"
#include "chords/ChordShape.h"
#include "chords/VariationOrder.h"
#include "tunings/TuningCatalogue.h"

namespace zt::test {

// The frets from the 6th string to the 1st: "x 3 2 0 1 0".
inline std::string fretsOf(const ChordVariation& v) {
    std::string text;
    for (int n = kStringCount; n >= 1; --n) {
        const int fret = fretOnString(v, n);
        text += (text.empty() ? "" : " ") + (fret < 0 ? std::string("x") : std::to_string(fret));
    }
    return text;
}

// The fingers in the same order: "x 3 2 0 1 0" (0 open, x muted).
inline std::string fingersOf(const ChordVariation& v) {
    const ChordShape shape = shapeOf(v);
    std::string text;
    for (int n = kStringCount; n >= 1; --n) {
        const int finger = shape.string(n).finger;
        text +=
            (text.empty() ? "" : " ") + (finger < 0 ? std::string("x") : std::to_string(finger));
    }
    return text;
}

// Index of the record with these frets in [first, last), or -1.
inline int find(const VariationSet& set, const std::string& frets, int first = 0, int last = -1) {
    if (last < 0)
        last = set.count;
    for (int i = first; i < last; ++i) {
        if (fretsOf(set.records[static_cast<std::size_t>(i)]) == frets)
            return i;
    }
    return -1;
}

inline void useTuning(ChordLibrary& library, std::string_view name) {
    for (const auto& tuning : tunings::catalogue()) {
        if (tuning.name == name) {
            const auto tokens = tunings::tokens(tuning.notes);
            library.setTuning(tokens);
            library.setExpandedTuning(tokens);
            return;
        }
    }
}

// frets from the 6th string to the 1st ("1 3 3 2 1 1", "x 0 2 2 1 0") as
// the generator stores them: by position from the bass, with the bass's
// string number and the number of sounding strings.
struct Positions {
    std::array<std::int32_t, kStringCount> frets{};
    int firstString = 0;
    int played = 0;
    int lowestFretted = kNoFrettedString;
};

inline Positions positions(const std::string& chart) {
    std::vector<int> bySix;
    for (std::size_t at = 0; at < chart.size();) {
        const std::size_t end = chart.find(' ', at);
        const std::string cell = chart.substr(at, end - at);
        bySix.push_back(cell == "x" ? -1 : std::stoi(cell));
        at = end == std::string::npos ? chart.size() : end + 1;
    }
    Positions p;
    p.frets.fill(-1);
    std::size_t i = 0;
    while (i < bySix.size() && bySix[i] < 0)
        ++i;
    p.firstString = kStringCount - static_cast<int>(i);
    for (; i < bySix.size() && bySix[i] >= 0; ++i) {
        p.frets[static_cast<std::size_t>(p.played++)] = bySix[i];
        if (bySix[i] > 0)
            p.lowestFretted = std::min(p.lowestFretted, bySix[i]);
    }
    return p;
}

}  // namespace zt::test
