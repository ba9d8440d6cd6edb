#pragma once
// Everything the metronome screen does apart from drawing: the settings and
// their rules, the tempo wheel's plus and minus, tap tempo, and start, stop,
// restart, pause and resume of the output that makes the sound. The screen
// forwards its buttons here and shows what it reads back.
//
// Every change of tempo, time signature or subdivision is handed to a running
// output as it is made (see MetronomeOutput::start): a tempo takes over at
// the next beat without breaking the bar, a time signature or subdivision
// starts a new bar at once. A change of pack or accent only changes the sound
// from the next tick on.

#include <string>

#include "framework/Value.h"
#include "metronome/MetronomeOutput.h"
#include "metronome/MetronomeSetup.h"
#include "metronome/TapTempo.h"

namespace zt {

class MetronomeCore {
public:
    // Output and clock must outlive the object.
    explicit MetronomeCore(MetronomeOutput& output, const TickClock& clock = steadyTickClock());

    const MetronomeSetup& setup() const { return setup_; }
    // The tempo shown on the wheel, 20 to 240.
    int tempo() const { return setup_.tempo(); }
    // The wheel row, 0 to 220.
    int getCurrentBPM() const { return setup_.BPM; }

    // Saved state: applies a saved section (defaults when it is empty), no restart.
    void setSavedData(const Dictionary& data);
    // A preset: when not empty, applied as saved data, then a running metronome restarts.
    void setSettingsFromDictionary(const Dictionary& preset);
    // The dictionary saved on leaving the screen.
    Dictionary savedData() const { return setup_.savedData(); }
    // savedData() plus "state".
    Dictionary currentSettings() const { return setup_.currentSettings(); }
    std::string currentState() const { return setup_.currentState(); }

    // Plus: one row up and restart; false, with nothing done, at the top row.
    bool plus();
    // Minus: one row down (the wheel stays at row 0) and restart.
    void minus();
    // A row chosen on the wheel; false for a row the wheel does not have.
    bool selectRow(int row);

    // Time signature and subdivision, each followed by a restart; false, with
    // nothing done, for a value the screen does not offer.
    bool setTimeSig1Value(int numerator);
    bool setTimeSig2Value(int denominator);
    bool setNotesPerBeat(int pattern);
    // Sound pack (an unknown one means pack 1) and accent, without restart.
    void setCurrentPack(int packNumber);
    void setIsFirstBeatNeed(bool need);
    // What a beat of the bar plays (beat 1 is also the accent switch) and
    // the practice settings as a whole. A running metronome takes over a
    // beat's kind from its next beat on; a new trainer or muted bars start
    // a new bar.
    void setBeatKind(int beat, BeatKind kind);
    void setPractice(const PracticeSetup& practice);

    // Start when stopped: a new bar, its first beat at once.
    void startMetronome();
    // The stop button: when playing, stop.
    void stopMetronome();
    // Only when playing: hands the current settings to the running output.
    void restartMetronome();
    // Pause: when playing, stop and remember to resume.
    void endMetronome();
    // Resume after a pause.
    void runMetronome();
    // Forgets a pause, so that runMetronome no longer resumes it.
    void forgetPause() { isPaused_ = false; }
    bool isPlaying() const { return isPlaying_; }
    bool isPaused() const { return isPaused_; }

    // A tap of the tap button; true when it set a new tempo (and restarted).
    bool tap();
    const TapTempo& tapTempo() const { return tapTempo_; }

private:
    void startOutput();

    MetronomeOutput& output_;
    MetronomeSetup setup_;
    TapTempo tapTempo_;
    bool isPlaying_ = false;
    bool isPaused_ = false;
};

}  // namespace zt
