#pragma once
// The base (concert) note stored in the chromatic section: "baseOctave",
// "baseIndex" and "baseFrequency". A frequency below 1 Hz means no
// calibration was made, and gives A4 = 440 Hz.
//
// A stored note is used only when it puts A4 within an octave of 440 Hz
// (220 to 880 Hz): anything farther is a damaged file, not a tuning
// reference, and gives A4 = 440 Hz as well (with a log line).

#include "dsp/Note.h"
#include "framework/Value.h"

namespace zt {

// A4's frequency in hertz when `base` is the reference of equal temperament.
double concertPitchOf(const Note& base);

Note savedBaseNote(const Dictionary& chromaticSection);

}  // namespace zt
