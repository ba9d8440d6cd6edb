#pragma once
// Connects the common settings screen to the tunings in SettingsProxy: the
// screen's choice becomes the shared current tuning, the chords library is
// told at once, and the choice is saved when the screen goes away.

#include <QPointer>
#include <memory>

#include "framework/Mediator.h"
#include "tuners/CommonSettings.h"
#include "tuners/CommonSettingsDelegate.h"

namespace zt {

class SettingsProxy;

class CommonSettingsMediator : public Mediator, public CommonSettingsDelegate {
public:
    static constexpr const char* NAME = "CommonSettingsMediator";

    explicit CommonSettingsMediator(CommonSettings* screen);

    std::vector<std::string> listNotificationInterests() const override;
    // "SetTuning": hands SettingsProxy's current index to the screen.
    void handleNotification(const Notification& notification) override;
    // Becomes the screen's delegate and gives it the tuning strings.
    void onRegister() override;
    void onRemove() override;

    // Sends "SetTuning".
    void getTuning() override;
    // SettingsProxy setTuning, then "SetChordsTuning", then "ReloadChords".
    void setTuning(int index) override;
    // Sends "SaveCommonState" with the settings.
    void saveCommonSettings(const Dictionary& settings) override;

private:
    QPointer<CommonSettings> screen_;
    std::shared_ptr<SettingsProxy> settings_;
};

}  // namespace zt
