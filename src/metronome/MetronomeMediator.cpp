#include "metronome/MetronomeMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "sound/MediaProxy.h"

namespace zt {

MetronomeMediator::MetronomeMediator(Metronome* screen) : Mediator(NAME, screen), screen_(screen) {}

std::vector<std::string> MetronomeMediator::listNotificationInterests() const {
    return {"StopMetronome", "StateMetronomeData", "ShowMetronomeFromTab",
            "ShowMetronomeFromTools"};
}

void MetronomeMediator::handleNotification(const Notification& notification) {
    if (!screen_)
        return;
    const std::string& name = notification.name();
    if (name == "StopMetronome") {
        screen_->endMetronome();
    } else if (name == "StateMetronomeData") {
        const Dictionary* data = notification.bodyAs<Dictionary>();
        screen_->setSavedData(data ? *data : Dictionary{});
    } else if (name == "ShowMetronomeFromTab") {
        screen_->setMetronomeFromTab();
    } else if (name == "ShowMetronomeFromTools") {
        screen_->setMetronomeFromTools();
    }
}

void MetronomeMediator::onRegister() {
    media_ = facade().retrieveProxyAs<MediaProxy>(MediaProxy::NAME);
    if (!media_)
        log("MetronomeMediator: MediaProxy is not registered");
    if (!screen_)
        return;
    screen_->setDelegate(this);
    setMetronomeSavedData();
}

void MetronomeMediator::onRemove() {
    if (screen_ && screen_->delegate() == this)
        screen_->setDelegate(nullptr);
}

void MetronomeMediator::playSoundByID(int soundId, int group, bool loop) {
    if (media_)
        media_->playSoundByID(soundId, group, loop);
}

void MetronomeMediator::stopMusic() {
    sendNotification("StopMusic");
}

void MetronomeMediator::startMusic() {
    sendNotification("StartMusic");
}

void MetronomeMediator::showMetronomeSettings() {
    sendNotification("ShowMetronomeSettings");
}

void MetronomeMediator::setMetronomeSavedData() {
    sendNotification("GetMetronomeSavedData");
}

void MetronomeMediator::saveMetronomeSettings(const Dictionary& settings) {
    sendNotification("SaveMetronomeState", settings);
}

bool MetronomeMediator::isBuffersLoaded() const {
    return media_ && media_->isBuffersLoaded();
}

}  // namespace zt
