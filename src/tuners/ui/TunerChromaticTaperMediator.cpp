#include "tuners/ui/TunerChromaticTaperMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "tuners/MainFrequerncyProxy.h"

namespace zt {

std::vector<std::string> TunerChromaticTaperMediator::listNotificationInterests() const {
    return {"SetTaper"};
}

void TunerChromaticTaperMediator::handleNotification(const Notification&) {
    if (screen() && main_)
        screen()->setTaperMode(main_->getTaperMode());
}

void TunerChromaticTaperMediator::registered() {
    main_ = facade().retrieveProxyAs<MainFrequerncyProxy>(MainFrequerncyProxy::NAME);
    if (!main_)
        log("TunerChromaticTaperMediator: MainFrequerncyProxy is not registered");
}

void TunerChromaticTaperMediator::setTaperMode(int mode) {
    if (main_)
        main_->setTaperMode(static_cast<std::uint16_t>(mode));
    sendNotification("SetTaper");
}

void TunerChromaticTaperMediator::getTaperMode() {
    sendNotification("SetTaper");
}

void TunerChromaticTaperMediator::saveChromaticTunerSettings(const Dictionary& settings) {
    sendNotification("SaveChromaticTunerState", settings);
}

}  // namespace zt
