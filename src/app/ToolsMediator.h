#pragma once
// Connects the shell to the rest of the program: routes the notifications
// that show screens, builds the tab bar, lifts the loading cover, and records
// tab changes in the analytics log.

#include <memory>

#include "app/ToolsDelegate.h"
#include "framework/Mediator.h"

namespace zt {

class Tools;
class ApplicationProxy;
class AnalyticsLog;

class ToolsMediator : public Mediator, public ToolsDelegate {
public:
    static constexpr const char* NAME = "ToolsMediator";

    ToolsMediator(Tools* tools, AnalyticsLog* analytics);

    std::vector<std::string> listNotificationInterests() const override;
    void handleNotification(const Notification& notification) override;
    void onRegister() override;

    void registerRateAlert() override;
    void stopMetronome() override;
    void showMetronome() override;
    void showChordsLibrary() override;
    void showTuner() override {}
    void tabSelected(int index) override;
    void showTunings(int tab) override;

private:
    Tools* tools() const;

    std::shared_ptr<ApplicationProxy> applicationProxy_;
    AnalyticsLog* analytics_;
};

}  // namespace zt
