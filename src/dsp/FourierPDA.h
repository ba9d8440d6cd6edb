#pragma once
// Base of the spectral pitch detectors. The live entry, loadForPitch, takes
// the magnitude spectrum of one block (transform length L at rate R: L/2 bins
// of R/L hertz), runs detectPitch and sets the coarse level
//   volumeLevel = floor((fundamentalVolume - treshold) * 10 / (max - min)) + 4,
// clamped to 0 ... 10. loadForVolume sets instead the level alone, the
// strongest bin as a percentage 0 ... 100 of the threshold scale.
//
// A detector that reads the samples itself rather than the analyzer's
// spectrum answers true to readsSamples(); the analyzer then calls
// loadSamples with the block.

#include <cstdint>
#include <span>
#include <vector>

#include "dsp/PitchDetector.h"
#include "dsp/SignalWindow.h"
#include "dsp/TaperSettings.h"

namespace zt {

class FourierPDA : public PitchDetector {
public:
    FourierPDA(double minTreshold, double maxTreshold, const TaperSettings& settings);

    // The window of the settings' type; an unknown type leaves no window.
    void changeTaperSettings(const TaperSettings& settings);
    const SignalWindow* getTaper() const { return taper; }

    void loadForPitch(const double* magnitudes, std::uint32_t transformLength,
                      std::uint32_t sampleRate);
    void loadForVolume(const double* magnitudes, std::uint32_t transformLength);

    // The same from samples: the windowed spectrum is computed here (a
    // quarter of the transform's bins kept); false, and nothing detected,
    // for a silent block. These allocate and are not used on the live path.
    bool loadForPitchDetection(std::span<const std::int16_t> samples, std::uint32_t transformLength,
                               std::uint32_t sampleRate);
    bool loadForVolumeLevel(std::span<const std::int16_t> samples, std::uint32_t transformLength,
                            std::uint32_t sampleRate);

    // The frequency of the peak at `bin`, refined between its neighbours on a
    // grid of STEP hertz starting at (bin - 1) bins.
    double accuracyFrequency(std::uint32_t bin);

    virtual bool readsSamples() const { return false; }
    virtual void loadSamples(std::span<const std::int16_t>, std::uint32_t) {}

    void detectVolumeLevel() override;

protected:
    // The 0 ... 10 level of loadForPitch, from fundamentalVolume.
    void updateVolumeLevel();

    const SignalWindow* taper = nullptr;
    const double STEP = 0.1;
    const double* data = nullptr;
    std::uint32_t dataSize = 0;
    double elementaryFrequency = 0.0;
    const std::int32_t MIN_FREQUENCY = 20;
    const double SIGNAL_LEVEL = 0.025;

private:
    // Fills `premature_` from the samples; false for a silent block.
    bool prematureLoadData(std::span<const std::int16_t> samples, std::uint32_t transformLength,
                           std::uint32_t sampleRate);

    std::vector<double> premature_;
};

}  // namespace zt
