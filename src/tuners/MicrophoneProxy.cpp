#include "tuners/MicrophoneProxy.h"

#include "framework/Log.h"

namespace zt {

int MicrophoneProxy::getMainVolume() {
    FrequencyAnalyzer* analyzer = frequencyAnalyzer();
    const int level = analyzer ? analyzer->volumeLevel() : 0;
    log("MicProxy " + std::to_string(level));
    return level;
}

void MicrophoneProxy::setTresholdPercent(int percent) {
    tresholdPercent_ = percent;
    if (pitchDetector())
        pitchDetector()->changeSensitivity(percent);
}

}  // namespace zt
