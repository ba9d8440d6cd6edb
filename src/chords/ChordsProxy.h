#pragma once
// The chords tool's model: the lists of the two chord pickers, the current
// tuning and capo, and the fingering generator set to the strings as they
// sound with that capo. The generator searches afresh for every chord
// asked (nothing is kept between chords).

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "chords/ChordLibrary.h"
#include "framework/Proxy.h"

namespace zt {

class ChordsProxy : public Proxy {
public:
    static constexpr const char* NAME = "ChordsProxy";

    ChordsProxy() : Proxy(NAME) {}

    // Fills the picker lists; the generator starts in standard tuning.
    void initializeProxy() override;

    // Sends "ChordsForPickerReady"; the lists are then read from here.
    void getChordsForPicker();
    // Root labels, chromatic from "C" ("C♯ (D♭)" for the black keys).
    const std::vector<std::string>& chordsPart1() const { return chordsPart1_; }
    // Type labels in picker order ("major", "minor", "dim", ...).
    const std::vector<std::string>& chordsPart2() const { return chordsPart2_; }

    // tuning: six note tokens joined by "&", lowest string first
    // ("E2&A2&D3&G3&B3&E4"). Anything else is logged and leaves the tuning
    // as it was (false).
    bool updateTuning(const std::string& tuning);
    const std::string& tuningString() const { return tuningString_; }
    // The tuning's tokens, lowest string first.
    const std::vector<std::string>& tuningExpanded() const { return tuningExpanded_; }
    // The open strings as they sound, the capo's semitones included.
    const std::array<ChordLibrary::OpenString, kStringCount>& getTuningDictionary() const {
        return chordLibrary_.tuningDictionary();
    }
    // The 120 note tokens, "C0" to "B9".
    const std::array<std::string, chords::kTokenCount>& getOctaves() const;
    ChordLibrary& chordLibrary() { return chordLibrary_; }

    // The fret the capo sits on, 0 (none) to chords::kMaxCapo; anything else
    // is logged and changes nothing (false).
    bool setCapo(int capo);
    int capo() const { return capo_; }

    // Every fingering of root ("C#") and type key ("m7") in the current
    // tuning, in the order they are shown: groups by bass note, the tonic's
    // first, each group sorted (see sortVariations). Under a capo the frets
    // count from it, the pitches are those heard, and fingerings reaching
    // past the neck's last fret are left out. Returns out.
    VariationSet& variationsInDisplayOrder(std::string_view root, std::string_view typeKey,
                                           VariationSet& out);

private:
    // The generator set to tokens raised by capo; false, nothing changed,
    // when they cannot be.
    bool applyTuning(const std::vector<std::string>& tokens, int capo);

    std::vector<std::string> chordsPart1_;
    std::vector<std::string> chordsPart2_;
    std::string tuningString_;
    std::vector<std::string> tuningExpanded_;
    int capo_ = 0;
    ChordLibrary chordLibrary_;
};

}  // namespace zt
