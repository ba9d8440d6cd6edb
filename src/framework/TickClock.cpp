#include "framework/TickClock.h"

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

}  // namespace zt
