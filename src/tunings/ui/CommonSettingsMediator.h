#pragma once
// Connects the common settings screen to the tunings in SettingsProxy: the
// screen's choice becomes the shared current tuning, the chords library is
// told at once, and the choice is saved when the screen goes away.

#include <memory>

#include "screen/ScreenMediator.h"
#include "tunings/ui/CommonSettings.h"
#include "tunings/ui/CommonSettingsDelegate.h"

namespace zt {

class SettingsProxy;

class CommonSettingsMediator : public ScreenMediator<CommonSettings, CommonSettingsDelegate> {
public:
    static constexpr const char* NAME = "CommonSettingsMediator";

    explicit CommonSettingsMediator(CommonSettings* screen) : ScreenMediator(NAME, screen) {}

    std::vector<std::string> listNotificationInterests() const override;
    // "SetTuning": hands SettingsProxy's current index to the screen.
    void handleNotification(const Notification& notification) override;
    // Sends "SetTuning".
    void getTuning() override;
    // SettingsProxy setTuning, then "SetChordsTuning", then "ReloadChords".
    void setTuning(int index) override;
    // Sends "SaveCommonState" with the settings.
    void saveCommonSettings(const Dictionary& settings) override;
    // Through SettingsProxy; the tools then hear the tuning again and the
    // choice is saved, since it is saved by name.
    std::string storeCustomTuning(int index, const std::string& name,
                                  const std::string& typed) override;
    bool removeCustomTuning(int index) override;

protected:
    // Keeps SettingsProxy and gives the screen the tuning strings.
    void registered() override;

private:
    void customChanged();

    std::shared_ptr<SettingsProxy> settings_;
};

}  // namespace zt
