#pragma once
// What the chords screen asks of its mediator.

#include <array>
#include <string>

#include "chords/ChordVariation.h"
#include "framework/Value.h"

namespace zt {

class ChordsLibraryDelegate {
public:
    virtual ~ChordsLibraryDelegate() = default;

    // Every fingering of root ("C#") and type key ("m7") in the current
    // tuning, in the order they are shown, into set.
    virtual void getChordVariationsByName(const std::string& root, const std::string& typeKey,
                                          VariationSet& set) = 0;
    // Opens the chords settings screen.
    virtual void showChordsLibrarySettings() = 0;
    // Asks for the saved state; it arrives, before this returns, as the
    // screen's setSavedData.
    virtual void setChordsLibrarySavedData() = 0;
    // Stores these keys in the saved state.
    virtual void saveChordsLibrarySettings(const Dictionary& settings) = 0;
    // Tell the rest of the program the user's music may be paused or
    // resumed, and that a running metronome should pause (the screen leaves
    // it running).
    virtual void stopMusic() = 0;
    virtual void startMusic() = 0;
    virtual void stopMetronome() = 0;
    // True once the sound bank has loaded: nothing may sound before.
    virtual bool isBuffersLoaded() const = 0;
    // The current tuning's display name ("Drop D").
    virtual std::string getTuningName() const = 0;
    // The current tuning's open notes as they sound with the capo, lowest
    // string first (E2 = 28).
    virtual std::array<int, kStringCount> openNotes() const = 0;
    // Puts the capo at a fret (0: none) for the fingerings to come; false,
    // and nothing changed, when the tuning cannot take it.
    virtual bool setCapo(int fret) = 0;
};

}  // namespace zt
