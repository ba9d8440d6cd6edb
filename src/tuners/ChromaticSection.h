#pragma once
// The chromatic tuner's saved settings as every reader takes them: values a
// hand-edited or old file holds out of range come back as the documented
// fallback or, for magnitudes, the nearest valid value, with a log line.

#include <string>

#include "dsp/Note.h"
#include "framework/Value.h"

namespace zt::chromatic {

// "Taper", 0 to 4 (Gauss, cosine, Hamming, Hann, Lanczos). A choice, not a
// magnitude: anything else is the default 0.
int taperMode(const Dictionary& section);
// "Treshold", percent: clamped to 0 to 100; missing or unreadable gives the
// default.
int tresholdPercent(const Dictionary& section);
// "baseOctave", "baseIndex", "baseFrequency". A frequency below 1 Hz (or
// missing) means no calibration: A4 = 440 Hz. Otherwise the frequency is
// kept nearer to its own octave's A440 reference than to the octaves beside
// it (0.75 to 1.5 times the reference), which is all the calibration screen
// can produce: beyond that it is moved to the nearest bound.
Note baseNote(const Dictionary& section);
// A4's frequency in hertz when `base` is the reference of equal temperament.
double concertPitchOf(const Note& base);
// The reference frequency of octave and step on A4 = 440 Hz.
double referenceFrequency(int octave, int index);
bool classicDetection(const Dictionary& section);
std::string inputDevice(const Dictionary& section);

}  // namespace zt::chromatic
