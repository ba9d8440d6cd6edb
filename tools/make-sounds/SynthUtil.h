#pragma once
// Small helpers shared by the sound generators.

#include <cstdint>
#include <random>
#include <vector>

namespace zt::soundgen {

// White noise in -1..1, the same sequence for the same seed on every platform.
class Noise {
public:
    explicit Noise(std::uint32_t seed) : engine_(seed) {}
    double next() { return static_cast<double>(engine_()) / 2147483648.0 - 1.0; }

private:
    std::mt19937 engine_;
};

// Raised-cosine fade in over `attack` seconds and fade out over the last
// `release` seconds, so the sound starts and ends at exactly zero.
void applyEdges(std::vector<double>& samples, int rate, double attack, double release);

// Scales to the given peak and converts to float.
std::vector<float> normalized(const std::vector<double>& samples, double peak);

}  // namespace zt::soundgen
