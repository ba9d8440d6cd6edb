#include "Click.h"

#include <cmath>
#include <numbers>

#include "SynthUtil.h"

namespace zt::soundgen {

std::vector<float> Click::render(int rate) const {
    const auto frames = static_cast<size_t>(seconds * rate);
    std::vector<double> out(frames, 0.0);
    const double pi = std::numbers::pi;

    for (const Mode& mode : modes) {
        double phase = 0.0;
        for (size_t n = 0; n < frames; ++n) {
            const double t = static_cast<double>(n) / rate;
            const double bend = glideTime > 0.0 ? 1.0 + glide * std::exp(-t / glideTime) : 1.0;
            out[n] += mode.amplitude * std::exp(-t / mode.decay) * std::sin(phase);
            phase += 2.0 * pi * mode.frequency * bend / rate;
        }
    }
    if (drive > 0.0) {
        for (double& sample : out)
            sample = std::tanh(drive * sample) / std::tanh(drive);
    }

    // Band-passed noise (state-variable filter, Q about 1) for the strike.
    Noise noise(seed);
    const double f = 2.0 * std::sin(pi * std::min(noiseCentre, 0.2 * rate) / rate);
    double low = 0.0, band = 0.0;
    for (size_t n = 0; n < frames && noiseLevel > 0.0; ++n) {
        const double t = static_cast<double>(n) / rate;
        const double high = noise.next() - low - band;
        band += f * high;
        low += f * band;
        out[n] += noiseLevel * std::exp(-t / noiseDecay) * band;
    }

    applyEdges(out, rate, 0.0005, 0.008);
    return normalized(out, peak);
}

std::vector<ClickPack> clickPacks() {
    std::vector<ClickPack> packs;
    // Classic: the dry high click of a clockwork metronome; the accent is
    // pitched a tritone higher.
    packs.push_back({
        .tick = {.modes = {{2000, 1.0, 0.012}, {4700, 0.35, 0.006}},
                 .noiseLevel = 0.6,
                 .noiseCentre = 3500,
                 .seconds = 0.06,
                 .peak = 0.8,
                 .seed = 11},
        .tock = {.modes = {{2830, 1.0, 0.015}, {6300, 0.3, 0.007}},
                 .noiseLevel = 0.6,
                 .noiseCentre = 5000,
                 .seconds = 0.07,
                 .peak = 0.95,
                 .seed = 12},
        .subtick = {.modes = {{2000, 1.0, 0.007}, {4700, 0.3, 0.004}},
                    .noiseLevel = 0.3,
                    .noiseCentre = 3500,
                    .seconds = 0.045,
                    .peak = 0.45,
                    .seed = 13},
    });
    // Wood: a wood block, inharmonic modes of a struck bar.
    packs.push_back({
        .tick = {.modes = {{850, 1.0, 0.030}, {2330, 0.5, 0.014}, {4240, 0.25, 0.008}},
                 .noiseLevel = 0.25,
                 .noiseCentre = 2000,
                 .noiseDecay = 0.002,
                 .seconds = 0.08,
                 .peak = 0.8,
                 .seed = 21},
        .tock = {.modes = {{1150, 1.0, 0.035}, {3150, 0.5, 0.016}, {5740, 0.25, 0.009}},
                 .noiseLevel = 0.3,
                 .noiseCentre = 2800,
                 .noiseDecay = 0.002,
                 .seconds = 0.085,
                 .peak = 0.95,
                 .seed = 22},
        .subtick = {.modes = {{850, 1.0, 0.018}, {2330, 0.4, 0.009}},
                    .noiseLevel = 0.2,
                    .noiseCentre = 2000,
                    .noiseDecay = 0.002,
                    .seconds = 0.055,
                    .peak = 0.42,
                    .seed = 23},
    });
    // Cowbell: two detuned square-ish tones.
    packs.push_back({
        .tick = {.modes = {{545, 1.0, 0.045}, {815, 0.8, 0.040}},
                 .drive = 2.5,
                 .noiseLevel = 0.1,
                 .noiseCentre = 2500,
                 .seconds = 0.095,
                 .peak = 0.75,
                 .seed = 31},
        .tock = {.modes = {{660, 1.0, 0.050}, {985, 0.8, 0.045}},
                 .drive = 3.0,
                 .noiseLevel = 0.12,
                 .noiseCentre = 3000,
                 .seconds = 0.095,
                 .peak = 0.95,
                 .seed = 32},
        .subtick = {.modes = {{545, 1.0, 0.022}, {815, 0.8, 0.020}},
                    .drive = 2.0,
                    .noiseLevel = 0.08,
                    .noiseCentre = 2500,
                    .seconds = 0.06,
                    .peak = 0.42,
                    .seed = 33},
    });
    // Metal: an anvil-like ping with the partials of a struck plate.
    packs.push_back({
        .tick = {.modes = {{1800, 1.0, 0.040}, {4968, 0.6, 0.025}, {9720, 0.3, 0.015}},
                 .noiseLevel = 0.2,
                 .noiseCentre = 8000,
                 .noiseDecay = 0.002,
                 .seconds = 0.09,
                 .peak = 0.78,
                 .seed = 41},
        .tock = {.modes = {{1350, 1.0, 0.045}, {3726, 0.7, 0.030}, {7290, 0.35, 0.018}},
                 .noiseLevel = 0.25,
                 .noiseCentre = 6000,
                 .noiseDecay = 0.002,
                 .seconds = 0.095,
                 .peak = 0.95,
                 .seed = 42},
        .subtick = {.modes = {{2400, 1.0, 0.020}, {6624, 0.5, 0.012}},
                    .noiseLevel = 0.15,
                    .noiseCentre = 9000,
                    .noiseDecay = 0.0015,
                    .seconds = 0.06,
                    .peak = 0.42,
                    .seed = 43},
    });
    // Electro: synthetic blips that drop into their pitch.
    packs.push_back({
        .tick = {.modes = {{1000, 1.0, 0.030}, {2000, 0.2, 0.015}},
                 .glide = 1.0,
                 .glideTime = 0.006,
                 .drive = 1.5,
                 .seconds = 0.08,
                 .peak = 0.8,
                 .seed = 51},
        .tock = {.modes = {{1500, 1.0, 0.035}, {750, 0.5, 0.030}},
                 .glide = 1.5,
                 .glideTime = 0.008,
                 .drive = 3.0,
                 .seconds = 0.09,
                 .peak = 0.95,
                 .seed = 52},
        .subtick = {.modes = {{2500, 1.0, 0.012}},
                    .glide = 0.5,
                    .glideTime = 0.003,
                    .seconds = 0.045,
                    .peak = 0.4,
                    .seed = 53},
    });
    return packs;
}

}  // namespace zt::soundgen
