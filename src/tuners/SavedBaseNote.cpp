#include "tuners/SavedBaseNote.h"

#include <cmath>
#include <string>

#include "dsp/NotationFacade.h"
#include "framework/Log.h"
#include "state/StateKeys.h"

namespace zt {

namespace {
constexpr int kA4 = 4 * 12 + 9;
constexpr double kLowestA4 = 220.0;
constexpr double kHighestA4 = 880.0;
}  // namespace

double concertPitchOf(const Note& base) {
    const int step = base.getOctave() * 12 + base.getIndex();
    return base.getFrequency() * std::pow(2.0, (kA4 - step) / 12.0);
}

Note savedBaseNote(const Dictionary& chromaticSection) {
    namespace keys = state::chromatic;
    const double frequency = valueFor(chromaticSection, keys::kBaseFrequency.name).toDouble(0.0);
    if (!std::isfinite(frequency) || frequency < 1.0)
        return NotationFacade::getBaseNote();
    const Note note(static_cast<std::uint16_t>(state::read(chromaticSection, keys::kBaseOctave)),
                    static_cast<std::uint16_t>(state::read(chromaticSection, keys::kBaseIndex)),
                    frequency);
    const double a4 = concertPitchOf(note);
    if (a4 < kLowestA4 || a4 > kHighestA4) {
        log("saved base frequency " + std::to_string(frequency) + " Hz puts A4 at " +
            std::to_string(a4) + " Hz; using A4 = 440 Hz");
        return NotationFacade::getBaseNote();
    }
    return note;
}

}  // namespace zt
