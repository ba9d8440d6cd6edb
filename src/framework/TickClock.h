#pragma once
// A monotonic tick counter behind an interface, so that whatever measures
// time (tap tempo, timers) can be driven by a test or a preview instead of
// the host's clock.

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

}  // namespace zt
