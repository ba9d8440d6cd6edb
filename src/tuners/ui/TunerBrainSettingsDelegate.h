#pragma once
// What the by-ear tuner's settings screen asks of its mediator.

#include <string>

#include "framework/Value.h"

namespace zt {

class TunerBrainSettingsDelegate {
public:
    virtual ~TunerBrainSettingsDelegate() = default;

    // Stores these keys in the by-ear tuner's saved state.
    virtual void saveBrainTunerSettings(const Dictionary& settings) = 0;
    // A row of the list chosen: row 2 opens the tunings list; others do
    // nothing.
    virtual void chooseBrainOptions(int row) = 0;
    // The current tuning's display name.
    virtual std::string getTuningName() const = 0;
};

}  // namespace zt
