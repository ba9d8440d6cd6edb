#include "tunings/StringPicks.h"

namespace zt::tunings {

namespace {

bool isString(int string) {
    return string >= 0 && string < kStringCount;
}

int lowestChoice(int string) {
    return kStandardStrings[static_cast<std::size_t>(string)] - kStringReach;
}

}  // namespace

StringRows standardRows() {
    StringRows rows;
    rows.fill(kStringReach);
    return rows;
}

std::vector<std::string> stringChoices(int string, bool flats) {
    std::vector<std::string> out;
    if (!isString(string))
        return out;
    for (int row = 0; row < kChoiceCount; ++row)
        out.push_back(noteName(lowestChoice(string) + row, flats));
    return out;
}

StringPicks readPicks(std::string_view typed, const StringRows& before) {
    StringPicks out;
    out.rows = before;
    const auto words = typedWords(typed);
    for (std::size_t i = 0; i < words.size(); ++i) {
        out.flats = out.flats || typedFlat(words[i]);
        if (i >= out.rows.size())
            continue;
        const auto pitch = parseTypedWord(words[i]);
        const int row = pitch ? pitch->position() - lowestChoice(static_cast<int>(i)) : -1;
        if (row >= 0 && row < kChoiceCount) {
            out.rows[i] = row;
            out.known[i] = true;
        }
    }
    return out;
}

std::string pickInto(std::string_view typed, int string, int row, const StringRows& rows,
                     bool flats) {
    if (!isString(string) || row < 0 || row >= kChoiceCount)
        return std::string(typed);
    const std::string note = noteName(lowestChoice(string) + row, flats);
    const auto words = typedWords(typed);
    if (words.size() == rows.size()) {
        // The words are views into the text, so their offsets are the text's.
        const std::string_view word = words[static_cast<std::size_t>(string)];
        const auto at = static_cast<std::size_t>(word.data() - typed.data());
        return std::string(typed.substr(0, at)) + note +
               std::string(typed.substr(at + word.size()));
    }
    std::string out;
    for (int i = 0; i < kStringCount; ++i) {
        if (!out.empty())
            out += ' ';
        out += i == string ? note
                           : noteName(lowestChoice(i) + rows[static_cast<std::size_t>(i)], flats);
    }
    return out;
}

}  // namespace zt::tunings
