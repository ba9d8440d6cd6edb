#pragma once
// A percussive click: a few decaying sine modes (optionally gliding down
// into their pitch and driven into a squarer shape) over a band of noise.

#include <cstdint>
#include <vector>

namespace zt::soundgen {

struct Mode {
    double frequency;  // hertz, after the glide
    double amplitude;
    double decay;  // seconds for the level to fall by e
};

struct Click {
    std::vector<Mode> modes;
    double glide = 0.0;      // modes start at frequency * (1 + glide) ...
    double glideTime = 0.0;  // ... and settle with this time constant, seconds
    double drive = 0.0;      // soft clipping of the modes' sum; 0 keeps sines
    double noiseLevel = 0.0;
    double noiseCentre = 3000.0;  // band-pass centre of the noise, hertz
    double noiseDecay = 0.003;    // seconds
    double seconds = 0.06;        // length, under 0.1
    double peak = 0.8;
    std::uint32_t seed = 1;

    // Mono samples at `rate` hertz, starting and ending at zero.
    std::vector<float> render(int rate) const;
};

// Tick, tock (accented) and subtick (soft) of a sound pack.
struct ClickPack {
    Click tick, tock, subtick;
};

// The five packs in pack order: Classic, Wood, Cowbell, Metal, Electro.
std::vector<ClickPack> clickPacks();

}  // namespace zt::soundgen
