#include "tuners/StrobeBand.h"

#include <algorithm>
#include <cmath>

namespace zt {

double StrobeBand::speedFor(double cents) {
    if (!std::isfinite(cents) || std::abs(cents) < kStillCents)
        return 0.0;
    return cents * kPeriodsPerSecondPerCent;
}

double StrobeBand::shownCents(double now) const {
    if (!pitched_)
        return 0.0;
    const double share = std::clamp((now - glideStart_) / kGlideSeconds, 0.0, 1.0);
    return from_ + (to_ - from_) * share;
}

void StrobeBand::reading(double cents, double now) {
    if (!std::isfinite(cents))
        return;
    // Catch up first, so that the glide starts from what is on show.
    advance(now);
    // After silence the band starts at the reading's own speed: a glide up
    // from standing would show a drift nobody played.
    from_ = pitched_ ? shownCents(now) : cents;
    to_ = cents;
    glideStart_ = now;
    pitched_ = true;
}

void StrobeBand::silence(double now) {
    advance(now);
    pitched_ = false;
}

double StrobeBand::advance(double now) {
    if (!started_) {
        started_ = true;
        lastFrame_ = now;
        return phase_;
    }
    if (!(now > lastFrame_))
        return phase_;
    if (pitched_) {
        // The shown deviation is linear in time up to the glide's end and
        // constant after it; the midpoint rule integrates each part exactly.
        const double glideEnd = glideStart_ + kGlideSeconds;
        if (lastFrame_ < glideEnd) {
            integrate(lastFrame_, std::min(now, glideEnd));
            if (now > glideEnd)
                integrate(glideEnd, now);
        } else {
            integrate(lastFrame_, now);
        }
    }
    lastFrame_ = now;
    return phase_;
}

void StrobeBand::integrate(double from, double to) {
    const double moved = speedFor(shownCents((from + to) / 2.0)) * (to - from);
    travelled_ += moved;
    phase_ = std::fmod(phase_ + moved, 1.0);
    if (phase_ < 0.0)
        phase_ += 1.0;
}

void StrobeBand::stripes(double phase, double speedFactor, float width, float period,
                         std::vector<Stripe>& out) {
    out.clear();
    if (!(period > 0.0f) || !(width > 0.0f))
        return;
    double shift = std::fmod(phase * speedFactor, 1.0);
    if (shift < 0.0)
        shift += 1.0;
    // The stripe whose left edge is at shift * period, and every period to
    // either side of it that reaches the band.
    const double half = period / 2.0;
    for (double left = shift * period - period; left < width; left += period) {
        const double l = std::max(left, 0.0);
        const double r = std::min(left + half, static_cast<double>(width));
        if (r > l)
            out.push_back({static_cast<float>(l), static_cast<float>(r)});
    }
}

}  // namespace zt
