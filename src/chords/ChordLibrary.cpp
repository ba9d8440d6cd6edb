#include "chords/ChordLibrary.h"

#include <algorithm>
#include <bit>

#include "chords/FingerAssignment.h"

namespace zt {

namespace {

using chords::typeIndex;

const int kFive = *typeIndex("5");
const int kDim = *typeIndex("dim");
const int kDim7 = *typeIndex("dim7");

bool isNinth(int type) {
    for (const char* key : {"9", "-9", "m9", "m-9", "maj9"}) {
        if (type == *typeIndex(key))
            return true;
    }
    return false;
}

// Shapes whose lowest fret lies above this one are not offered.
constexpr int kHighestLowestFret = 11;

// Frets first to last as bits.
std::uint32_t fretRange(int first, int last) {
    if (first > last)
        return 0;
    return ((2u << last) - 1) & ~((1u << first) - 1);
}

// The frets a shape spanning min to max may add while staying within three
// frets, an open string counting as if pressed at the first fret: from
// max - 3 (but not below 1) to min + 3 (+ 1 when min is open), and the open
// string while max is 4 or below.
std::uint32_t reach(int min, int max) {
    return fretRange(std::max(1, max - 3), min + 3 + (min == 0 ? 1 : 0)) | (max <= 4 ? 1u : 0u);
}

std::uint16_t bit(int pitchClass) {
    return static_cast<std::uint16_t>(1u << pitchClass);
}

// Tokens come lowest string first; the tables are kept highest first.
std::vector<std::string> highestStringFirst(const std::vector<std::string>& tokens) {
    return {tokens.rbegin(), tokens.rend()};
}

}  // namespace

ChordLibrary::ChordLibrary() : raw_(std::make_unique<std::array<Raw, VariationSet::kCapacity>>()) {
    const std::vector<std::string> standard{"E2", "A2", "D3", "G3", "B3", "E4"};
    setTuning(standard);
    setExpandedTuning(standard);
}

ChordLibrary::~ChordLibrary() = default;

bool ChordLibrary::setTuning(const std::vector<std::string>& tokens) {
    if (tokens.size() != kStringCount)
        return false;
    std::array<std::array<std::int8_t, kFrets>, kStringCount> table{};
    const auto highestFirst = highestStringFirst(tokens);
    for (int s = 0; s < kStringCount; ++s) {
        const auto& token = highestFirst[s];
        const auto open = chords::tokenNumber(token);
        if (!open)
            return false;
        for (int fret = 0; fret < kFrets; ++fret)
            table[s][fret] = static_cast<std::int8_t>((*open + fret) % chords::kPitchClasses);
    }
    strings_ = table;
    return true;
}

bool ChordLibrary::setExpandedTuning(const std::vector<std::string>& tokens) {
    if (tokens.size() != kStringCount)
        return false;
    std::array<OpenString, kStringCount> expanded;
    const auto highestFirst = highestStringFirst(tokens);
    for (int s = 0; s < kStringCount; ++s) {
        const auto& token = highestFirst[s];
        const auto index = chords::tokenNumber(token);
        if (!index)
            return false;
        // "E2" -> "E" and "2"; "A#3" -> "A#" and "3".
        const std::size_t nameLength = token.size() < 3 ? 1 : 2;
        expanded[s] = {token.substr(0, nameLength), token.substr(nameLength), *index};
    }
    tuning_ = expanded;
    return true;
}

VariationSet ChordLibrary::getVariations(std::string_view root, std::string_view typeKey) {
    VariationSet out;
    getVariations(root, typeKey, out);
    return out;
}

VariationSet& ChordLibrary::getVariations(std::string_view root, std::string_view typeKey,
                                          VariationSet& out) {
    rawCount_ = 0;
    if (const auto chord = chords::parseChord(root, typeKey))
        search(*chord);
    finish(out);
    return out;
}

void ChordLibrary::search(const chords::ParsedChord& chord) {
    tonic_ = chord.tonic;
    type_ = chord.type;
    complex_ = 0;
    for (int i = 0; i < chord.toneCount; ++i)
        complex_ |= bit(chord.tones[i]);
    // The third stored tone of a ninth is its fifth.
    fifth_ = chord.tones[2];
    ninth_ = isNinth(type_);
    partialShapes_ = type_ == kFive || type_ == kDim || type_ == kDim7;
    for (int s = 0; s < kStringCount; ++s) {
        toneFrets_[s] = 0;
        for (int f = 0; f < kFrets; ++f) {
            if (complex_ & bit(strings_[s][f]))
                toneFrets_[s] |= 1u << f;
        }
    }
    // Power chords may have their bass on the 3rd string too.
    const int lowestBass = type_ == kFive ? 2 : 3;

    for (int t = 0; t < chord.toneCount; ++t) {
        bass_ = chord.tones[t];
        for (int k = 0; k <= kHighestBassFret; ++k) {
            for (int tag = 1; tag <= 2; ++tag) {
                const int start = tag == 1 ? std::max(k - 4, 0) : std::max(k - 1, 0);
                const int end = tag == 1 ? k + 1 : k + 4;
                for (int s = kStringCount - 1; s >= lowestBass; --s) {
                    firstString_ = s + 1;
                    if (strings_[s][k] != bass_)
                        continue;
                    placed_ = bit(bass_);
                    Frets frets{};
                    frets[0] = static_cast<std::int8_t>(k);
                    build(s, tag, start, end, frets, 1, k, k);
                }
            }
        }
    }
}

// c strings are still to go below the ones placed: the next is index c - 1.
// The frets placed so far span at most three frets (see reach()).
void ChordLibrary::build(int c, int tag, int start, int end, Frets frets, int step, int min,
                         int max) {
    if (placed_ == complex_) {
        if (c == 0) {
            if (passesAbandonRules(tag, frets, min, max))
                check(frets, step);
            return;
        }
        // Power chords and diminished chords may leave the strings above muted.
        if (partialShapes_) {
            if (!passesAbandonRules(tag, frets, min, max))
                return;
            check(frets, step);
        }
    } else if (c == 0) {
        if (!ninth_)
            return;
        // A ninth may do without its fifth. The fifth stays counted for the
        // rest of this bass's search, so later shapes may lack it as well.
        placed_ |= bit(fifth_);
        if (placed_ == complex_ && passesAbandonRules(tag, frets, min, max))
            check(frets, step);
        return;
    }

    // The frets of the next string that sound a chord tone, within the
    // branch's range, ascending. Frets that would stretch the shape over
    // more than three frets are left out here rather than tried and
    // abandoned, which is what keeps the search fast.
    const auto& string = strings_[c - 1];
    std::uint32_t candidates = toneFrets_[c - 1] & fretRange(start, end) & reach(min, max);
    for (; candidates != 0; candidates &= candidates - 1) {
        const int f = std::countr_zero(candidates);
        const std::uint16_t tone = bit(string[f]);
        const int low = std::min(min, f), high = std::max(max, f);
        frets[step] = static_cast<std::int8_t>(f);
        const bool added = (placed_ & tone) == 0;
        placed_ |= tone;
        build(c - 1, tag, start, end, frets, step + 1, low, high);
        if (added)
            placed_ &= static_cast<std::uint16_t>(~tone);
    }
}

bool ChordLibrary::passesAbandonRules(int tag, const Frets& frets, int min, int max) const {
    if (min > kHighestLowestFret)
        return false;
    // Shapes within a fret of the bass both ways belong to the first pass.
    return !(tag == 2 && frets[0] - min < 2 && max - frets[0] < 2);
}

void ChordLibrary::check(const Frets& frets, int played) {
    // Two strings do not make a chord here; a "dim" needs four.
    if (played == 2)
        return;
    if (type_ == kDim && played < 4)
        return;
    int bassNote = bass_ == tonic_ ? -1 : bass_;
    if (type_ == kDim7) {
        std::uint16_t sounded = 0;
        for (int p = 0; p < played; ++p) {
            const std::uint16_t tone = bit(strings_[firstString_ - 1 - p][frets[p]]);
            if (sounded & tone)
                return;
            sounded |= tone;
        }
        bassNote = -1;
    }
    if (rawCount_ >= VariationSet::kCapacity)
        return;
    Raw& r = (*raw_)[rawCount_++];
    r.firstString = firstString_;
    r.lastString = firstString_ - played + 1;
    for (int p = 0; p < kStringCount; ++p)
        r.frets[p] = p < played ? frets[p] : -1;
    r.bassNote = bassNote;
}

void ChordLibrary::finish(VariationSet& out) const {
    out.count = 0;
    for (int i = 0; i < rawCount_; ++i) {
        const Raw& r = (*raw_)[i];
        ChordVariation v;
        v.firstString = r.firstString;
        v.lastString = r.lastString;
        v.frets = r.frets;
        v.bassNote = r.bassNote;
        const int played = v.playedStrings();
        v.lowestFret = kNoFrettedString;
        v.lowestFrettedFret = kNoFrettedString;
        for (int p = 0; p < kStringCount; ++p) {
            if (p >= played) {
                v.pitches[p] = -1;
                continue;
            }
            v.pitches[p] = tuning_[r.firstString - 1 - p].index + r.frets[p];
            v.lowestFret = std::min(v.lowestFret, r.frets[p]);
            if (r.frets[p] > 0)
                v.lowestFrettedFret = std::min(v.lowestFrettedFret, r.frets[p]);
        }
        if (v.lowestFret > kHighestLowestFret)
            continue;
        FingerAssignment a = assignFingers(v.frets, played, v.lowestFrettedFret);
        if (a.fingers[0] == fingercode::kMuted)
            continue;
        spreadFingers(a, v.frets, played, v.lowestFrettedFret);
        v.fingers = a.fingers;
        v.barres = a.barres;
        v.fingersUsed = a.fingerCount - 1;
        v.openStrings = a.openCount;
        if (v.fingersUsed >= 5)
            continue;
        out.records[out.count++] = v;
    }

    out.groupStart.fill(0);
    out.groupCount = 1;
    for (int i = 1; i < out.count; ++i) {
        if (out.records[i].bassNote != out.records[i - 1].bassNote &&
            out.groupCount < VariationSet::kMaxGroups)
            out.groupStart[out.groupCount++] = i;
    }
    out.groupStart[out.groupCount] = out.count;
}

}  // namespace zt
