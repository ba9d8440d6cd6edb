#pragma once
// The musical arithmetic of the tuners: note systems by temperament kind,
// the shared default base note (A4 = 440 Hz), the shared reference table of
// twelve equal-tempered tones built on it, and cent differences.

#include <cstdint>
#include <optional>

#include "dsp/Note.h"
#include "dsp/NoteSystem.h"

namespace zt {

class NotationFacade {
public:
    static constexpr int kEqualTemperament = 0;

    // The note system of a temperament kind; nullopt for any kind but 0.
    static std::optional<NoteSystem> generateNoteSystem(int kind, const Note& base,
                                                        std::uint16_t tones);

    // Octave 4, step 9, 440.0 Hz.
    static const Note& getBaseNote();
    // Twelve equal-tempered tones on getBaseNote(); it never follows a
    // calibrated base frequency.
    static const NoteSystem& getEtalonNotes();

    // Cents of `measured` above `reference`, both first truncated to tenths of
    // a hertz: 440.09 against 440 is 0, 445 against 440 is 19.562. A
    // reference below 0.1 Hz gives an infinite result.
    static double centDifference(double reference, double measured);
};

}  // namespace zt
