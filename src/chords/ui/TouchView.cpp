#include "chords/ui/TouchView.h"

#include <cmath>

namespace zt {

namespace {

struct Band {
    int from;  // inclusive, whole points
    int to;
    int string;
};

constexpr std::array<Band, kStringCount> kBands = {{
    {15, 58, 6},
    {59, 92, 5},
    {93, 126, 4},
    {127, 160, 3},
    {161, 194, 2},
    {195, 238, 1},
}};

bool isString(int n) {
    return n >= 1 && n <= kStringCount;
}

}  // namespace

int TouchView::bandAt(double x) {
    if (!std::isfinite(x))
        return 0;
    const double point = std::floor(x);
    for (const Band& band : kBands) {
        if (point >= band.from && point <= band.to)
            return band.string;
    }
    return 0;
}

int TouchView::stringNear(double x, bool leftHanded) {
    if (!std::isfinite(x))
        return 0;
    for (int n = kStringCount; n >= 1; --n) {
        if (std::abs(x - stringX(n, leftHanded)) <= kStringSpacing / 2)
            return n;
    }
    return 0;
}

int TouchView::touchesMoved(double x, int touchCount,
                            const std::array<bool, kStringCount>& canPlay) {
    if (touchCount != 1)
        return 0;
    if (leftHanded_)
        x = kWidth - x;
    return playStringByArea(x - kShift, canPlay);
}

int TouchView::playStringByArea(double x, const std::array<bool, kStringCount>& canPlay) {
    const int string = bandAt(x);
    if (string == 0) {
        unlockAll();
        return 0;
    }
    if (isLocked(string) || !canPlay[static_cast<std::size_t>(string - 1)])
        return 0;
    setLockedForString(string);
    return string;
}

bool TouchView::isLocked(int stringNumber) const {
    return isString(stringNumber) && locked_[static_cast<std::size_t>(stringNumber - 1)];
}

void TouchView::setLocked(int stringNumber, bool locked) {
    if (isString(stringNumber))
        locked_[static_cast<std::size_t>(stringNumber - 1)] = locked;
}

void TouchView::setLockedForString(int stringNumber) {
    unlockAll();
    setLocked(stringNumber, true);
}

}  // namespace zt
