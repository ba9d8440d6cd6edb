#include "tuners/PitchTrace.h"

#include <algorithm>
#include <cmath>

namespace zt {

namespace {
// Half the width of the piece drawn for a lone reading, in box units.
constexpr float kDotHalf = 1.5f;
}  // namespace

void PitchTrace::add(double time, double cents, int note) {
    if (!std::isfinite(time) || (count_ > 0 && time < at(count_ - 1).time))
        return;
    if (!std::isfinite(cents))
        note = kNoNote;
    const Reading r{time, note == kNoNote ? 0.0 : cents, note};
    if (count_ < kCapacity) {
        ring_[(head_ + count_) % kCapacity] = r;
        ++count_;
        return;
    }
    ring_[head_] = r;
    head_ = (head_ + 1) % kCapacity;
}

float PitchTrace::yFor(double cents, float height) {
    const double c = std::clamp(cents, -kRangeCents, kRangeCents);
    return static_cast<float>(height / 2.0 * (1.0 - c / kRangeCents));
}

void PitchTrace::lines(double now, float width, float height, std::vector<Point>& out) const {
    out.clear();
    const double start = now - kSpanSeconds;
    const auto xFor = [&](double time) {
        return static_cast<float>((time - start) / kSpanSeconds * width);
    };
    const auto joined = [](const Reading& a, const Reading& b) {
        return a.note != kNoNote && a.note == b.note && b.time - a.time <= kLongestStep;
    };
    for (std::size_t i = 0; i < count_; ++i) {
        const Reading& r = at(i);
        if (r.note == kNoNote || r.time > now)
            continue;
        const bool hasNext = i + 1 < count_ && at(i + 1).time <= now && joined(r, at(i + 1));
        const bool hasPrevious = i > 0 && joined(at(i - 1), r);
        // A piece from this reading to the next on its line, if both are in
        // the window or the piece crosses its left edge.
        if (hasNext) {
            const Reading& n = at(i + 1);
            if (n.time < start)
                continue;
            out.push_back({xFor(r.time), yFor(r.cents, height)});
            out.push_back({xFor(n.time), yFor(n.cents, height)});
        } else if (!hasPrevious && r.time >= start) {
            const float x = xFor(r.time);
            const float y = yFor(r.cents, height);
            out.push_back({std::max(x - kDotHalf, 0.0f), y});
            out.push_back({std::min(x + kDotHalf, width), y});
        }
    }
}

}  // namespace zt
