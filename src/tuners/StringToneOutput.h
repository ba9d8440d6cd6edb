#pragma once
// What the by-ear tuner plays its strings through: StringTonePlayer puts
// them on the sound card; tests and previews record the calls instead.
// Calls come from one control thread and return at once.

namespace zt {

class StringToneOutput {
public:
    virtual ~StringToneOutput() = default;

    // String number 1 (highest) to 6: its recorded open string transposed
    // by `semitones`, once or repeated until stopped. A new tone on a string
    // cuts the one it was playing; different strings ring together.
    virtual void playString(int stringNumber, int semitones, bool loop) = 0;
    // The same at any speed: `speed` times the recording's own (a pitch
    // 2^(semitones/12) is playString's), for notes between the semitones of
    // equal temperament at A4 = 440 Hz, such as another concert pitch's.
    virtual void playStringAt(int stringNumber, double speed, bool loop) = 0;
    // Silences the string; nothing when it is silent.
    virtual void stopString(int stringNumber) = 0;

    // Lets go of the device once every string has died away and been heard.
    // Call now and then; true once nothing holds the device.
    virtual bool releaseWhenSilent() = 0;
};

}  // namespace zt
