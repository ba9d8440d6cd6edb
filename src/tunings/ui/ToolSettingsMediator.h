#pragma once
// Connects a tool's settings page to the rest of the program: the tuning's
// name from SettingsProxy, the way to the tunings list on the tool's own
// stack, and the tool's saved section. Each tool registers it under a name
// of its own, with the two notifications that are its own.

#include <memory>

#include "screen/ScreenMediator.h"
#include "tunings/ui/ToolSettings.h"
#include "tunings/ui/ToolSettingsDelegate.h"

namespace zt {

class SettingsProxy;

class ToolSettingsMediator : public ScreenMediator<ToolSettings, ToolSettingsDelegate> {
public:
    // `save` carries the saved keys; `showTunings` opens the tunings list.
    ToolSettingsMediator(const char* name, ToolSettings* screen, const char* save,
                         const char* showTunings)
        : ScreenMediator(name, screen), save_(save), showTunings_(showTunings) {}

    void saveSettings(const Dictionary& settings) override;
    // Row 2: the tunings list.
    void chooseOptions(int row) override;
    std::string getTuningName() const override;

protected:
    void registered() override;

private:
    const char* save_;
    const char* showTunings_;
    std::shared_ptr<SettingsProxy> settings_;
};

}  // namespace zt
