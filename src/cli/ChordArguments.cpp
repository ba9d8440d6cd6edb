#include "cli/ChordArguments.h"

#include <CLI/CLI.hpp>
#include <charconv>

#include "chords/Capo.h"
#include "chords/ChordCatalogue.h"
#include "chords/VariationOrder.h"
#include "tunings/TuningCatalogue.h"
#include "tunings/TuningList.h"

namespace zt::cli {

std::optional<std::string> chordName(const std::string& text) {
    std::string name = text;
    if (name.size() >= 2 && name[1] == 'b') {
        const auto letter = chords::pitchClass(name.substr(0, 1));
        if (!letter)
            return std::nullopt;
        const int below = (*letter + chords::kPitchClasses - 1) % chords::kPitchClasses;
        name = std::string(chords::names()[static_cast<std::size_t>(below)]) + name.substr(2);
    }
    if (!chords::parseChord(name))
        return std::nullopt;
    return name;
}

namespace {

std::string typeList() {
    std::string list = "major (nothing)";
    for (auto key : chords::typeKeys()) {
        if (!key.empty())
            list += ", " + std::string(key);
    }
    return list;
}

}  // namespace

CLI::Validator chordValidator() {
    return CLI::Validator(
        [](std::string& text) {
            if (chordName(text))
                return std::string();
            return "\"" + text +
                   "\" is not a chord: write a root (C C# D D# E F F# G G# A A# B, or a flat "
                   "such as Bb) followed by a type: " +
                   typeList();
        },
        "CHORD");
}

std::optional<std::size_t> tuningIndex(const std::string& text) {
    const int index = tunings::userTunings().find(text);
    return index >= 0 ? std::optional(static_cast<std::size_t>(index)) : std::nullopt;
}

CLI::Validator tuningValidator() {
    return CLI::Validator(
        [](std::string& text) {
            if (tuningIndex(text))
                return std::string();
            std::string list = "\"" + text + "\" is not a tuning; give its number or its name:";
            const auto known = tunings::userTunings();
            const auto& all = known.entries();
            for (std::size_t i = 0; i < all.size(); ++i) {
                list += "\n  " + std::to_string(i) + (i < 10 ? "   " : "  ") + all[i].name + "  " +
                        all[i].notes;
            }
            return list;
        },
        "N|NAME");
}

TuningChoice useTuning(ChordLibrary& library, std::size_t index, int capo) {
    const auto tuning = tunings::userTunings().at(static_cast<int>(index));
    const auto tokens = tunings::tokens(tuning.notes);
    const auto sounding = chords::raisedTokens(tokens, capo).value_or(tokens);
    library.setTuning(sounding);
    library.setExpandedTuning(sounding);
    std::string notes;
    for (const auto& token : tokens)
        notes += (notes.empty() ? "" : " ") + token;
    return {std::string(tuning.name), notes};
}

std::pair<std::string, std::string> splitChord(const std::string& text) {
    const std::string name = *chordName(text);
    const std::size_t rootLength = name.size() > 1 && name[1] == '#' ? 2 : 1;
    return {name.substr(0, rootLength), name.substr(rootLength)};
}

Fingerings fingerings(const std::string& text, std::size_t tuningIndex, int capo) {
    Fingerings f;
    ChordLibrary library;
    f.tuning = useTuning(library, tuningIndex, capo);
    const auto [root, type] = splitChord(text);
    f.root = root;
    f.chord = root + type;
    f.capo = capo;
    f.shape = capo > 0 ? chords::shapeNote(root, capo) + type : f.chord;
    f.set = std::make_unique<VariationSet>();
    library.getVariations(root, type, *f.set);
    sortVariations(*f.set);
    chords::dropPastLastFret(*f.set, capo);
    return f;
}

const ChordVariation* Fingerings::pick(int variation, std::string& error) const {
    if (set->count == 0) {
        error = chord + " has no fingering in " + tuning.name;
        return nullptr;
    }
    if (variation < 1 || variation > set->count) {
        error = chord + " has " + std::to_string(set->count) + " fingerings in " + tuning.name +
                "; --variation " + std::to_string(variation) + " is past the last";
        return nullptr;
    }
    return &set->records[static_cast<std::size_t>(variation - 1)];
}

}  // namespace zt::cli
