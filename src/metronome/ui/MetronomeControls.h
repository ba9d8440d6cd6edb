#pragma once
// What the metronome settings screen may do to the metronome: read and
// change the accent and the sound pack, apply a preset, and save.

#include <string>

#include "framework/Value.h"
#include "metronome/PracticeSetup.h"

namespace zt {

class MetronomeControls {
public:
    virtual ~MetronomeControls() = default;

    virtual bool isFirstBeatNeed() const = 0;
    virtual void setIsFirstBeatNeed(bool need) = 0;
    // Sound pack 1 to 5. Changing it takes effect at the next click, without
    // restarting.
    virtual int packNumber() const = 0;
    virtual void setCurrentPack(int packNumber) = 0;
    // The speed trainer and muted bars (and the beats of the bar); a new
    // trainer or muted bars start a running metronome's bar again.
    virtual PracticeSetup practice() const = 0;
    virtual void setPractice(const PracticeSetup& practice) = 0;
    // "pack-numerator-denominator-pattern-accent-eighths-row".
    virtual std::string currentState() const = 0;
    // The saved keys plus "state".
    virtual Dictionary currentSettings() const = 0;
    // Applies a preset dictionary; a running metronome takes it over.
    virtual void setSettingsFromDictionary(const Dictionary& preset) = 0;
    virtual void restartMetronome() = 0;
    virtual bool isPlaying() const = 0;
    // Sends the current settings to the saved state.
    virtual void saveCurrentState() = 0;
    // Plays one tick of the current pack now (a sample of a newly chosen pack).
    virtual void playSampleTick() = 0;
};

}  // namespace zt
