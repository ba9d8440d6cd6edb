#pragma once
// What the microphone sensitivity screen asks of its mediator.

#include "framework/Value.h"

namespace zt {

class MicrophoneCalibratingDelegate {
public:
    virtual ~MicrophoneCalibratingDelegate() = default;
    // "Taper" and "Treshold" arrive, before this returns, as setSavedData.
    virtual void setMicrophoneSavedData() = 0;
    virtual void saveChromaticTunerSettings(const Dictionary& settings) = 0;
    virtual void setTresholdDelegate(int percent) = 0;
    virtual void setTaperDelegate(int mode) = 0;
    // One level reading, once the sounds are loaded: showIntensity, or the
    // screen's microphone alert.
    virtual void getVolumeLevel() = 0;
    virtual void startAudioSession() = 0;
    virtual void stopAudioSession() = 0;
};

}  // namespace zt
