#include "tuners/ui/OrchestraControlMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "sound/MediaProxy.h"
#include "tuners/OrchestraControlProxy.h"

namespace zt {

std::vector<std::string> OrchestraControlMediator::listNotificationInterests() const {
    return {"StateOrchestraControll", "ShowOrchestraFrequency", "GetBaseNote",
            "ShowOrchestraError"};
}

void OrchestraControlMediator::handleNotification(const Notification& n) {
    OrchestraControl* s = screen();
    if (!s)
        return;
    const std::string& name = n.name();
    if (name == "StateOrchestraControll") {
        if (const auto* data = n.bodyAs<Dictionary>())
            s->setSavedData(*data);
    } else if (name == "ShowOrchestraFrequency") {
        if (const auto* note = n.bodyAs<NoteDescription>())
            s->showNoteAndFreq(*note);
    } else if (name == "GetBaseNote") {
        if (proxy_)
            s->setBaseNote(proxy_->getBaseNote());
    } else if (name == "ShowOrchestraError") {
        s->showMicrophoneDetectAlertView();
    }
}

void OrchestraControlMediator::registered() {
    proxy_ = facade().retrieveProxyAs<OrchestraControlProxy>(OrchestraControlProxy::NAME);
    media_ = facade().retrieveProxyAs<MediaProxy>(MediaProxy::NAME);
    if (!proxy_)
        log("OrchestraControlMediator: OrchestraControlProxy is not registered");
}

void OrchestraControlMediator::setOrchestraSavedData() {
    sendNotification("GetChromaticTunerSavedData", static_cast<Notifier*>(this));
}

void OrchestraControlMediator::saveChromaticTunerSettings(const Dictionary& settings) {
    sendNotification("SaveChromaticTunerState", settings);
}

void OrchestraControlMediator::askForBaseNote() {
    sendNotification("GetBaseNote");
}

void OrchestraControlMediator::refresh() {
    if (proxy_ && screen())
        screen()->showNoteAndFreq(proxy_->manualChangeFrequency(proxy_->getCurrentFrequency()));
}

void OrchestraControlMediator::setBaseNoteDelegate(const Note& note) {
    if (proxy_)
        proxy_->setBaseNote(note);
    refresh();
}

void OrchestraControlMediator::setBaseIndexDelegate(int index) {
    if (proxy_)
        proxy_->setNoteIndex(index, true);
    refresh();
}

void OrchestraControlMediator::setManualFrequencyDelegate(double frequency) {
    if (proxy_)
        sendNotification("ShowOrchestraFrequency", proxy_->manualChangeFrequency(frequency));
}

void OrchestraControlMediator::setTaperDelegate(int mode) {
    if (proxy_)
        proxy_->setTaperMode(mode);
}

void OrchestraControlMediator::getFrequency() {
    if (media_ && media_->isBuffersLoaded() && proxy_)
        sendNotification("GetMainFrequerncy", static_cast<Proxy*>(proxy_.get()));
}

void OrchestraControlMediator::startAudioSession() {
    if (proxy_)
        sendNotification("StartAudioSession", static_cast<Proxy*>(proxy_.get()));
}

void OrchestraControlMediator::stopAudioSession() {
    if (proxy_)
        sendNotification("StopAudioSession", static_cast<Proxy*>(proxy_.get()));
}

}  // namespace zt
