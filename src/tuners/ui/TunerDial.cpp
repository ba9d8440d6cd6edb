#include "tuners/ui/TunerDial.h"

#include <algorithm>
#include <numbers>

namespace zt::dial {

namespace {
constexpr double kNoPitch = -1.0;
constexpr double kSecondsPerCent = 0.01;
constexpr double kReturnSeconds = 0.3;
constexpr double kLitImageWidth = 116.0;
constexpr double kBarCentre = 162.0;
}  // namespace

double convertAngle(double cents, bool linearScale) {
    const double sign = cents < 0 ? -1.0 : (cents > 0 ? 1.0 : 0.0);
    const double share = std::abs(cents) / kMaxCentModule;
    if (linearScale)
        return sign * kWorkAngle * share;
    return sign * kWorkAngle * std::sin(std::numbers::pi / 2 * std::pow(share, 0.9));
}

NeedleMove needleMove(const NoteDescription& note, bool linearScale, bool classic) {
    if (note.frequency == kNoPitch)
        return {0.0, kReturnSeconds};
    const double reading = classic ? std::trunc(note.cents) : std::round(note.cents * 10.0) / 10.0;
    const double cents = std::clamp(reading, -1.0 * kMaxCentModule, 1.0 * kMaxCentModule);
    // The duration is a single-precision number of seconds.
    const float seconds = static_cast<float>(std::abs(cents) * kSecondsPerCent);
    return {convertAngle(cents, linearScale), seconds};
}

std::string tenths(double value) {
    const long r = std::lround(value * 10);
    return std::to_string(r / 10) + "." + std::to_string(std::abs(r % 10));
}

std::string frequencyText(const NoteDescription& note) {
    return note.frequency == kNoPitch ? std::string() : tenths(note.frequency) + " Hz";
}

std::string centsText(const NoteDescription& note) {
    if (note.frequency == kNoPitch)
        return {};
    const long r = std::lround(note.cents * 10);
    const char* sign = r > 0 ? "+" : (r < 0 ? "-" : "");
    return sign + tenths(std::abs(note.cents)) + " \u00a2";
}

std::array<std::string, 5> referenceTexts(const NoteDescription& note) {
    if (note.frequency == kNoPitch)
        return {};
    const double semitone = std::pow(2.0, 1.0 / 12.0);
    const double f = note.standartFrequency;
    return {tenths(f), tenths(f * semitone), tenths(f / semitone), tenths(f * semitone * semitone),
            tenths(f / (semitone * semitone))};
}

bool isInTune(double cents) {
    return std::abs(cents) <= 5.0;
}

VolumeBar volumeBar(int level) {
    VolumeBar bar;
    bar.width = level == 0 ? 0.0 : 12.0 * level - 4.0;
    bar.x = level == 0 ? kBarCentre : kBarCentre - 6.0 * level;
    bar.shown = bar.width / kLitImageWidth;
    return bar;
}

std::string octaveOf(const NoteDescription& note, const Note& base) {
    if (const auto digit = note.fullName.find_first_of("0123456789"); digit != std::string::npos)
        return note.fullName.substr(digit);
    if (note.standartFrequency <= 0.0 || base.getFrequency() <= 0.0)
        return {};
    // Semitones from the base note, less the steps within the octave.
    const double steps = 12.0 * std::log2(note.standartFrequency / base.getFrequency());
    const double fromC = steps + base.getIndex() - note.index;
    return std::to_string(base.getOctave() + static_cast<int>(std::lround(fromC / 12.0)));
}

}  // namespace zt::dial
