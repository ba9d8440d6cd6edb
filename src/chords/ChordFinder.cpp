#include "chords/ChordFinder.h"

#include <algorithm>
#include <bit>
#include <tuple>

namespace zt::chords {

namespace {

constexpr int kFifth = 7;

std::string join(const std::vector<std::string>& parts) {
    std::string text;
    for (const auto& part : parts)
        text += (text.empty() ? "" : " ") + part;
    return text;
}

std::string nameOf(int pitchClass) {
    return std::string(names()[static_cast<std::size_t>(pitchClass)]);
}

bool isType(int type, std::string_view key) {
    return typeKeys()[static_cast<std::size_t>(type)] == key;
}

// The chord tones of root and type, one bit per pitch class.
unsigned toneBits(int root, int type) {
    const Formula& f = formula(type);
    unsigned bits = 0;
    for (int i = 0; i < f.size; ++i)
        bits |= 1u << ((root + f.semitones(i)) % kPitchClasses);
    return bits;
}

std::vector<std::string> namesIn(unsigned bits) {
    std::vector<std::string> list;
    for (int pc = 0; pc < kPitchClasses; ++pc) {
        if (bits & (1u << pc))
            list.push_back(nameOf(pc));
    }
    return list;
}

struct Candidate {
    int root;
    int type;
    unsigned missing;
    unsigned added;
};

// Best first: a name that adds no note (an added note over the bass reads
// as a guess: E G A# with C under it is C7/E, not Edim with C), then the
// root in the bass, fewest missing, fewest added, then the catalogue's
// order of types and roots so that every run agrees.
auto rank(const Candidate& c, int bass) {
    return std::tuple(c.added != 0, c.root != bass, std::popcount(c.missing),
                      std::popcount(c.added), c.type, c.root);
}

}  // namespace

std::string ChordTones::notesText() const {
    return join(notes);
}

std::string ChordTones::formulaText() const {
    return join(degrees);
}

std::string_view degreeName(int type, int semitones) {
    const bool ninthChord = isType(type, "9") || isType(type, "-9") || isType(type, "m9") ||
                            isType(type, "m-9") || isType(type, "maj9") || isType(type, "add9");
    switch (((semitones % kPitchClasses) + kPitchClasses) % kPitchClasses) {
        case 0:
            return "1";
        case 1:
            return "b9";
        case 2:
            return ninthChord ? "9" : "2";
        case 3:
            return "b3";
        case 4:
            return "3";
        case 5:
            return "4";
        case 6:
            return "b5";
        case 7:
            return "5";
        case 8:
            return "#5";
        case 9:
            return isType(type, "dim7") ? "bb7" : "6";
        case 10:
            return "b7";
        default:
            return "7";
    }
}

ChordTones chordTones(int tonic, int type) {
    ChordTones tones;
    const Formula& f = formula(type);
    for (int i = 0; i < f.size; ++i) {
        tones.notes.push_back(nameOf((tonic + f.semitones(i)) % kPitchClasses));
        tones.degrees.emplace_back(degreeName(type, f.semitones(i)));
    }
    return tones;
}

std::optional<ChordTones> chordTones(std::string_view name) {
    const auto chord = parseChord(name);
    if (!chord)
        return std::nullopt;
    return chordTones(chord->tonic, chord->type);
}

std::string FoundChord::name() const {
    std::string text = nameOf(root) + std::string(typeKeys()[static_cast<std::size_t>(type)]);
    if (!rootInBass())
        text += "/" + nameOf(bass);
    return text;
}

std::vector<FoundChord> identify(const HeldStrings& held) {
    unsigned sounded = 0;
    int lowest = -1;
    for (std::size_t s = 0; s < held.open.size(); ++s) {
        if (held.frets[s] < 0)
            continue;
        const int note = held.open[s] + held.frets[s];
        sounded |= 1u << (note % kPitchClasses);
        if (lowest < 0 || note < lowest)
            lowest = note;
    }
    if (std::popcount(sounded) < 2)
        return {};
    const int bass = lowest % kPitchClasses;

    std::vector<Candidate> fits;
    for (int root = 0; root < kPitchClasses; ++root) {
        if (!(sounded & (1u << root)))
            continue;
        for (int type = 0; type < kTypeCount; ++type) {
            const unsigned tones = toneBits(root, type);
            const unsigned missing = tones & ~sounded;
            const unsigned added = sounded & ~tones;
            const unsigned fifth = 1u << ((root + kFifth) % kPitchClasses);
            const bool whole = missing == 0 && std::popcount(added) <= 1;
            const bool noFifth = missing == fifth && added == 0 && std::popcount(tones) >= 4;
            if (whole || noFifth)
                fits.push_back({root, type, missing, added});
        }
    }
    // An added note is only worth naming when nothing on that root does
    // without one.
    std::erase_if(fits, [&](const Candidate& c) {
        return c.added != 0 && std::any_of(fits.begin(), fits.end(), [&](const Candidate& o) {
                   return o.root == c.root && o.added == 0 &&
                          std::popcount(o.missing) <= std::popcount(c.missing);
               });
    });
    std::sort(fits.begin(), fits.end(), [bass](const Candidate& a, const Candidate& b) {
        return rank(a, bass) < rank(b, bass);
    });

    std::vector<FoundChord> found;
    for (const auto& c : fits) {
        found.push_back({c.root, c.type, bass, chordTones(c.root, c.type), namesIn(c.missing),
                         namesIn(c.added)});
    }
    return found;
}

std::optional<std::array<int, kStringCount>> openNotes(const std::vector<std::string>& tokens) {
    if (tokens.size() != kStringCount)
        return std::nullopt;
    std::array<int, kStringCount> notes{};
    for (std::size_t s = 0; s < tokens.size(); ++s) {
        const auto number = tokenNumber(tokens[s]);
        if (!number)
            return std::nullopt;
        notes[s] = *number;
    }
    return notes;
}

}  // namespace zt::chords
