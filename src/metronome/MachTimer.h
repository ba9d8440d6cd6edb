#pragma once
// A stopwatch over a monotonic tick counter, for measuring tap intervals.
// The counter is injectable so that tests (and previews) can drive time.

#include <cstdint>

namespace zt {

// A monotonic counter of ticks; one tick lasts numerator / denominator
// nanoseconds.
class TickClock {
public:
    virtual ~TickClock() = default;
    virtual std::uint64_t now() const = 0;
    virtual std::uint32_t numerator() const { return 1; }
    virtual std::uint32_t denominator() const { return 1; }
};

// The host's steady clock, in nanosecond ticks.
const TickClock& steadyTickClock();

// A clock that moves only when told to, in nanosecond ticks.
class ManualTickClock : public TickClock {
public:
    std::uint64_t now() const override { return ticks_; }
    void advance(double seconds) { ticks_ += static_cast<std::uint64_t>(seconds * 1e9 + 0.5); }

private:
    std::uint64_t ticks_ = 0;
};

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
