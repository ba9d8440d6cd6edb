#pragma once
// Connects the tapering function screen to the main frequency service's
// window and to the saved state.

#include <memory>

#include "screen/ScreenMediator.h"
#include "tuners/ui/TunerChromaticTaper.h"
#include "tuners/ui/TunerChromaticTaperDelegate.h"

namespace zt {

class MainFrequerncyProxy;

class TunerChromaticTaperMediator
    : public ScreenMediator<TunerChromaticTaper, TunerChromaticTaperDelegate> {
public:
    static constexpr const char* NAME = "TunerChromaticTaperMediator";

    explicit TunerChromaticTaperMediator(TunerChromaticTaper* screen)
        : ScreenMediator(NAME, screen) {}

    std::vector<std::string> listNotificationInterests() const override;
    // "SetTaper": gives the screen the service's window.
    void handleNotification(const Notification& notification) override;

    // The service's setTaperMode, then "SetTaper".
    void setTaperMode(int mode) override;
    // Sends "SetTaper".
    void getTaperMode() override;
    void saveChromaticTunerSettings(const Dictionary& settings) override;

protected:
    void registered() override;

private:
    std::shared_ptr<MainFrequerncyProxy> main_;
};

}  // namespace zt
