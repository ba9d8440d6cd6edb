#include "dsp/FourierPDA.h"

#include <algorithm>
#include <cmath>

#include "dsp/FourierUtils.h"

namespace zt {

FourierPDA::FourierPDA(double minTreshold, double maxTreshold, const TaperSettings& settings)
    : PitchDetector(minTreshold, maxTreshold) {
    changeTaperSettings(settings);
}

void FourierPDA::changeTaperSettings(const TaperSettings& settings) {
    taper = TaperFacade::getSignalWindow(settings);
}

void FourierPDA::loadForPitch(const double* magnitudes, std::uint32_t transformLength,
                              std::uint32_t sampleRate) {
    data = magnitudes;
    elementaryFrequency = static_cast<double>(sampleRate) / transformLength;
    dataSize = transformLength / 2;
    detectPitch();
    updateVolumeLevel();
}

void FourierPDA::updateVolumeLevel() {
    const double level =
        std::floor((fundamentalVolume - treshold) * 10.0 / (maxTreshold - minTreshold)) + 4.0;
    volumeLevel = static_cast<std::int32_t>(std::clamp(level, 0.0, 10.0));
}

void FourierPDA::loadForVolume(const double* magnitudes, std::uint32_t transformLength) {
    data = magnitudes;
    dataSize = transformLength / 2;
    detectVolumeLevel();
}

void FourierPDA::detectVolumeLevel() {
    double strongest = minTreshold;
    for (std::uint32_t i = 0; i < dataSize; ++i)
        strongest = std::max(strongest, data[i]);
    strongest = std::min(strongest, maxTreshold);
    volumeLevel =
        static_cast<std::int32_t>((strongest - minTreshold) * 100.0 / (maxTreshold - minTreshold));
}

bool FourierPDA::prematureLoadData(std::span<const std::int16_t> samples,
                                   std::uint32_t transformLength, std::uint32_t sampleRate) {
    const auto spectrum =
        taper ? FourierUtils::calculateSpectrumWithTaper(samples, transformLength, *taper)
              : FourierUtils::calculateSpectrum(samples, transformLength);
    if (!spectrum)
        return false;
    premature_ = FourierUtils::calculateVolume(*spectrum, true);
    data = premature_.data();
    dataSize = transformLength / 4;
    elementaryFrequency = static_cast<double>(sampleRate) / transformLength;
    return true;
}

bool FourierPDA::loadForPitchDetection(std::span<const std::int16_t> samples,
                                       std::uint32_t transformLength, std::uint32_t sampleRate) {
    const bool loaded = prematureLoadData(samples, transformLength, sampleRate);
    if (loaded)
        detectPitch();
    premature_.clear();
    data = nullptr;
    return loaded;
}

bool FourierPDA::loadForVolumeLevel(std::span<const std::int16_t> samples,
                                    std::uint32_t transformLength, std::uint32_t sampleRate) {
    const bool loaded = prematureLoadData(samples, transformLength, sampleRate);
    if (loaded)
        detectVolumeLevel();
    premature_.clear();
    data = nullptr;
    return loaded;
}

double FourierPDA::accuracyFrequency(std::uint32_t bin) {
    const double h = elementaryFrequency;
    interpolator.prepareMatrix(data, bin);
    const double first = (bin - 1u) * h;
    const double last = (bin + 1u) * h;
    const auto steps = static_cast<std::uint32_t>(std::floor((last - first) / STEP));

    double bestValue = data[bin - 1];
    double bestFrequency = first;
    for (std::uint32_t k = 1; k < steps; ++k) {
        const double x = first + k * STEP;
        if (x > last)
            break;
        const double v = interpolator.interpolation(x, first, last, h);
        if (v > bestValue) {
            bestValue = v;
            bestFrequency = x;
        }
    }
    return bestFrequency;
}

}  // namespace zt
