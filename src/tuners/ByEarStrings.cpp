#include "tuners/ByEarStrings.h"

#include "tunings/TuningCatalogue.h"

namespace zt {

namespace {

constexpr std::array<std::string_view, 12> kPitchNames = {"C",  "C#", "D",  "D#", "E",  "F",
                                                          "F#", "G",  "G#", "A",  "A#", "B"};

// The recordings' notes, by string number 1 to 6: E4, B3, G3, D3, A2, E2.
constexpr std::array<int, ByEarStrings::kStrings> kRecorded = {52, 47, 43, 38, 33, 28};
constexpr std::array<std::string_view, ByEarStrings::kStrings> kRecordedNames = {"E", "B", "G",
                                                                                 "D", "A", "E"};

}  // namespace

int notePosition(std::string_view token) {
    if (token.size() < 2 || token.size() > 3)
        return -1;
    const char octave = token.back();
    if (octave < '0' || octave > '9')
        return -1;
    const std::string_view name = token.substr(0, token.size() - 1);
    for (std::size_t pitch = 0; pitch < kPitchNames.size(); ++pitch) {
        if (kPitchNames[pitch] == name)
            return 12 * (octave - '0') + static_cast<int>(pitch);
    }
    return -1;
}

ByEarStrings byEarStrings(std::string_view tuning, int capo) {
    ByEarStrings strings;
    for (std::size_t s = 0; s < kRecordedNames.size(); ++s) {
        strings.notes[s] = kRecordedNames[s];
        strings.offsets[s] = capo;
    }
    const std::vector<std::string> tokens = tunings::tokens(tuning);
    // Token i is string 6 - i: the tuning lists the lowest string first.
    for (std::size_t i = 0; i < tokens.size() && i < ByEarStrings::kStrings; ++i) {
        const std::size_t s = ByEarStrings::kStrings - 1 - i;
        const std::string& token = tokens[i];
        const int position = notePosition(token);
        if (position < 0) {
            if (!token.empty())
                strings.notes[s] = token;
            continue;
        }
        strings.offsets[s] = position + capo - kRecorded[s];
        strings.notes[s] = kPitchNames[static_cast<std::size_t>((position + capo) % 12)];
    }
    return strings;
}

}  // namespace zt
