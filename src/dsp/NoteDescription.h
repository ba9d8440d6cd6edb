#pragma once
// One detected note as the tuner screens receive it: the note's name (no
// octave), its reference frequency, the measured frequency, the deviation in
// cents rounded to 0.1, the input level that came with the measurement, and
// its position (the step 0 to 11 among all notes, or the string number,
// 0-based from the sixth string, among a tuning's strings).

#include <cstdint>
#include <string>

namespace zt {

struct NoteDescription {
    std::string fullName;
    double standartFrequency = 0.0;
    double frequency = 0.0;
    double cents = 0.0;
    std::int32_t volumeLevel = 0;
    std::int32_t index = 0;

    static NoteDescription withFreqAndNote(std::string fullName, double standartFrequency,
                                           double currentFrequency, double cents,
                                           std::int32_t volumeLevel, std::int32_t index) {
        return {
            std::move(fullName), standartFrequency, currentFrequency, cents, volumeLevel, index};
    }

    bool operator==(const NoteDescription&) const = default;
};

}  // namespace zt
