#include "dsp/Temperament.h"

#include <cmath>

namespace zt {

NoteSystem Temperament::generateNoteSystem(const Note& base, std::uint16_t tones) {
    std::lock_guard lock(generating_);
    baseOctave_ = base.getOctave();
    baseIndex_ = base.getIndex();
    baseFrequency_ = base.getFrequency();
    tones_ = tones;
    std::vector<Note> notes;
    notes.reserve(8u * tones);
    for (std::uint8_t octave = 0; octave <= 7; ++octave) {
        for (std::uint16_t step = 0; step < tones; ++step)
            notes.push_back(generateNote(octave, step));
    }
    return NoteSystem(std::move(notes), tones);
}

EqualTemperament& EqualTemperament::getInstance() {
    static EqualTemperament instance;
    return instance;
}

Note EqualTemperament::generateNote(std::uint16_t octave, std::uint16_t index) const {
    // Signed steps from the base: a base above the generated note works too.
    const int steps = tones_ * (octave - baseOctave_) + index - baseIndex_;
    const double frequency =
        baseFrequency_ * std::pow(2.0, static_cast<double>(steps) / static_cast<double>(tones_));
    return Note(octave, index, frequency);
}

}  // namespace zt
