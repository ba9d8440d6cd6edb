#pragma once
// What the metronome's controls drive: something that plays a setup until
// told to stop. MetronomeEngine implements it for any stream or an offline
// render; MetronomePlayer puts that engine on the sound card. Calls come from
// one control thread and return at once.

#include <optional>

#include "metronome/MetronomeSetup.h"

namespace zt {

// A beat click (not a subdivision) that has just reached the speaker.
struct HeardBeat {
    bool accented = false;  // an accented beat
    int beatInBar = 1;      // 1 (the downbeat) to the numerator
    bool sounding = true;   // false for a silent beat or a muted bar's, which still count
    int tempo = 0;          // the wheel tempo it was played at (the trainer's while it runs)
    int barsToStep = 0;     // bars left before the trainer's next step, 0 when none comes
};

class MetronomeOutput {
public:
    virtual ~MetronomeOutput() = default;

    // Starts a new run, its first beat (the first of a bar) at once. While a
    // run plays, changes it instead: a new tempo alone moves the pulse from
    // the next beat on and keeps the bar; a new time signature or subdivision
    // begins a new bar at once.
    virtual void start(const MetronomeSetup& setup) = 0;
    // Asks the run to stop at its next instant (see TickLogic).
    virtual void stop() = 0;
    // Change the sound of the running bar from its next tick on.
    virtual void setCurrentPack(int packNumber) = 0;
    virtual void setIsFirstBeatNeed(bool need) = 0;

    // The newest beat heard since the last call, if any; beats heard long
    // before the call are not reported. An output that cannot tell when its
    // clicks are heard reports none.
    virtual std::optional<HeardBeat> takeHeardBeat() { return std::nullopt; }

    // Called now and then while the metronome is stopped: an output that
    // holds a device lets go of it once its last click has been heard.
    // True when nothing more will be heard.
    virtual bool releaseWhenSilent() { return true; }
};

}  // namespace zt
