#pragma once
// The chromatic tuner's pitch pipe: a note sounding, looped, until it is
// stopped, played with the by-ear tuner's string recordings. Each note is
// played from the recorded open string nearest to it, sped up or slowed
// down to the note's exact frequency at the tuner's concert pitch, so that
// A4 = 443 Hz sounds 443 Hz and the recording's tone changes least.
//
// Calls come from one thread and return at once (the output queues them).

#include "tuners/StringToneOutput.h"

namespace zt {

class ReferenceTone {
public:
    // Notes as 12 x octave + pitch class (C0 = 0, A4 = 57), as notePosition.
    static constexpr int kA4 = 57;
    // The recorded open strings by string number ([n - 1] is string n):
    // E4, B3, G3, D3, A2, E2 at A4 = 440 Hz.
    static constexpr int kRecorded[6] = {52, 47, 43, 38, 33, 28};

    struct Choice {
        int string = 0;
        double speed = 1.0;
    };
    // The string whose recording is nearest `frequency` in pitch, and the
    // speed that turns it into `frequency`; string 0 for no frequency.
    static Choice choose(double frequency);
    // The frequency of note `position` when A4 is `concertA4` hertz.
    static double frequencyOf(int position, double concertA4);

    void setOutput(StringToneOutput* output) { output_ = output; }

    // Starts note `position` for `slot`, cutting the note that sounded; or
    // stops it when `slot` is already sounding, as touching a pitch pipe's
    // note again does. True when a note sounds afterwards.
    bool toggle(int slot, int position, double concertA4);
    void stop();
    // The slot sounding, or -1.
    int slot() const { return slot_; }
    bool sounding() const { return slot_ >= 0; }
    // Lets go of the sound device once the note has died away; true when
    // nothing holds it. Call now and then after stop().
    bool release();

private:
    StringToneOutput* output_ = nullptr;
    int slot_ = -1;
    int string_ = 0;
};

}  // namespace zt
