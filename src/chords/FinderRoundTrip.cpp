#include "chords/FinderRoundTrip.h"

#include <algorithm>
#include <memory>

#include "chords/ChordLibrary.h"
#include "chords/VariationOrder.h"
#include "tunings/TuningCatalogue.h"

namespace zt::chords {

namespace {

std::string frets(const HeldStrings& held) {
    std::string text;
    for (int fret : held.frets)
        text += (text.empty() ? "" : " ") + (fret < 0 ? std::string("x") : std::to_string(fret));
    return text;
}

std::vector<std::string> sorted(std::vector<std::string> notes) {
    std::sort(notes.begin(), notes.end());
    return notes;
}

// Two names of the same notes, missing and adding the same: nothing held
// tells them apart (the bass decides which comes first).
bool tied(const FoundChord& a, const FoundChord& b) {
    return a.missing == b.missing && a.added == b.added &&
           sorted(a.tones.notes) == sorted(b.tones.notes);
}

}  // namespace

HeldStrings heldStrings(const ChordVariation& v, const std::array<int, kStringCount>& open) {
    HeldStrings held;
    held.open = open;
    for (int s = 0; s < kStringCount; ++s)
        held.frets[static_cast<std::size_t>(s)] = fretOnString(v, kStringCount - s);
    return held;
}

RoundTrip roundTrip() {
    RoundTrip result;
    ChordLibrary library;
    const auto set = std::make_unique<VariationSet>();
    for (const auto& tuning : tunings::catalogue()) {
        const auto tokens = tunings::tokens(tuning.notes);
        library.setTuning(tokens);
        library.setExpandedTuning(tokens);
        const auto open = *openNotes(tokens);
        for (int root = 0; root < kPitchClasses; ++root) {
            for (int type = 0; type < kTypeCount; ++type) {
                ++result.pairs;
                library.getVariations(names()[static_cast<std::size_t>(root)],
                                      typeKeys()[static_cast<std::size_t>(type)], *set);
                if (set->count == 0) {
                    ++result.shapeless;
                    continue;
                }
                sortVariations(*set);
                const HeldStrings held = heldStrings(set->records[0], open);
                const auto found = identify(held);
                const auto own = std::find_if(found.begin(), found.end(), [&](const auto& f) {
                    return f.root == root && f.type == type;
                });
                if (own == found.begin()) {
                    ++result.named;
                    continue;
                }
                if (own != found.end() && tied(*own, found.front())) {
                    ++result.sameNotes;
                    continue;
                }
                ++(own == found.end() ? result.absent : result.later);
                result.misses.push_back(
                    std::string(names()[static_cast<std::size_t>(root)]) +
                    std::string(typeKeys()[static_cast<std::size_t>(type)]) + " in " +
                    std::string(tuning.name) + ": " + frets(held) + " -> " +
                    (found.empty() ? std::string("no name") : found.front().name()));
            }
        }
    }
    return result;
}

}  // namespace zt::chords
