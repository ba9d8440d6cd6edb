#pragma once
// What a tool's settings page asks of its mediator.

#include <string>

#include "framework/Value.h"

namespace zt {

class ToolSettingsDelegate {
public:
    virtual ~ToolSettingsDelegate() = default;

    // Stores these keys in the tool's saved state.
    virtual void saveSettings(const Dictionary& settings) = 0;
    // A row of the list chosen: row 2 opens the tunings list; others do
    // nothing.
    virtual void chooseOptions(int row) = 0;
    // The current tuning's display name.
    virtual std::string getTuningName() const = 0;
};

}  // namespace zt
