#pragma once
// What the frequency commands ask of the proxies that read the microphone:
// the main frequency service, the orchestra (base frequency) calibration and
// the microphone calibration. Each proxy is registered under its own name
// and implements the parts it offers.

#include "dsp/NoteDescription.h"

namespace zt {

class AudioSessionOwner {
public:
    virtual ~AudioSessionOwner() = default;
    virtual void startAudioSession() = 0;
    virtual void stopAudioSession() = 0;
};

// A reading of the note being played; frequency -2 when no microphone.
class NoteReader {
public:
    virtual ~NoteReader() = default;
    virtual const NoteDescription& getNoteDesctiption() = 0;
};

// The input level; negative when no microphone.
class VolumeReader {
public:
    virtual ~VolumeReader() = default;
    virtual int getMainVolume() = 0;
};

}  // namespace zt
