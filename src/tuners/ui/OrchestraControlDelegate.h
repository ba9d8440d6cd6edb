#pragma once
// What the base frequency screen asks of its mediator.

#include "dsp/Note.h"
#include "framework/Value.h"

namespace zt {

class OrchestraControlDelegate {
public:
    virtual ~OrchestraControlDelegate() = default;
    // The saved chromatic section arrives, before this returns, as the
    // screen's setSavedData.
    virtual void setOrchestraSavedData() = 0;
    virtual void saveChromaticTunerSettings(const Dictionary& settings) = 0;
    // The adjusted base note arrives, before this returns, as setBaseNote.
    virtual void askForBaseNote() = 0;
    // Each of these answers with the screen's showNoteAndFreq.
    virtual void setBaseNoteDelegate(const Note& note) = 0;
    virtual void setBaseIndexDelegate(int index) = 0;
    virtual void setManualFrequencyDelegate(double frequency) = 0;
    virtual void setTaperDelegate(int mode) = 0;
    // One measurement, once the sounds are loaded: showNoteAndFreq, or the
    // screen's microphone alert.
    virtual void getFrequency() = 0;
    virtual void startAudioSession() = 0;
    virtual void stopAudioSession() = 0;
};

}  // namespace zt
