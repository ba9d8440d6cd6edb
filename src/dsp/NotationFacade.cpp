#include "dsp/NotationFacade.h"

#include <cmath>

#include "dsp/Temperament.h"

namespace zt {

std::optional<NoteSystem> NotationFacade::generateNoteSystem(int kind, const Note& base,
                                                             std::uint16_t tones) {
    if (kind != kEqualTemperament)
        return std::nullopt;
    return EqualTemperament::getInstance().generateNoteSystem(base, tones);
}

const Note& NotationFacade::getBaseNote() {
    static const Note base(4, 9, 440.0);
    return base;
}

const NoteSystem& NotationFacade::getEtalonNotes() {
    static const NoteSystem etalon =
        EqualTemperament::getInstance().generateNoteSystem(getBaseNote(), 12);
    return etalon;
}

double NotationFacade::centDifference(double reference, double measured) {
    return 1200.0 * std::log(std::floor(10.0 * measured) / std::floor(10.0 * reference)) /
           std::log(2.0);
}

}  // namespace zt
