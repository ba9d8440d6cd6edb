#pragma once
// The fingering generator: every playable shape of a chord on the six
// strings of the current tuning, with fingers and barres.
//
// The search is depth-first over strings and frets. Each chord tone in turn
// is tried in the bass (the tonic first, so root-position shapes come first)
// on the 6th, 5th and 4th strings (the 3rd too for power chords), at frets 0
// to 14; from each bass the strings above take chord tones, each from a fret
// range reaching four frets below the bass (first pass) or four above it
// (second pass; shapes both passes would find are left to the first). Every
// string from the bass up to the highest reached sounds. A branch stops when
// its fretted span passes three frets (an open string counts as fret 1).
// A shape is kept when it sounds every chord tone (a ninth chord may leave
// out its fifth), does not start above fret 11, sounds three strings or more
// (four for "dim"), doubles nothing in a "dim7", and can be held with four
// fingers.
//
// Nothing is cached: each call searches afresh, in about ten microseconds,
// and allocates nothing (the raw results go into a block made with the
// library).

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "chords/ChordCatalogue.h"
#include "chords/ChordVariation.h"

namespace zt {

class ChordLibrary {
public:
    // Frets a string table covers; shapes start at fret 14 at most and reach four above.
    static constexpr int kFrets = 25;
    static constexpr int kHighestBassFret = 14;

    // One open string as the generator reads it (the tuning's token taken apart).
    struct OpenString {
        std::string name;    // "E", "A#"
        std::string octave;  // "2"
        int index = 0;       // absolute note number, E2 = 28
    };

    // Starts in standard tuning.
    ChordLibrary();
    ~ChordLibrary();
    ChordLibrary(const ChordLibrary&) = delete;
    ChordLibrary& operator=(const ChordLibrary&) = delete;

    // tokens: six note tokens, lowest string first ("E2" ... "E4"). Both
    // rebuild the tables the search reads; false, and the tuning unchanged,
    // unless there are exactly six tokens, each a name of
    // chords::tokens().
    bool setTuning(const std::vector<std::string>& tokens);
    bool setExpandedTuning(const std::vector<std::string>& tokens);

    // Index 0 is the highest string (the last token), 5 the lowest.
    const std::array<OpenString, kStringCount>& tuningDictionary() const { return tuning_; }
    // Pitch class at each fret 0 to 24, by string index as above.
    const std::array<std::array<std::int8_t, kFrets>, kStringCount>& strings() const {
        return strings_;
    }

    // Every fingering of root (a name of chords::names(), "C#") and type key
    // ("m7"), in search order: groups by bass note, the tonic's first. Use
    // sortVariations() for the order they are shown in. Empty (count 0) for
    // an unknown root or type, or a chord this tuning has no shape for.
    VariationSet getVariations(std::string_view root, std::string_view typeKey);
    // The same into a set the caller keeps; returns it.
    VariationSet& getVariations(std::string_view root, std::string_view typeKey, VariationSet& out);

    // Shapes the search found before filtering, for the last chord asked.
    int rawCount() const { return rawCount_; }

private:
    struct Raw {
        std::int32_t firstString;
        std::int32_t lastString;
        std::array<std::int32_t, kStringCount> frets;
        std::int32_t bassNote;
    };
    using Frets = std::array<std::int8_t, 8>;

    void search(const chords::ParsedChord& chord);
    void build(int c, int tag, int start, int finish, Frets frets, int step, int min, int max);
    bool passesAbandonRules(int tag, const Frets& frets, int min, int max) const;
    void check(const Frets& frets, int step);
    void finish(VariationSet& out) const;

    std::array<OpenString, kStringCount> tuning_;
    std::array<std::array<std::int8_t, kFrets>, kStringCount> strings_{};

    // The search under way.
    std::uint16_t complex_ = 0;  // the chord tones, one bit per pitch class
    std::uint16_t placed_ = 0;   // tones sounded by the branch so far
    int tonic_ = 0;
    int type_ = 0;
    int bass_ = 0;         // the tone in the bass
    int firstString_ = 0;  // string number of the bass
    int fifth_ = 0;        // the tone a ninth chord may leave out
    // By string index, the frets sounding a chord tone, one bit per fret.
    std::array<std::uint32_t, kStringCount> toneFrets_{};
    bool ninth_ = false;
    // Power and diminished chords: shapes may stop below the highest string.
    bool partialShapes_ = false;

    std::unique_ptr<std::array<Raw, VariationSet::kCapacity>> raw_;
    int rawCount_ = 0;
};

}  // namespace zt
