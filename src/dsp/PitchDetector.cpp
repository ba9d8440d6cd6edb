#include "dsp/PitchDetector.h"

namespace zt {

PitchDetector::PitchDetector(double minTreshold, double maxTreshold)
    : minTreshold(minTreshold), maxTreshold(maxTreshold) {
    changeSensitivity(50);
}

void PitchDetector::changeSensitivity(int percent) {
    treshold = minTreshold + percent * (maxTreshold - minTreshold) / 100.0;
}

}  // namespace zt
