#include "tuners/ui/TunerBrainMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "sound/MediaProxy.h"
#include "tunings/SettingsProxy.h"

namespace zt {

std::vector<std::string> TunerBrainMediator::listNotificationInterests() const {
    return {"StateBrainTunerData", "PlayE1String", "PlayBString",  "PlayGString",
            "PlayDString",         "PlayAString",  "PlayE2String", kLeftHandedChanged};
}

void TunerBrainMediator::handleNotification(const Notification& notification) {
    TunerBrain* brain = screen();
    if (brain && settings_ && notification.name() == kLeftHandedChanged)
        brain->setLeftHanded(settings_->leftHanded());
    if (!brain || notification.name() != "StateBrainTunerData")
        return;
    const Dictionary* data = notification.bodyAs<Dictionary>();
    brain->setSavedData(data ? *data : Dictionary{});
}

void TunerBrainMediator::registered() {
    Facade& f = facade();
    settings_ = f.retrieveProxyAs<SettingsProxy>(SettingsProxy::NAME);
    media_ = f.retrieveProxyAs<MediaProxy>(MediaProxy::NAME);
    if (!settings_ || !media_)
        log("TunerBrainMediator: SettingsProxy or MediaProxy is not registered");
    if (screen() && settings_)
        screen()->setLeftHanded(settings_->leftHanded());
    if (screen())
        setBrainTunerSavedData();
}

std::string TunerBrainMediator::getTuning() const {
    return settings_ ? settings_->getTuning() : std::string();
}

std::string TunerBrainMediator::getTuningName() const {
    return settings_ ? settings_->getTuningName() : std::string();
}

void TunerBrainMediator::setBrainTunerSavedData() {
    sendNotification("GetBrainTunerSavedData");
}

void TunerBrainMediator::saveBrainTunerSettings(const Dictionary& settings) {
    sendNotification("SaveBrainTunerState", settings);
}

void TunerBrainMediator::showTunerBrainSettings() {
    sendNotification("ShowTunerBrainSettings");
}

void TunerBrainMediator::showChromaticTunerMode() {
    sendNotification("ShowTunerChromaticMode");
}

void TunerBrainMediator::stopMusic() {
    sendNotification("StopMusic");
}

void TunerBrainMediator::startMusic() {
    sendNotification("StartMusic");
}

void TunerBrainMediator::stopMetronome() {
    sendNotification("StopMetronome");
}

void TunerBrainMediator::setButton() {
    if (TunerBrain* brain = screen())
        brain->setButtonMode();
}

bool TunerBrainMediator::isBuffersLoaded() const {
    return media_ && media_->isBuffersLoaded();
}

}  // namespace zt
