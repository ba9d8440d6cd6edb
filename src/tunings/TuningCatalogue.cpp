#include "tunings/TuningCatalogue.h"

#include "state/StateKeys.h"

namespace zt::tunings {

static_assert(kCount == static_cast<std::size_t>(state::common::kTuning.max) + 1,
              "the saved \"Tuning\" range must cover the catalogue");

namespace {

// Names and strings are kept letter for letter, quirks included ("New
// Standart", "D4&D4" in "D modal (2)"); the order is part of the saved data.
constexpr std::array<Tuning, kCount> kCatalogue{{
    {"Standard", "E2&A2&D3&G3&B3&E4"},
    {"All Fourths", "E2&A2&D3&G3&C4&F4"},
    {"Baritone", "B1&E2&A2&D3&F#3&B3"},
    {"C#", "C#2&F#2&B2&E3&G#3&C#4"},
    {"C6", "C2&A2&C3&G3&C4&E4"},
    {"Crossnote A", "E2&A2&E3&A3&C4&E4"},
    {"Crossnote A (2)", "E2&A2&C3&E3&A3&E4"},
    {"Crossnote D", "D2&A2&D3&F3&A3&D4"},
    {"Crossnote E", "E2&B2&E3&G3&B3&E4"},
    {"Crossnote F", "F2&G#2&C3&F3&C4&F4"},
    {"Crossnote F (2)", "F2&C3&F3&A3&C4&F4"},
    {"Crossnote G", "D2&G2&D3&G3&A#3&D4"},
    {"Csus2", "C2&G2&C3&G3&C4&D4"},
    {"D modal", "D2&A2&D3&G3&A3&D4"},
    {"D modal (2)", "D2&A2&D3&A3&D4&D4"},
    {"Double Drop A", "A1&E2&A2&D3&F#3&A3"},
    {"Double Drop Bb", "A#1&F2&A#2&D#3&G3&A#3"},
    {"Double Drop B", "B1&F#2&B2&E3&G#3&B3"},
    {"Double Drop C", "C2&G2&C3&F3&A3&C4"},
    {"Double Drop C#", "C#2&G#2&C#3&F#3&A#3&C#4"},
    {"Double Drop D", "D2&A2&D3&G3&B3&D4"},
    {"Drop A", "A1&E2&A2&D3&F#3&B3"},
    {"Drop A (2)", "A1&A2&D3&G3&B3&E4"},
    {"Drop Bb", "A#1&F2&A#2&D#3&G3&C4"},
    {"Drop B", "B1&F#2&B2&E3&G#3&C#4"},
    {"Drop C", "C2&G2&C3&F3&A3&D4"},
    {"Drop C#", "C#2&G#2&C#3&F#3&A#3&D#4"},
    {"Drop D", "D2&A2&D3&G3&B3&E4"},
    {"Dsus2", "D2&A2&D3&E3&A3&D4"},
    {"E modal", "E2&B2&E3&E3&B3&E4"},
    {"Esus2", "E2&A2&E3&F#3&B3&E4"},
    {"Esus4", "E2&A2&E3&A3&B3&E4"},
    {"Eb (Hendrix)", "D#2&G#2&C#3&F#3&A#3&D#4"},
    {"Full Step Down", "D2&G2&C3&F3&A3&D4"},
    {"G modal", "G1&G2&D3&G3&B3&D4"},
    {"Gambale", "A1&D2&G2&C3&E3&A3"},
    {"Gsus2", "D2&G2&D3&G3&A3&D4"},
    {"Gsus4", "D2&G2&D3&G3&C4&D4"},
    {"Gsus4 (2)", "D2&G2&C3&G3&C4&D4"},
    {"Guinnevere", "E2&B2&D3&G3&A3&D4"},
    {"New Standart", "C2&G2&D3&A3&E4&G4"},
    {"Open A", "E2&A2&C#3&E3&A3&E4"},
    {"Open A (2)", "E2&A2&C#3&E3&A3&C#4"},
    {"Open A (slide)", "E2&A2&E3&A3&C#4&E4"},
    {"Open C", "C2&G2&C3&G3&C4&E4"},
    {"Open C#", "C#2&G#2&C#3&F3&G#3&C#4"},
    {"Open D", "D2&A2&D3&F#3&A3&D4"},
    {"Open Eb", "D#2&A#2&D#3&G3&A#3&D#4"},
    {"Open E", "E2&B2&E3&G#3&B3&E4"},
    {"Open F", "F2&A2&C3&F3&C4&F4"},
    {"Open F (2)", "C2&F2&C3&F3&A3&F4"},
    {"Open G", "D2&G2&D3&G3&B3&D4"},
    {"Open G Minor", "D2&G2&D3&G3&A#3&D4"},
}};

}  // namespace

const std::array<Tuning, kCount>& catalogue() {
    return kCatalogue;
}

std::vector<std::string> tokens(std::string_view notes) {
    std::vector<std::string> out;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = notes.find('&', start);
        out.emplace_back(notes.substr(start, end - start));
        if (end == std::string_view::npos)
            break;
        start = end + 1;
    }
    return out;
}

std::string compactLabel(std::string_view notes) {
    std::string label;
    for (const auto& token : tokens(notes)) {
        label += token.substr(0, token.empty() ? 0 : token.size() - 1);
    }
    return label;
}

}  // namespace zt::tunings
