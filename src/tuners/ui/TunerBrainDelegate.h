#pragma once
// What the by-ear tuner asks of its mediator.

#include <string>

#include "framework/Value.h"

namespace zt {

class TunerBrainDelegate {
public:
    virtual ~TunerBrainDelegate() = default;

    // The current tuning string ("D2&A2&D3&G3&B3&E4") and its display name.
    virtual std::string getTuning() const = 0;
    virtual std::string getTuningName() const = 0;
    // Asks for the saved state; it arrives, before this returns, as the
    // screen's setSavedData.
    virtual void setBrainTunerSavedData() = 0;
    // Stores these keys in the by-ear tuner's saved state.
    virtual void saveBrainTunerSettings(const Dictionary& settings) = 0;
    // Opens the by-ear tuner's settings screen.
    virtual void showTunerBrainSettings() = 0;
    // Opens the chromatic tuner.
    virtual void showChromaticTunerMode() = 0;
    // Tell the rest of the program the user's music may be paused or
    // resumed, and that a running metronome must stop.
    virtual void stopMusic() = 0;
    virtual void startMusic() = 0;
    virtual void stopMetronome() = 0;
    // Marks the next departure as one that must not resume the music.
    virtual void setButton() = 0;
    // True once the sound bank has loaded: nothing may sound before.
    virtual bool isBuffersLoaded() const = 0;
};

}  // namespace zt
