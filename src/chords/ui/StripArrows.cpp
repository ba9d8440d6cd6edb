#include "chords/ui/StripArrows.h"

#include <algorithm>

namespace zt {

StripArrows StripArrows::forScroll(double y, double contentHeight, double viewHeight) {
    const bool atEnd = y + viewHeight >= contentHeight;
    if (y == 0.0 && atEnd)
        return {kAllVisible, kAllVisible};
    return {y > 0.0 ? kOpaque : kDimmed, atEnd ? kDimmed : kOpaque};
}

double StripArrows::pageTarget(int direction, double y, double contentHeight, double viewHeight,
                               double item) {
    const double page = std::max(item, viewHeight - item);
    const double target = direction < 0 ? y - page : y + page;
    return std::clamp(target, 0.0, std::max(0.0, contentHeight - viewHeight));
}

}  // namespace zt
