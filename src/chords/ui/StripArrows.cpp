#include "chords/ui/StripArrows.h"

#include <algorithm>
#include <cmath>

namespace zt {

StripArrows StripArrows::forScroll(double y, double contentHeight, double viewHeight) {
    const bool atEnd = y + viewHeight >= contentHeight;
    if (y == 0.0 && atEnd)
        return {kAllVisible, kAllVisible};
    return {y > 0.0 ? kOpaque : kDimmed, atEnd ? kDimmed : kOpaque};
}

double StripArrows::pageTarget(int direction, double y, double contentHeight, double viewHeight,
                               double item) {
    const double last = std::max(0.0, contentHeight - viewHeight);
    if (item <= 0.0)
        return std::clamp(y, 0.0, last);
    // A strip laid out to hold n diagrams can come out a hair short of n.
    const double perPage = std::max(1.0, std::floor(viewHeight / item + 1e-6));
    const double top = std::round(y / item);
    const double target = (direction < 0 ? top - perPage : top + perPage) * item;
    return std::clamp(target, 0.0, last);
}

}  // namespace zt
