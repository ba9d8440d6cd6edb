#pragma once
// What the metronome screen asks of its mediator.

#include <string>

#include "framework/Value.h"

namespace zt {

class MetronomeDelegate {
public:
    virtual ~MetronomeDelegate() = default;

    // Plays a sound of the sound bank in a source group (loop is always false).
    virtual void playSoundByID(int soundId, int group, bool loop) = 0;
    // Tell the rest of the program the user's music may be paused or resumed.
    virtual void stopMusic() = 0;
    virtual void startMusic() = 0;
    // Opens the metronome settings screen.
    virtual void showMetronomeSettings() = 0;
    // Asks for the saved settings; they arrive, before this returns, as the
    // screen's setSavedData.
    virtual void setMetronomeSavedData() = 0;
    // Stores the settings in the saved state.
    virtual void saveMetronomeSettings(const Dictionary& settings) = 0;
    // True once the sound bank has loaded: nothing may sound before.
    virtual bool isBuffersLoaded() const = 0;
    // The name of a preset whose state code is state: preferred when it is
    // one of them, else the first; "" when none is. Without presets, none.
    virtual std::string presetNameForState(const std::string& state,
                                           const std::string& preferred) const {
        (void)state;
        (void)preferred;
        return {};
    }
};

}  // namespace zt
