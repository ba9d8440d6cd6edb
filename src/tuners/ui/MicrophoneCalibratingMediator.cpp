#include "tuners/ui/MicrophoneCalibratingMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "sound/MediaProxy.h"
#include "tuners/MicrophoneProxy.h"

namespace zt {

std::vector<std::string> MicrophoneCalibratingMediator::listNotificationInterests() const {
    return {"StateMicrophoneData", "ShowMicrophoneIntensity", "ShowCalibratingError"};
}

void MicrophoneCalibratingMediator::handleNotification(const Notification& n) {
    MicrophoneCalibrating* s = screen();
    if (!s)
        return;
    if (n.name() == "StateMicrophoneData") {
        if (const auto* data = n.bodyAs<Dictionary>())
            s->setSavedData(*data);
    } else if (n.name() == "ShowMicrophoneIntensity") {
        if (const auto* level = n.bodyAs<int>()) {
            log("result " + std::to_string(*level));
            s->showIntensity(*level);
        }
    } else if (n.name() == "ShowCalibratingError") {
        s->showMicrophoneDetectAlertView();
    }
}

void MicrophoneCalibratingMediator::registered() {
    proxy_ = facade().retrieveProxyAs<MicrophoneProxy>(MicrophoneProxy::NAME);
    media_ = facade().retrieveProxyAs<MediaProxy>(MediaProxy::NAME);
    if (!proxy_)
        log("MicrophoneCalibratingMediator: MicrophoneProxy is not registered");
}

void MicrophoneCalibratingMediator::setMicrophoneSavedData() {
    sendNotification("GetChromaticTunerSavedData", static_cast<Notifier*>(this));
}

void MicrophoneCalibratingMediator::saveChromaticTunerSettings(const Dictionary& settings) {
    sendNotification("SaveChromaticTunerState", settings);
}

void MicrophoneCalibratingMediator::setTresholdDelegate(int percent) {
    if (proxy_)
        proxy_->setTresholdPercent(percent);
}

void MicrophoneCalibratingMediator::setTaperDelegate(int mode) {
    if (proxy_)
        proxy_->setTaperMode(mode);
}

void MicrophoneCalibratingMediator::getVolumeLevel() {
    if (media_ && media_->isBuffersLoaded() && proxy_)
        sendNotification("GetMainFrequerncy", static_cast<Proxy*>(proxy_.get()));
}

void MicrophoneCalibratingMediator::startAudioSession() {
    if (proxy_)
        sendNotification("StartAudioSession", static_cast<Proxy*>(proxy_.get()));
}

void MicrophoneCalibratingMediator::stopAudioSession() {
    if (proxy_)
        sendNotification("StopAudioSession", static_cast<Proxy*>(proxy_.get()));
}

}  // namespace zt
