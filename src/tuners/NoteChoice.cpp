#include "tuners/NoteChoice.h"

#include <cmath>

#include "dsp/NotationFacade.h"

namespace zt {

float smoothFrequency(float f, float& current) {
    if (f < -1.5f)
        return f;
    if (f > 0.0f) {
        const float moved = std::fabs(f - current);
        const float previous = current;
        current = f;
        if (moved >= 0.05f && moved <= 0.5f)
            return (f + previous) / 2.0f;
        return f;
    }
    return current;
}

NoteDescription* nearestNote(std::span<NoteDescription* const> candidates, double f) {
    if (candidates.empty())
        return nullptr;
    std::size_t upper = 0;
    while (upper < candidates.size() && candidates[upper]->standartFrequency < f)
        ++upper;
    if (upper == 0)
        return candidates.front();
    if (upper == candidates.size())
        return candidates.back();
    NoteDescription* below = candidates[upper - 1];
    NoteDescription* above = candidates[upper];
    return f - below->standartFrequency > above->standartFrequency - f ? above : below;
}

double displayedCents(double reference, double measured, bool classic) {
    const double cents = classic ? NotationFacade::centDifference(reference, measured)
                                 : 1200.0 * std::log2(measured / reference);
    // Plus zero: a reading just below the note shows 0.0, not -0.0.
    return std::round(cents * 10.0) / 10.0 + 0.0;
}

double steadyCents(double exact, double shown) {
    constexpr double kSteady = 0.08;
    if (std::fabs(exact - shown) <= kSteady)
        return shown;
    return std::round(exact * 10.0) / 10.0 + 0.0;
}

}  // namespace zt
