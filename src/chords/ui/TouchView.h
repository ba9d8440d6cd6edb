#pragma once
// The transparent area over the six strings of the chords screen, as
// behaviour: a finger dragged across it plays each string once as it
// crosses it. Positions are in points of the 320-point-wide layout,
// measured across the strings view from its left edge; a view drawn larger
// divides by its scale before handing them on.
//
// Each string owns a band of x. Crossing into a band plays that string and
// locks it, unlocking every other, so that wobbling on the string last
// played does not repeat it. Leaving the strings altogether (past the 6th
// or the 1st) unlocks them all, so the next stroke plays every string again.
//
// For a left-handed player the view is drawn mirrored, the 6th string on
// the right: a position is mirrored across the view before anything else,
// so that the bands (and the shift) are the mirror image of the others.

#include <array>

#include "chords/ChordVariation.h"

namespace zt {

class TouchView {
public:
    // The strings view's width, and where it draws string n (1 to 6): the
    // 6th on the left, 34 points apart, each inside its band.
    static constexpr double kWidth = 257.0;
    static constexpr double kStringSpacing = 34.0;
    static constexpr double kSixthStringX = 43.5;
    static constexpr double stringX(int stringNumber) {
        return kSixthStringX + kStringSpacing * (kStringCount - stringNumber);
    }
    // Where string n is drawn for either hand.
    static constexpr double stringX(int stringNumber, bool leftHanded) {
        return leftHanded ? kWidth - stringX(stringNumber) : stringX(stringNumber);
    }
    // The string drawn within half a spacing of x (the nearer; the lower
    // string when x is just between two), 0 when none is: what a tap on
    // the neck lands on.
    static int stringNear(double x, bool leftHanded);

    // A move's position is taken this much to the left before the bands
    // are looked up.
    static constexpr double kShift = 2.0;

    // The string whose band holds x (already shifted); 0 outside every band.
    // Bands, in whole points: 15-58 the 6th, 59-92 the 5th, 93-126 the 4th,
    // 127-160 the 3rd, 161-194 the 2nd, 195-238 the 1st. A fractional x
    // belongs to the band of the whole point below it, so the bands meet.
    static int bandAt(double x);

    // One move of the touches on the view: x where the touch is, touchCount
    // how many fingers are down (only a single finger strums); canPlay[n - 1]
    // whether string n sounds in the shape shown. Returns the string to play
    // now, or 0.
    int touchesMoved(double x, int touchCount, const std::array<bool, kStringCount>& canPlay);
    // The same for a position already shifted: the band's string unless it
    // is locked or muted; outside the bands, every lock cleared.
    int playStringByArea(double x, const std::array<bool, kStringCount>& canPlay);

    // Whether string n (1 to 6) was the last played by the current stroke.
    bool isLocked(int stringNumber) const;
    void setLocked(int stringNumber, bool locked);
    // Locks string n alone.
    void setLockedForString(int stringNumber);
    void unlockAll() { locked_.fill(false); }

    bool leftHanded() const { return leftHanded_; }
    void setLeftHanded(bool on) { leftHanded_ = on; }

private:
    std::array<bool, kStringCount> locked_{};
    bool leftHanded_ = false;
};

}  // namespace zt
