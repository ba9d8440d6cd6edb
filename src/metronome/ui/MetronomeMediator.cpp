#include "metronome/ui/MetronomeMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "metronome/MetronomeProxy.h"
#include "sound/MediaProxy.h"

namespace zt {

std::vector<std::string> MetronomeMediator::listNotificationInterests() const {
    return {"StopMetronome", "StateMetronomeData", "ShowMetronomeFromTab",
            "ShowMetronomeFromTools"};
}

void MetronomeMediator::handleNotification(const Notification& notification) {
    Metronome* metronome = screen();
    if (!metronome)
        return;
    const std::string& name = notification.name();
    if (name == "StopMetronome") {
        metronome->endMetronome();
    } else if (name == "StateMetronomeData") {
        const Dictionary* data = notification.bodyAs<Dictionary>();
        metronome->setSavedData(data ? *data : Dictionary{});
    } else if (name == "ShowMetronomeFromTab") {
        metronome->setMetronomeFromTab();
    } else if (name == "ShowMetronomeFromTools") {
        metronome->setMetronomeFromTools();
    }
}

void MetronomeMediator::registered() {
    media_ = facade().retrieveProxyAs<MediaProxy>(MediaProxy::NAME);
    if (!media_)
        log("MetronomeMediator: MediaProxy is not registered");
    presets_ = facade().retrieveProxyAs<MetronomeProxy>(MetronomeProxy::NAME);
    if (screen())
        setMetronomeSavedData();
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

std::string MetronomeMediator::presetNameForState(const std::string& state,
                                                  const std::string& preferred) const {
    if (!presets_)
        return {};
    const int first = presets_->presetIndexForState(state);
    if (first == 0 || preferred.empty())
        return presets_->presetNameForIndex(first);
    const int count = static_cast<int>(presets_->presetsArray().size()) - 1;
    for (int index = first; index <= count; ++index) {
        if (presets_->presetNameForIndex(index) == preferred &&
            valueFor(presets_->presetAtIndex(index), "state") == Value(state))
            return preferred;
    }
    return presets_->presetNameForIndex(first);
}

}  // namespace zt
