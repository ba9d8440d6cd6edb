#pragma once
// A stopwatch over a monotonic tick counter, for measuring tap intervals.
// The clock is injectable so that tests (and previews) can drive time.

#include <cstdint>

#include "framework/TickClock.h"

namespace zt {

class MachTimer {
public:
    // Starts at once. The clock must outlive the timer.
    explicit MachTimer(const TickClock& clock = steadyTickClock());

    // Restarts the measurement from now.
    void start();
    // Ticks since start().
    std::uint64_t elapsed() const;
    // Seconds since start().
    float elapsedSec() const;

private:
    const TickClock* clock_;
    // The tick-to-time ratio, read once.
    std::uint32_t numerator_;
    std::uint32_t denominator_;
    std::uint64_t t0 = 0;
};

}  // namespace zt
