#pragma once
// Additive model of a plucked guitar string: harmonic partials at exact
// multiples of the fundamental (bent very slightly sharp by string
// stiffness, which leaves the fundamental itself exact), shaped by the
// pluck position, each decaying at its own rate, with a short burst of
// pluck noise at the attack.

#include <cstdint>
#include <vector>

namespace zt::soundgen {

struct PluckedString {
    double frequency;          // fundamental, hertz
    double seconds = 3.0;      // length of the sound
    double pluckPoint = 0.13;  // pluck position as a share of the string length from the bridge
    double stiffness = 4e-5;   // inharmonicity coefficient B
    std::uint32_t seed = 1;    // pluck noise

    // Mono samples at `rate` hertz, peak 0.89, ending in silence.
    std::vector<float> render(int rate) const;
};

}  // namespace zt::soundgen
