#include "metronome/MachTimer.h"

namespace zt {

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
