#include "tunings/TuningText.h"

#include <array>
#include <cctype>
#include <cstdlib>
#include <vector>

#include "tunings/TuningCatalogue.h"

namespace zt::tunings {

namespace {

constexpr std::array<std::string_view, 12> kSharpNames = {"C",  "C#", "D",  "D#", "E",  "F",
                                                          "F#", "G",  "G#", "A",  "A#", "B"};
constexpr std::array<std::string_view, 12> kFlatNames = {"C",  "Db", "D",  "Eb", "E",  "F",
                                                         "Gb", "G",  "Ab", "A",  "Bb", "B"};
// Letters C to B as pitches.
constexpr std::array<int, 7> kLetterPitch = {9, 11, 0, 2, 4, 5, 7};  // A B C D E F G
// The music signs as a keyboard may give them, with their plain letters.
constexpr std::array<std::pair<std::string_view, std::string_view>, 2> kSigns = {
    std::pair{"\u266F", "#"}, std::pair{"\u266D", "b"}};
constexpr std::string_view kSeparators = " \t,&";

std::string lower(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

std::string withoutSpaces(std::string_view text) {
    std::string out;
    for (char c : text) {
        if (!std::isspace(static_cast<unsigned char>(c)))
            out += c;
    }
    return out;
}

std::vector<std::string_view> words(std::string_view text, std::string_view separators) {
    std::vector<std::string_view> out;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = text.find_first_of(separators, start);
        const std::size_t stop = end == std::string_view::npos ? text.size() : end;
        if (stop > start)
            out.push_back(text.substr(start, stop - start));
        start = stop + 1;
    }
    return out;
}

// The key note a word of a tuning's name stands for ("Bb", "C#", "Csus2",
// "C6", "G"), as its letter and accidental, or "" for an ordinary word.
std::string keyNote(std::string_view word) {
    if (word.empty() || word[0] < 'A' || word[0] > 'G')
        return {};
    std::size_t rest = 1;
    if (word.size() > 1 && (word[1] == '#' || word[1] == 'b') &&
        (word.size() == 2 || !std::islower(static_cast<unsigned char>(word[2]))))
        rest = 2;
    const std::string_view tail = word.substr(rest);
    const bool chordTail = tail.empty() || std::isdigit(static_cast<unsigned char>(tail[0])) ||
                           tail.substr(0, 3) == "sus";
    return chordTail ? std::string(word.substr(0, rest)) : std::string();
}

}  // namespace

std::optional<Pitch> parseToken(std::string_view token) {
    if (token.size() < 2 || token.size() > 3)
        return std::nullopt;
    const char letter = static_cast<char>(std::toupper(static_cast<unsigned char>(token[0])));
    const char octave = token.back();
    if (letter < 'A' || letter > 'G' || octave < '0' || octave > '9')
        return std::nullopt;
    int shift = 0;
    if (token.size() == 3) {
        if (token[1] == '#')
            shift = 1;
        else if (token[1] == 'b')
            shift = -1;
        else
            return std::nullopt;
    }
    const int position = 12 * (octave - '0') + kLetterPitch[letter - 'A'] + shift;
    if (position < 0 || position >= 120)
        return std::nullopt;
    return Pitch{position % 12, position / 12};
}

bool spellsWithFlats(std::string_view name) {
    std::string key;
    bool minor = false;
    for (const auto word : words(name, " ()")) {
        const std::string low = lower(word);
        minor = minor || low == "minor" || low == "crossnote";
        if (key.empty())
            key = keyNote(word);
    }
    if (key.empty())
        return false;
    // Key signatures with flats: F major; D, G, C and F minor; any flat key.
    return key.size() == 2 ? key[1] == 'b'
                           : key == "F" || (minor && (key == "D" || key == "G" || key == "C"));
}

std::string spacedNotes(std::string_view notes, bool flats) {
    std::string out;
    for (const auto& token : tokens(notes)) {
        if (!out.empty())
            out += ' ';
        const auto pitch = parseToken(token);
        out += pitch ? (flats ? kFlatNames : kSharpNames)[static_cast<std::size_t>(pitch->pitch)]
                     : std::string_view(token);
    }
    return out;
}

bool matchesFilter(std::string_view query, std::string_view name, std::string_view notes) {
    const std::string squeezed = lower(withoutSpaces(query));
    if (squeezed.empty())
        return true;
    std::string trimmed = lower(query);
    trimmed.erase(0, trimmed.find_first_not_of(" \t"));
    trimmed.erase(trimmed.find_last_not_of(" \t") + 1);
    if (lower(name).find(trimmed) != std::string::npos)
        return true;
    for (bool flats : {false, true}) {
        if (lower(withoutSpaces(spacedNotes(notes, flats))).find(squeezed) != std::string::npos)
            return true;
    }
    return false;
}

std::string noteName(int position, bool flats) {
    const auto pitch = static_cast<std::size_t>(position % 12);
    return std::string((flats ? kFlatNames : kSharpNames)[pitch]) + std::to_string(position / 12);
}

std::vector<std::string_view> typedWords(std::string_view text) {
    return words(text, kSeparators);
}

std::optional<Pitch> parseTypedWord(std::string_view word) {
    std::string plain(word);
    for (const auto& [sign, ascii] : kSigns) {
        for (std::size_t at; (at = plain.find(sign)) != std::string::npos;)
            plain.replace(at, sign.size(), ascii);
    }
    return parseToken(plain);
}

bool typedFlat(std::string_view word) {
    return (word.size() == 3 && word[1] == 'b') || word.find(kSigns[1].first) == 1;
}

TypedTuning parseTyped(std::string_view text) {
    const auto typed = typedWords(text);
    TypedTuning out;
    if (typed.size() != kStandardStrings.size()) {
        out.error =
            "Type six notes with their octaves, lowest string first (for example D2 A2 "
            "D3 G3 A3 D4); there are " +
            std::to_string(typed.size()) + ".";
        return out;
    }
    std::string notes;
    for (std::size_t i = 0; i < typed.size(); ++i) {
        const std::string stringName = "String " + std::to_string(6 - i);
        const auto pitch = parseTypedWord(typed[i]);
        if (!pitch) {
            out.error = stringName + ": \"" + std::string(typed[i]) +
                        "\" is not a note. Use a letter from A to G, then # or b if needed, "
                        "then the octave (E2, F#3, Bb1).";
            return out;
        }
        if (std::abs(pitch->position() - kStandardStrings[i]) > kStringReach) {
            out.error = stringName + ": " + std::string(typed[i]) +
                        " is more than an octave from " + noteName(kStandardStrings[i], false) +
                        ", where the string is normally.";
            return out;
        }
        out.flats = out.flats || typedFlat(typed[i]);
        if (!notes.empty())
            notes += '&';
        notes += noteName(pitch->position(), false);
    }
    out.notes = notes;
    return out;
}

std::string typedForm(std::string_view notes, bool flats) {
    std::string out;
    for (const auto& token : tokens(notes)) {
        if (!out.empty())
            out += ' ';
        const auto pitch = parseToken(token);
        out += pitch ? noteName(pitch->position(), flats) : token;
    }
    return out;
}

}  // namespace zt::tunings
