#include "tuners/ReferenceTone.h"

#include <cmath>

namespace zt {

double ReferenceTone::frequencyOf(int position, double concertA4) {
    return concertA4 * std::exp2((position - kA4) / 12.0);
}

ReferenceTone::Choice ReferenceTone::choose(double frequency) {
    if (!(frequency > 0.0) || !std::isfinite(frequency))
        return {};
    // Semitones above A4, as the recordings are counted.
    const double steps = 12.0 * std::log2(frequency / 440.0) + kA4;
    Choice best;
    double nearest = 0.0;
    for (int n = 1; n <= 6; ++n) {
        const double apart = std::abs(steps - kRecorded[n - 1]);
        if (best.string == 0 || apart < nearest) {
            best.string = n;
            nearest = apart;
        }
    }
    best.speed = frequency / frequencyOf(kRecorded[best.string - 1], 440.0);
    return best;
}

bool ReferenceTone::toggle(int slot, int position, double concertA4) {
    const bool again = slot == slot_;
    stop();
    if (again || slot < 0)
        return false;
    const Choice c = choose(frequencyOf(position, concertA4));
    if (c.string == 0)
        return false;
    if (output_)
        output_->playStringAt(c.string, c.speed, true);
    slot_ = slot;
    string_ = c.string;
    return true;
}

void ReferenceTone::stop() {
    if (slot_ >= 0 && output_)
        output_->stopString(string_);
    slot_ = -1;
    string_ = 0;
}

bool ReferenceTone::release() {
    if (sounding())
        return false;
    return !output_ || output_->releaseWhenSilent();
}

}  // namespace zt
