#pragma once
// What the chords settings screen asks of its mediator.

#include <string>

#include "framework/Value.h"

namespace zt {

class ChordsLibrarySettingsDelegate {
public:
    virtual ~ChordsLibrarySettingsDelegate() = default;

    // Stores these keys in the chords tool's saved state.
    virtual void saveChordsLibrarySettings(const Dictionary& settings) = 0;
    // A row of the list chosen: row 2 opens the tunings list; others do
    // nothing.
    virtual void chooseChordsOptions(int row) = 0;
    // The current tuning's display name.
    virtual std::string getTuningName() const = 0;
};

}  // namespace zt
