#include "tuners/LevelScale.h"

#include <algorithm>

namespace zt::level {

namespace {
// The pitch step that starts at the threshold, and the width of one step in
// percent of the threshold scale.
constexpr int kStepAtThreshold = 4;
constexpr double kStepPercent = 10.0;
constexpr int kTopStep = 10;

double held(double percent) {
    return std::clamp(percent / 100.0, 0.0, 1.0);
}
}  // namespace

double ofPercent(int percent) {
    return held(percent);
}

double ofPitchStep(int step, int tresholdPercent) {
    if (step <= 0)
        return 0.0;
    const double bandStart =
        tresholdPercent + kStepPercent * (std::min(step, kTopStep) - kStepAtThreshold);
    return held(step >= kTopStep ? bandStart : bandStart + kStepPercent / 2);
}

}  // namespace zt::level
