#pragma once
// Stepping through the values a choice offers, for keys and the mouse wheel:
// the numerators 1 to 16, the denominators 4 and 8, and the subdivision
// patterns offered under the current denominator.

#include "metronome/MetronomeSetup.h"

namespace zt {

enum class Choice { Numerator, Denominator, Pattern };

// The value delta steps away from the setup's current one, among those the
// choice offers; steps stop at either end. A current value that is not
// offered steps from the nearest offered one below it.
int steppedChoice(const MetronomeSetup& setup, Choice choice, int delta);

// How many values one page of the choice's panel moves: a row of its grid.
int choicePage(Choice choice);

}  // namespace zt
