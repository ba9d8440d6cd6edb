#include "chords/Capo.h"

#include <algorithm>

#include "chords/ChordCatalogue.h"

namespace zt::chords {

namespace {

int highestFret(const ChordVariation& v) {
    int highest = 0;
    for (int p = 0; p < v.playedStrings(); ++p)
        highest = std::max(highest, v.frets[static_cast<std::size_t>(p)]);
    return highest;
}

}  // namespace

std::optional<std::vector<std::string>> raisedTokens(const std::vector<std::string>& tokens,
                                                     int capo) {
    if (capo < 0 || capo > kMaxCapo)
        return std::nullopt;
    std::vector<std::string> raised;
    raised.reserve(tokens.size());
    for (const std::string& token : tokens) {
        const auto note = tokenNumber(token);
        if (!note || *note + capo >= kTokenCount)
            return std::nullopt;
        raised.push_back(chords::tokens()[static_cast<std::size_t>(*note + capo)]);
    }
    return raised;
}

std::string shapeNote(std::string_view note, int capo) {
    const auto pitch = pitchClass(note);
    if (!pitch || capo < 0 || capo > kMaxCapo)
        return {};
    const int lowered = (*pitch - capo + kPitchClasses) % kPitchClasses;
    return std::string(names()[static_cast<std::size_t>(lowered)]);
}

std::string capoFretText(int capo) {
    if (capo <= 0)
        return "none";
    // 11th, 12th and 13th take "th" whatever their last digit says.
    const int last = capo % 10;
    const bool teen = capo % 100 >= 11 && capo % 100 <= 13;
    const char* suffix = teen        ? "th"
                         : last == 1 ? "st"
                         : last == 2 ? "nd"
                         : last == 3 ? "rd"
                                     : "th";
    return std::to_string(capo) + suffix + " fret";
}

void dropPastLastFret(VariationSet& set, int capo) {
    if (capo <= 0)
        return;
    const int last = kLastFret - capo;
    std::array<std::int32_t, VariationSet::kMaxGroups + 1> starts{};
    int kept = 0;
    int groups = 0;
    for (int g = 0; g < set.groupCount; ++g) {
        const int begin = kept;
        for (int i = set.groupStart[g]; i < set.groupStart[g + 1]; ++i) {
            const auto& v = set.records[static_cast<std::size_t>(i)];
            if (highestFret(v) <= last)
                set.records[static_cast<std::size_t>(kept++)] = v;
        }
        if (kept > begin)
            starts[static_cast<std::size_t>(groups++)] = begin;
    }
    starts[static_cast<std::size_t>(groups)] = kept;
    set.count = kept;
    set.groupCount = std::max(groups, 1);
    set.groupStart = starts;
}

}  // namespace zt::chords
