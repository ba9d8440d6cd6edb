#pragma once
// What the chromatic tuner's settings screen asks of its mediator.

#include <string>
#include <vector>

#include "framework/Value.h"

namespace zt {

class TunerChromaticSettingsDelegate {
public:
    virtual ~TunerChromaticSettingsDelegate() = default;
    // Asks for the saved switches; they arrive, before this returns, as the
    // screen's setSavedData (and setSectionData for the rest of the section).
    virtual void setChromaticTunerSavedData() = 0;
    // Merges the settings into the saved chromatic section.
    virtual void saveChromaticTunerSettings(const Dictionary& settings) = 0;
    // Table rows 3 to 6 lead to the tunings, tapering functions, microphone
    // sensitivity and orchestra tuning screens.
    virtual void chooseChromaticOptions(int row) = 0;
    virtual std::string getTuningName() const = 0;
    // The capture devices there are, by name.
    virtual std::vector<std::string> inputDevices() const = 0;
};

}  // namespace zt
