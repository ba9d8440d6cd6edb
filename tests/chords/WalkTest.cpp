// Every root and type in every one of the 53 tunings: no crash, no overflow
// of the fixed-size block, and on every record the rules of a playable
// shape, the pitches it claims, its fingers and barres, its group and its
// place in the order shown.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <sstream>

#include "ChordTesting.h"

namespace zt::test {
namespace {

bool isNinth(std::string_view type) {
    return type == "9" || type == "-9" || type == "m9" || type == "m-9" || type == "maj9";
}

// Every fault found in one record, as text; empty when it is sound.
std::string faults(const ChordVariation& v, const chords::ParsedChord& chord, std::string_view type,
                   const ChordLibrary& library) {
    std::ostringstream out;
    const int played = v.playedStrings();
    const int lowestBass = type == "5" ? 3 : 4;
    if (v.firstString < lowestBass || v.firstString > 6)
        out << " bass on string " << v.firstString << ";";
    if (played < 3 || played > v.firstString || (type == "dim" && played < 4))
        out << " " << played << " strings;";

    std::uint16_t tones = 0, sounded = 0;
    for (int i = 0; i < chord.toneCount; ++i)
        tones |= std::uint16_t(1u << chord.tones[i]);
    int lowest = 99, lowestFretted = kNoFrettedString, highest = 0, open = 0;
    bool doubled = false;
    for (int p = 0; p < kStringCount; ++p) {
        const int fret = v.frets[p];
        if (p >= played) {
            if (fret != -1 || v.pitches[p] != -1 || v.fingers[p] != fingercode::kMuted)
                out << " position " << p << " not muted;";
            continue;
        }
        const int openNote = library.tuningDictionary()[v.firstString - 1 - p].index;
        if (fret < 0 || v.pitches[p] != openNote + fret)
            out << " pitch " << v.pitches[p] << " at position " << p << ";";
        const auto tone = std::uint16_t(1u << (v.pitches[p] % 12));
        if ((tones & tone) == 0)
            out << " " << noteName(v.pitches[p]) << " is no chord tone;";
        doubled = doubled || (sounded & tone);
        sounded |= tone;
        lowest = std::min(lowest, fret);
        if (fret > 0)
            lowestFretted = std::min(lowestFretted, fret);
        highest = std::max(highest, fret);
    }
    for (int p = 0; p < played; ++p)
        open += v.frets[p] == 0;
    const std::uint16_t missing = tones & std::uint16_t(~sounded);
    const auto fifth = std::uint16_t(1u << chord.tones[2]);
    if (missing != 0 && !(isNinth(type) && missing == fifth))
        out << " a chord tone is missing;";
    if (type == "dim7" && doubled)
        out << " a doubled note in a dim7;";
    if (lowest != v.lowestFret || lowestFretted != v.lowestFrettedFret || open != v.openStrings)
        out << " position fields;";
    if (lowest >= 12)
        out << " starts at fret " << lowest << ";";
    const int stretch = highest - std::max(lowest, 1);
    if (stretch > 3 || (open > 0 && highest > 4))
        out << " stretches over " << stretch << " frets;";

    const int bass = v.pitches[0] % 12;
    const int bassNote = type == "dim7" || bass == chord.tonic ? -1 : bass;
    if (v.bassNote != bassNote)
        out << " bassNote " << v.bassNote << ";";

    // Fingers: open 0, fretted 1 to 4; a barre cell carries its barre's finger.
    int highestFinger = 0;
    for (int p = 0; p < played; ++p) {
        const int finger = fingercode::number(v.fingers[p]);
        if ((v.frets[p] == 0) != (finger == 0) || finger < 0 || finger > 4)
            out << " finger " << v.fingers[p] << " at position " << p << ";";
        highestFinger = std::max(highestFinger, finger);
    }
    if (v.fingersUsed < 0 || v.fingersUsed > 4 || highestFinger > 4)
        out << " " << v.fingersUsed << " fingers;";
    if (v.barres.count < 0 || v.barres.count > 3)
        out << " " << v.barres.count << " barres;";
    for (int b = 0; b < std::clamp(v.barres.count, 0, 6); ++b) {
        const int first = v.barres.first[b], last = v.barres.last[b], fret = v.barres.fret[b];
        const bool ends = first >= 0 && first < last && last < played && v.frets[first] == fret &&
                          v.frets[last] == fret;
        if (!v.barres.valid[b] || !ends || v.barres.finger[b] < 1 || v.barres.finger[b] > 4) {
            out << " barre " << b << ";";
            continue;
        }
        for (int p = first; p <= last; ++p) {
            if (v.frets[p] == fret && fingercode::number(v.fingers[p]) != v.barres.finger[b])
                out << " barre " << b << " finger at position " << p << ";";
        }
    }
    return out.str();
}

TEST(GeneratorWalk, EveryChordInEveryTuningGivesSoundShapesInOrder) {
    ChordLibrary library;
    const auto set = std::make_unique<VariationSet>();
    int chords = 0, withoutShape = 0, ninthsWithoutFifth = 0, threeStringFives = 0,
        fourStringDims = 0, mostRaw = 0, mostShapes = 0;
    for (const auto& tuning : tunings::catalogue()) {
        useTuning(library, tuning.name);
        for (auto root : chords::names()) {
            for (auto type : chords::typeKeys()) {
                const std::string name =
                    std::string(tuning.name) + " " + std::string(root) + std::string(type);
                const auto chord = *chords::parseChord(root, type);
                library.getVariations(root, type, *set);
                sortVariations(*set);
                ++chords;
                withoutShape += set->count == 0;
                mostRaw = std::max(mostRaw, library.rawCount());
                mostShapes = std::max(mostShapes, int(set->count));
                ASSERT_LE(library.rawCount(), VariationSet::kCapacity) << name;
                ASSERT_LE(set->count, library.rawCount()) << name;

                // Groups: consecutive runs of one bass note, the root's first.
                ASSERT_GE(set->groupCount, 1) << name;
                ASSERT_LE(set->groupCount, std::min(chord.toneCount, VariationSet::kMaxGroups));
                EXPECT_EQ(set->groupStart[0], 0) << name;
                EXPECT_EQ(set->groupStart[set->groupCount], set->count) << name;
                for (int g = 0; g < set->groupCount; ++g) {
                    const auto group = set->group(g);
                    ASSERT_TRUE(g == 0 || !group.empty()) << name;
                    for (std::size_t i = 0; i < group.size(); ++i) {
                        EXPECT_EQ(group[i].bassNote, group[0].bassNote) << name;
                        if (i > 0) {
                            EXPECT_FALSE(showsBefore(group[i], group[i - 1])) << name << " " << i;
                        }
                    }
                    if (g > 0) {
                        EXPECT_NE(group[0].bassNote, set->group(g - 1)[0].bassNote) << name;
                    }
                }
                if (set->count > 0 && set->records[0].bassNote != -1) {
                    for (const auto& v : set->variations())
                        EXPECT_NE(v.bassNote, -1) << name << ": the root's group is not first";
                }

                for (const auto& v : set->variations()) {
                    const std::string found = faults(v, chord, type, library);
                    ASSERT_EQ(found, "") << name << ": " << fretsOf(v);
                    if (isNinth(type)) {
                        const int fifth = chord.tones[2];
                        ninthsWithoutFifth +=
                            std::none_of(v.pitches.begin(), v.pitches.begin() + v.playedStrings(),
                                         [&](int pitch) { return pitch % 12 == fifth; });
                    }
                    threeStringFives += type == "5" && v.playedStrings() == 3;
                    fourStringDims += type == "dim" && v.playedStrings() == 4;
                }
            }
        }
    }
    EXPECT_EQ(chords, 12 * 24 * 53);
    // Chords of the modal tunings (Csus2, D modal (2), E modal) whose tones
    // the open strings cannot all be fitted to within the rules.
    EXPECT_EQ(withoutShape, 84);
    // The rules at their edges are reached, not only respected.
    EXPECT_GT(ninthsWithoutFifth, 0);
    EXPECT_GT(threeStringFives, 0);
    EXPECT_GT(fourStringDims, 0);
    RecordProperty("most_raw", mostRaw);
    RecordProperty("most_shapes", mostShapes);
    std::printf("%d chords, %d without a shape; at most %d raw shapes and %d kept for one\n",
                chords, withoutShape, mostRaw, mostShapes);
}

TEST(GeneratorWalk, TheSameChordTwiceGivesTheSameShapes) {
    ChordLibrary library;
    useTuning(library, "Open G");
    const auto first = std::make_unique<VariationSet>();
    const auto again = std::make_unique<VariationSet>();
    library.getVariations("A#", "m9", *first);
    library.getVariations("C", "", *again);
    library.getVariations("A#", "m9", *again);
    ASSERT_EQ(first->count, again->count);
    for (int i = 0; i < first->count; ++i) {
        EXPECT_EQ(0, std::memcmp(&first->records[i], &again->records[i], sizeof(ChordVariation)))
            << i;
    }
}

}  // namespace
}  // namespace zt::test
