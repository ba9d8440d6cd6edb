#pragma once
// Tap tempo: the interval between two taps sets the tempo, 60 / interval
// beats per minute, truncated, with anything above 239 taken as 240.
//
// The first tap arms a measurement; the second tap measures. An interval over
// 3.0 s or under 0.25 s is ignored and the next tap starts afresh. A first
// tap left alone for 3.1 s is forgotten, so the tap after that arms again.
// Each tempo comes from one interval; the third tap starts a new measurement.

#include <optional>

#include "metronome/MachTimer.h"

namespace zt {

class TapTempo {
public:
    static constexpr double kRearmSeconds = 3.1;
    static constexpr double kLongestInterval = 3.0;
    static constexpr double kShortestInterval = 0.25;

    // The clock must outlive the object.
    explicit TapTempo(const TickClock& clock = steadyTickClock());

    // One tap. Returns the tempo wheel row to select when it completes a
    // measurement.
    std::optional<int> tap();

    // True when the next tap starts a new measurement.
    bool readyForDblClick() const;
    // Arms tap tempo (the metronome does so on every start).
    void setReadyForDblClick();
    // Forgets the pending 3.1 s re-arm (the metronome does so when it stops):
    // until armed again, a second tap measures however late it comes.
    void cancelRearm();

    // The last measured interval in seconds (0 before any).
    double duration() const { return duration_; }

private:
    MachTimer timerDblClick_;
    bool readyForDblClick_ = true;
    bool rearmPending_ = false;
    double duration_ = 0.0;
};

}  // namespace zt
