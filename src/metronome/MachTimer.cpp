#include "metronome/MachTimer.h"

#include <chrono>

namespace zt {

namespace {

class SteadyTickClock : public TickClock {
public:
    std::uint64_t now() const override {
        const auto since = std::chrono::steady_clock::now().time_since_epoch();
        return static_cast<std::uint64_t>(
            std::chrono::duration_cast<std::chrono::nanoseconds>(since).count());
    }
};

}  // namespace

const TickClock& steadyTickClock() {
    static const SteadyTickClock clock;
    return clock;
}

MachTimer::MachTimer(const TickClock& clock)
    : clock_(&clock), numerator_(clock.numerator()), denominator_(clock.denominator()) {
    start();
}

void MachTimer::start() {
    t0 = clock_->now();
}

std::uint64_t MachTimer::elapsed() const {
    return clock_->now() - t0;
}

float MachTimer::elapsedSec() const {
    const double nanoseconds =
        static_cast<double>(elapsed()) * numerator_ / (denominator_ ? denominator_ : 1);
    return static_cast<float>(nanoseconds / 1e9);
}

}  // namespace zt
