#pragma once
// What the chromatic tuner screen asks of its mediator.

#include "dsp/Note.h"

namespace zt {

class TunerChromaticDelegate {
public:
    virtual ~TunerChromaticDelegate() = default;

    // One reading: answered, before this returns, by the screen's
    // showNoteAndFreq or showMicrophoneDetectAlertView; nothing while the
    // sound bank loads or the audio session is stopped.
    virtual void getFrequerncy() = 0;
    virtual void startAudioSession() = 0;
    virtual void stopAudioSession() = 0;
    // Asks for the saved chromatic settings; they arrive, before this
    // returns, as the screen's setSavedData.
    virtual void setChromaticTunerSavedData() = 0;
    // The analysis settings the screen hands on to the frequency service.
    virtual void setTuningDelegate(int tuning) = 0;
    virtual void setTaperDelegate(int taperMode) = 0;
    virtual void setBaseNoteDelegate(const Note& baseNote) = 0;
    virtual void setTresholdPercentDelegate(int percent) = 0;
    virtual void setIsAllNotes(bool allNotes) = 0;
    virtual bool getAllNotes() const = 0;
    // Asks for the current tuning; it arrives, before this returns, as the
    // screen's setTuningTuner.
    virtual void getTuningChromaticTuner() = 0;
    // The by-ear tuner, its mode, and the tuner's settings screen.
    virtual void showBrainTuner() = 0;
    virtual void showBrainTunerMode() = 0;
    virtual void showTunerChromaticSettings() = 0;
    // The user's music and the metronome give way while the tuner listens.
    virtual void stopMusic() = 0;
    virtual void startMusic() = 0;
    virtual void stopMetronome() = 0;
    // Marks the next leaving as one that must not restart the music.
    virtual void setButton() = 0;
};

}  // namespace zt
