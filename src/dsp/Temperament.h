#pragma once
// Generators of note systems from one base note. EqualTemperament divides
// every octave into `tones` equal steps:
//   frequency = baseFrequency * 2 ^ ((tones * (octave - baseOctave) + index - baseIndex) / tones)
// so with A4 = 440 Hz and twelve tones C0 is 16.3516 Hz and B7 3951.07 Hz.

#include <cstdint>
#include <mutex>

#include "dsp/Note.h"
#include "dsp/NoteSystem.h"

namespace zt {

class Temperament {
public:
    virtual ~Temperament() = default;

    // Octaves 0 to 7, each with steps 0 to tones - 1, computed from `base`.
    NoteSystem generateNoteSystem(const Note& base, std::uint16_t tones);

    // One note of the system whose base was set by generateNoteSystem.
    virtual Note generateNote(std::uint16_t octave, std::uint16_t index) const = 0;

protected:
    std::uint16_t baseOctave_ = 0;
    std::uint16_t baseIndex_ = 0;
    double baseFrequency_ = 0.0;
    std::uint16_t tones_ = 0;

private:
    // generateNoteSystem stores its base in the shared instance; one caller at a time.
    std::mutex generating_;
};

class EqualTemperament final : public Temperament {
public:
    static EqualTemperament& getInstance();

    Note generateNote(std::uint16_t octave, std::uint16_t index) const override;
};

}  // namespace zt
