#include "metronome/ChoiceSteps.h"

#include <algorithm>
#include <vector>

namespace zt {

namespace {

std::vector<int> offeredValues(const MetronomeSetup& setup, Choice choice) {
    using namespace state::metronome;
    std::vector<int> values;
    switch (choice) {
        case Choice::Numerator:
            for (int n = kTimeSig1Value.min; n <= kTimeSig1Value.max; ++n)
                values.push_back(n);
            break;
        case Choice::Denominator:
            values = {4, 8};
            break;
        case Choice::Pattern:
            for (int p = kNotesPerBeat.min; p <= kNotesPerBeat.max; ++p) {
                if (setup.isPatternOffered(p))
                    values.push_back(p);
            }
            break;
    }
    return values;
}

int currentValue(const MetronomeSetup& setup, Choice choice) {
    switch (choice) {
        case Choice::Numerator:
            return setup.timeSig1Value;
        case Choice::Denominator:
            return setup.timeSig2Value;
        case Choice::Pattern:
            break;
    }
    return setup.notesPerBeat;
}

}  // namespace

int steppedChoice(const MetronomeSetup& setup, Choice choice, int delta) {
    const std::vector<int> values = offeredValues(setup, choice);
    const int current = currentValue(setup, choice);
    const auto above = std::upper_bound(values.begin(), values.end(), current);
    const auto at = above == values.begin() ? 0 : above - values.begin() - 1;
    const auto last = static_cast<std::ptrdiff_t>(values.size()) - 1;
    return values[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(at + delta, 0, last))];
}

int choicePage(Choice choice) {
    switch (choice) {
        case Choice::Numerator:
            return 8;
        case Choice::Denominator:
            return 1;
        case Choice::Pattern:
            break;
    }
    return 3;
}

}  // namespace zt
