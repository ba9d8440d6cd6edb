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
    // Whether the tools are drawn for a left-handed player, and a new
    // choice: every tool follows it at once and it is saved at once.
    virtual bool isLeftHanded() const = 0;
    virtual void setLeftHanded(bool on) = 0;
};

}  // namespace zt
