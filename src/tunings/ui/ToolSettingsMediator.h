#pragma once
// Connects a tool's settings page to the rest of the program: the tuning's
// name from SettingsProxy, the way to the tunings list on the tool's own
// stack, the tool's saved section, and the left-handed switch that the
// tools share. Each tool registers it under a name
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
    bool isLeftHanded() const override;
    // Kept by SettingsProxy, saved in the common section, and told to every
    // tool and page with "LeftHandedChanged".
    void setLeftHanded(bool on) override;

    std::vector<std::string> listNotificationInterests() const override;
    // "LeftHandedChanged": the page shows the shared value.
    void handleNotification(const Notification& notification) override;

protected:
    void registered() override;

private:
    const char* save_;
    const char* showTunings_;
    std::shared_ptr<SettingsProxy> settings_;
};

}  // namespace zt
