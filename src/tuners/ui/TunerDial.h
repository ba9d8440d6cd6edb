#pragma once
// The chromatic tuner's dial, in the 320 x 480 design's points: the needle's
// law from cents to radians, where a reading sends the needle and how long
// it takes, the frequency texts with one decimal, and the volume bar.
// Angles are in radians, positive clockwise (y grows downward).

#include <array>
#include <cmath>
#include <string>

#include "dsp/Note.h"
#include "dsp/NoteDescription.h"

namespace zt::dial {

// Full scale: 200 cents either way puts the needle at asin(0.64) radians
// (39.79 degrees) from the centre.
inline constexpr int kMaxCentModule = 200;
inline const double kWorkAngle = std::asin(0.64);
// The needle's pivot and the radius of the arc the +-100 cent labels sit on.
inline constexpr double kPivotX = 160.0;
inline constexpr double kPivotY = 306.0;
inline constexpr double kLabelRadius = 230.0;

// The needle's angle for `cents` (not clamped): linear, or by default
// sin(pi/2 x b^0.9) of the share b of full scale, which spreads the last
// cents near the centre where tuning happens.
double convertAngle(double cents, bool linearScale);

struct NeedleMove {
    double angle = 0.0;
    // The swing's length: 0.01 s per cent of the target, so a needle going
    // far moves slowly; 0.3 s back to the centre when there is no pitch.
    double seconds = 0.0;
};
// The needle goes to the reading's cents, clamped to full scale: in tenths
// of a cent, or in whole cents (towards zero) with classic detection.
NeedleMove needleMove(const NoteDescription& note, bool linearScale, bool classic = true);

// "%D.%D": the value rounded to tenths, e.g. "82.4", "441.0".
std::string tenths(double value);
// "82.4 Hz"; "" without a pitch (frequency -1).
std::string frequencyText(const NoteDescription& note);
// "+20.0 ¢", "-3.5 ¢", "0.0 ¢"; "" without a pitch.
std::string centsText(const NoteDescription& note);
// The nearest note's frequency, then one and two semitones up and down, in
// the order centre, +1, -1, +2, -2; all "" without a pitch.
std::array<std::string, 5> referenceTexts(const NoteDescription& note);
// The frequency turns amber within 5 cents of the note.
bool isInTune(double cents);

// The volume bar: the lit part grows both ways from x = 160 with the level
// (0 to 10); `shown` is the lit image's share, of 116 points, on display.
struct VolumeBar {
    double x = 110.0;
    double y = 190.0;
    double width = 100.0;
    double height = 20.0;
    double shown = 0.0;
};
VolumeBar volumeBar(int level);
// Its look while no reading is shown: nothing lit.
inline VolumeBar restingVolumeBar() {
    return {};
}

// The octave a note heard belongs to: from the octave digit of its full
// name, or else from its reference frequency and pitch class (0 = C) on
// `base`'s equal temperament. "" when neither tells.
std::string octaveOf(const NoteDescription& note, const Note& base);

}  // namespace zt::dial
