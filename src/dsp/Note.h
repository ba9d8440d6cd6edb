#pragma once
// One note of a note system: its octave (0 for the lowest generated octave),
// its step within the octave (0 = C ... 11 = B with twelve tones) and its
// frequency in hertz (0 until one is given).

#include <cstdint>

namespace zt {

class Note {
public:
    Note() = default;
    Note(std::uint16_t octave, std::uint16_t index, double frequency = 0.0)
        : octave_(octave), index_(index), frequency_(frequency) {}

    std::uint16_t getOctave() const { return octave_; }
    std::uint16_t getIndex() const { return index_; }
    double getFrequency() const { return frequency_; }

    bool operator==(const Note&) const = default;

private:
    std::uint16_t octave_ = 0;
    std::uint16_t index_ = 0;
    double frequency_ = 0.0;
};

}  // namespace zt
