#include "dsp/DSPUtils.h"

#include <cmath>
#include <numbers>

namespace zt {

double DSPUtils::sinc(double x) {
    if (std::fabs(x) < EPS)
        return 1.0;
    return std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
}

}  // namespace zt
