#include "chords/ChordCatalogue.h"

#include <algorithm>

namespace zt::chords {

namespace {

constexpr std::array<std::string_view, kPitchClasses> kNames{"C",  "C#", "D",  "D#", "E",  "F",
                                                             "F#", "G",  "G#", "A",  "A#", "B"};

constexpr std::array<std::string_view, kTypeCount> kTypeKeys{
    "",    "7",    "maj7", "6", "m", "m7",  "m/maj7", "m6", "sus2", "sus4", "7sus2", "7sus4",
    "dim", "dim7", "aug",  "5", "2", "7+5", "9",      "-9", "m-9",  "m9",   "maj9",  "add9"};

// Degrees as stored, same order as kTypeKeys. Ninths are written within the
// octave ("3" the ninth, "2" the flat ninth); "2" and "add9" hold the same
// notes in a different order, and the order decides which tone is tried in
// the bass first.
constexpr std::array<Formula, kTypeCount> kFormulas{{
    {{1, 5, 8}, 3},         // major
    {{1, 5, 8, 11}, 4},     // 7
    {{1, 5, 8, 12}, 4},     // maj7
    {{1, 5, 8, 10}, 4},     // 6
    {{1, 4, 8}, 3},         // m
    {{1, 4, 8, 11}, 4},     // m7
    {{1, 4, 8, 12}, 4},     // m/maj7
    {{1, 4, 8, 10}, 4},     // m6
    {{1, 3, 8}, 3},         // sus2
    {{1, 6, 8}, 3},         // sus4
    {{1, 3, 8, 11}, 4},     // 7sus2
    {{1, 6, 8, 11}, 4},     // 7sus4
    {{1, 4, 7}, 3},         // dim
    {{1, 4, 7, 10}, 4},     // dim7
    {{1, 5, 9}, 3},         // aug
    {{1, 8}, 2},            // 5
    {{1, 3, 5, 8}, 4},      // 2
    {{1, 5, 9, 11}, 4},     // 7+5
    {{1, 5, 8, 11, 3}, 5},  // 9
    {{1, 5, 8, 11, 2}, 5},  // -9
    {{1, 4, 8, 11, 2}, 5},  // m-9
    {{1, 4, 8, 11, 3}, 5},  // m9
    {{1, 5, 8, 12, 3}, 5},  // maj9
    {{1, 5, 8, 3}, 4},      // add9
}};

constexpr std::array<std::string_view, kTypeCount> kTypeLabels{
    "major", "minor", "dim", "aug", "2",  "7",  "m7",  "maj7", "dim7", "m/maj7", "7+5",  "7sus2",
    "7sus4", "6",     "m6",  "9",   "-9", "m9", "m-9", "maj9", "sus2", "sus4",   "add9", "5"};

constexpr std::string_view kSharpSign = "\u266F";
constexpr std::string_view kFlatSign = "\u266D";

}  // namespace

const std::array<std::string_view, kPitchClasses>& names() {
    return kNames;
}

const std::array<std::string, kTokenCount>& tokens() {
    static const auto table = [] {
        std::array<std::string, kTokenCount> t;
        for (int octave = 0; octave < kOctaveCount; ++octave) {
            for (int pc = 0; pc < kPitchClasses; ++pc)
                t[octave * kPitchClasses + pc] = std::string(kNames[pc]) + std::to_string(octave);
        }
        return t;
    }();
    return table;
}

std::optional<int> tokenNumber(std::string_view token) {
    const auto& all = tokens();
    const auto it = std::find(all.begin(), all.end(), token);
    if (it == all.end())
        return std::nullopt;
    return static_cast<int>(it - all.begin());
}

std::optional<int> pitchClass(std::string_view name) {
    const auto it = std::find(kNames.begin(), kNames.end(), name);
    if (it == kNames.end())
        return std::nullopt;
    return static_cast<int>(it - kNames.begin());
}

const std::array<std::string_view, kTypeCount>& typeKeys() {
    return kTypeKeys;
}

std::optional<int> typeIndex(std::string_view key) {
    const auto it = std::find(kTypeKeys.begin(), kTypeKeys.end(), key);
    if (it == kTypeKeys.end())
        return std::nullopt;
    return static_cast<int>(it - kTypeKeys.begin());
}

const Formula& formula(int type) {
    return kFormulas[static_cast<std::size_t>(type)];
}

const std::array<std::string, kPitchClasses>& rootLabels() {
    static const auto labels = [] {
        std::array<std::string, kPitchClasses> l;
        for (int pc = 0; pc < kPitchClasses; ++pc) {
            if (kNames[pc].size() == 1) {
                l[pc] = std::string(kNames[pc]);
                continue;
            }
            // "C♯ (D♭)": the letter below with a sharp, the letter above with a flat.
            l[pc] = std::string(1, kNames[pc][0]) + std::string(kSharpSign) + " (" +
                    std::string(1, kNames[pc + 1][0]) + std::string(kFlatSign) + ")";
        }
        return l;
    }();
    return labels;
}

const std::array<std::string_view, kTypeCount>& typeLabels() {
    return kTypeLabels;
}

std::string rootForLabel(std::string_view label) {
    const auto& labels = rootLabels();
    const auto it = std::find(labels.begin(), labels.end(), label);
    if (it == labels.end())
        return {};
    return std::string(kNames[static_cast<std::size_t>(it - labels.begin())]);
}

std::optional<std::string_view> typeKeyForLabel(std::string_view label) {
    if (std::find(kTypeLabels.begin(), kTypeLabels.end(), label) == kTypeLabels.end())
        return std::nullopt;
    if (label == "major")
        return kTypeKeys[0];
    if (label == "minor")
        return kTypeKeys[static_cast<std::size_t>(*typeIndex("m"))];
    return kTypeKeys[static_cast<std::size_t>(*typeIndex(label))];
}

std::optional<ParsedChord> parseChord(std::string_view root, std::string_view typeKey) {
    const auto tonic = pitchClass(root);
    const auto type = typeIndex(typeKey);
    if (!tonic || !type)
        return std::nullopt;
    ParsedChord chord;
    chord.tonic = *tonic;
    chord.type = *type;
    const Formula& f = formula(*type);
    chord.toneCount = f.size;
    for (int i = 0; i < f.size; ++i)
        chord.tones[static_cast<std::size_t>(i)] = (*tonic + f.semitones(i)) % kPitchClasses;
    return chord;
}

std::optional<ParsedChord> parseChord(std::string_view name) {
    if (name.empty())
        return std::nullopt;
    // A letter, then "#" when the second character is one; the rest is the type.
    const std::size_t rootLength = name.size() > 1 && name[1] == '#' ? 2 : 1;
    return parseChord(name.substr(0, rootLength), name.substr(rootLength));
}

std::optional<ChordInfo> chordInfo(std::string_view name) {
    const auto chord = parseChord(name);
    if (!chord)
        return std::nullopt;
    ChordInfo info;
    info.tonic = std::string(kNames[static_cast<std::size_t>(chord->tonic)]);
    info.type = std::string(kTypeKeys[static_cast<std::size_t>(chord->type)]);
    for (int i = 0; i < chord->toneCount; ++i)
        info.notes.emplace_back(kNames[static_cast<std::size_t>(chord->tones[i])]);
    return info;
}

}  // namespace zt::chords
