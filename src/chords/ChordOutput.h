#pragma once
// What the chords screen plays its strings through: ChordPlayer puts them
// on the sound card; tests and previews record the calls instead. Calls
// come from one control thread and return at once.

#include <array>
#include <limits>

#include "chords/StrumSchedule.h"

namespace zt {

// What the listener hears of the strings now, by the output's own clock.
struct HeardStrings {
    static constexpr double kNever = std::numeric_limits<double>::infinity();
    // Seconds since string n's latest note began to be heard ([n - 1]);
    // kNever when it has not been heard (yet).
    std::array<double, kStringCount> secondsAgo{kNever, kNever, kNever, kNever, kNever, kNever};
    // A note asked for is still to be heard.
    bool waiting = false;
};

class ChordOutput {
public:
    virtual ~ChordOutput() = default;

    // The whole chord: its playable strings from the lowest, 60 ms apart on
    // the output's own clock, the first after delaySeconds; nothing when no
    // string can be played.
    virtual void playChord(const StringNotes& notes, double delaySeconds) = 0;
    // String number 1 to 6 at once; nothing when it is muted.
    virtual void playString(const StringNotes& notes, int stringNumber) = 0;
    // Silences every string.
    virtual void stop() = 0;

    // Lets go of the device once every string has died away and been heard.
    // Call now and then; true once nothing holds the device.
    virtual bool releaseWhenSilent() = 0;

    // Which strings are being heard, and since when; asked now and then by
    // a screen that shows them.
    virtual HeardStrings heard() const = 0;
};

}  // namespace zt
