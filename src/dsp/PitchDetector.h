#pragma once
// Base of the pitch detectors: the result of the last analysis (fundamental
// frequency in hertz or NO_FREQUENCY, the strength of the strongest peak, a
// coarse level) and the sensitivity. The sensitivity is a percentage of the
// class's threshold scale:
//   treshold = minTreshold + percent * (maxTreshold - minTreshold) / 100
// (not clamped), and a peak weaker than treshold is no pitch.

#include <cstdint>

#include "dsp/Interpolator.h"

namespace zt {

class PitchDetector {
public:
    static constexpr double NO_FREQUENCY = -1.0;
    static constexpr std::uint32_t INTER_ORDER = 3;

    // Starts at a sensitivity of 50 percent.
    PitchDetector(double minTreshold, double maxTreshold);
    virtual ~PitchDetector() = default;
    PitchDetector(const PitchDetector&) = delete;
    PitchDetector& operator=(const PitchDetector&) = delete;

    void changeSensitivity(int percent);

    virtual void detectPitch() {}
    virtual void detectVolumeLevel() {}

    double getFundamentalFrequency() const { return fundamentalFrequency; }
    double getFundamentalVolume() const { return fundamentalVolume; }
    std::int32_t getVolumeLevel() const { return volumeLevel; }
    double getTreshold() const { return treshold; }
    double getMinTreshold() const { return minTreshold; }
    double getMaxTreshold() const { return maxTreshold; }

protected:
    Interpolator interpolator{INTER_ORDER};
    double fundamentalFrequency = NO_FREQUENCY;
    double fundamentalVolume = 0.0;
    std::int32_t volumeLevel = 0;
    double minTreshold;
    double maxTreshold;
    double treshold = 0.0;
};

}  // namespace zt
