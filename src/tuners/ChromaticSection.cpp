#include "tuners/ChromaticSection.h"

#include <algorithm>
#include <cmath>

#include "dsp/NotationFacade.h"
#include "framework/Log.h"
#include "state/StateKeys.h"

namespace zt::chromatic {

namespace keys = state::chromatic;

namespace {
// The bounds of an octave's range: halfway to the octaves below and above.
constexpr double kLowestShare = 0.75;
constexpr double kHighestShare = 1.5;
constexpr int kHighestOctave = 7;
}  // namespace

int taperMode(const Dictionary& section) {
    return state::read(section, keys::kTaper);
}

int tresholdPercent(const Dictionary& section) {
    const Value& v = valueFor(section, keys::kTreshold.name);
    const double d = v.toDouble(0.0);
    if (v.isNull() || !v.isNumber() || !std::isfinite(d))
        return state::read(section, keys::kTreshold);
    const double clamped =
        std::clamp(std::floor(d), double(keys::kTreshold.min), double(keys::kTreshold.max));
    if (clamped != d)
        log("saved \"Treshold\" " + v.describe() + " read as " + std::to_string(int(clamped)));
    return static_cast<int>(clamped);
}

double concertPitchOf(const Note& base) {
    const Note& a4 = NotationFacade::getBaseNote();
    const int steps = (a4.getOctave() - base.getOctave()) * 12 + a4.getIndex() - base.getIndex();
    return base.getFrequency() * std::pow(2.0, steps / 12.0);
}

double referenceFrequency(int octave, int index) {
    const Note& a4 = NotationFacade::getBaseNote();
    const int steps = (octave - a4.getOctave()) * 12 + index - a4.getIndex();
    return a4.getFrequency() * std::pow(2.0, steps / 12.0);
}

Note baseNote(const Dictionary& section) {
    const double frequency = valueFor(section, keys::kBaseFrequency.name).toDouble(0.0);
    if (!(frequency >= 1.0) || !std::isfinite(frequency))
        return NotationFacade::getBaseNote();
    // The note systems hold octaves 0 to 7.
    const int octave = std::min(state::read(section, keys::kBaseOctave), kHighestOctave);
    const int index = state::read(section, keys::kBaseIndex);
    const double reference = referenceFrequency(octave, index);
    const double kept = std::clamp(frequency, reference * kLowestShare, reference * kHighestShare);
    if (kept != frequency) {
        log("saved \"baseFrequency\" " + std::to_string(frequency) + " is too far from " +
            std::to_string(reference) + " Hz; using " + std::to_string(kept));
    }
    return Note(static_cast<std::uint16_t>(octave), static_cast<std::uint16_t>(index), kept);
}

bool classicDetection(const Dictionary& section) {
    return state::read(section, keys::kClassicDetection);
}

std::string inputDevice(const Dictionary& section) {
    return state::read(section, keys::kInputDevice);
}

}  // namespace zt::chromatic
