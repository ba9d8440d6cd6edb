#include "chords/ui/ChordsSavedState.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "state/StateKeys.h"

namespace zt {

namespace keys = state::chords;

namespace {

std::string flag(bool on) {
    return on ? "1" : "0";
}

bool savedFlag(const Dictionary& section, const state::TextKey& key) {
    const std::optional<int> number = savedInt(valueFor(section, key.name));
    return number ? *number != 0 : std::string(key.fallback) == "1";
}

std::optional<int> bounded(double d) {
    if (!std::isfinite(d))
        return std::nullopt;
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::trunc(d), lowest, highest));
}

}  // namespace

std::optional<int> savedInt(const Value& value) {
    if (value.isBool())
        return value.toBool() ? 1 : 0;
    if (value.isInt()) {
        const std::int64_t i = value.toInt();
        return bounded(static_cast<double>(i));
    }
    if (value.isReal())
        return bounded(value.toDouble());
    if (!value.isString())
        return std::nullopt;
    const std::string text = value.toString();
    const char* first = text.c_str();
    while (*first == ' ' || *first == '\t')
        ++first;
    const char* last = text.c_str() + text.size();
    while (last > first && (last[-1] == ' ' || last[-1] == '\t'))
        --last;
    if (first == last)
        return std::nullopt;
    char* end = nullptr;
    const double d = std::strtod(first, &end);
    if (end != last)
        return std::nullopt;
    return bounded(d);
}

Dictionary savedDictionary(const ChordsState& state) {
    Dictionary d;
    d[keys::kChordName.name] = state.choice.label();
    d[keys::kCurrentVariationsIndex.name] = std::to_string(state.currentVariationsIndex);
    for (std::size_t s = 0; s < kStringCount; ++s) {
        d[keys::kCanPlayString[s].name] = flag(state.canPlayString[s]);
        d[keys::kLockedString[s].name] = flag(state.lockedString[s]);
    }
    d[keys::kChordPart1.name] = state.choice.chordPartOne;
    d[keys::kChordPart2.name] = state.choice.chordPartTwo;
    d[keys::kNotes.name] = state.notes;
    d[keys::kPickerComponent0Row.name] = std::to_string(state.choice.rootRow);
    d[keys::kPickerComponent1Row.name] = std::to_string(state.choice.typeRow);
    return d;
}

ChordsState restoredState(const Dictionary& section, const std::vector<std::string>& roots,
                          const std::vector<std::string>& types) {
    ChordsState state;
    auto rowFor = [&section](const state::TextKey& key, int rows) {
        const std::optional<int> row = savedInt(valueFor(section, key.name));
        return row && *row >= 0 && *row < rows ? *row : -1;
    };
    const Value& part1 = valueFor(section, keys::kChordPart1.name);
    const Value& part2 = valueFor(section, keys::kChordPart2.name);
    int rootRow = part1.isString() ? rowOfRoot(roots, part1.toString()) : -1;
    if (rootRow < 0)
        rootRow = rowFor(keys::kPickerComponent0Row, static_cast<int>(roots.size()));
    int typeRow = part2.isString() ? rowOfType(types, part2.toString()) : -1;
    if (typeRow < 0)
        typeRow = rowFor(keys::kPickerComponent1Row, static_cast<int>(types.size()));
    if (auto choice = choiceAt(roots, types, std::max(rootRow, 0), std::max(typeRow, 0)))
        state.choice = *choice;

    const std::optional<int> index =
        savedInt(valueFor(section, keys::kCurrentVariationsIndex.name));
    state.currentVariationsIndex = std::max(index.value_or(0), 0);
    for (std::size_t s = 0; s < kStringCount; ++s) {
        state.canPlayString[s] = savedFlag(section, keys::kCanPlayString[s]);
        state.lockedString[s] = savedFlag(section, keys::kLockedString[s]);
    }
    state.notes = state::read(section, keys::kNotes);
    return state;
}

}  // namespace zt
