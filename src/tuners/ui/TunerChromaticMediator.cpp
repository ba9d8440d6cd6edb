#include "tuners/ui/TunerChromaticMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "sound/MediaProxy.h"
#include "tuners/MainFrequerncyProxy.h"
#include "tunings/SettingsProxy.h"

namespace zt {

std::vector<std::string> TunerChromaticMediator::listNotificationInterests() const {
    return {"ChangeAllNotes", "StateChromaticTunerData", "ShowNoteAndFrequernsy",
            "ShowMicrophoneError", "SetTuning"};
}

void TunerChromaticMediator::handleNotification(const Notification& notification) {
    TunerChromatic* tuner = screen();
    if (!tuner)
        return;
    const std::string& name = notification.name();
    // "ChangeAllNotes" needs nothing here: the panel's mode reaches the
    // screen with its saved settings each time it appears.
    if (name == "StateChromaticTunerData") {
        const Dictionary* data = notification.bodyAs<Dictionary>();
        tuner->setSavedData(data ? *data : Dictionary{});
    } else if (name == "ShowNoteAndFrequernsy") {
        if (const auto* note = notification.bodyAs<NoteDescription>())
            tuner->showNoteAndFreq(*note);
    } else if (name == "ShowMicrophoneError") {
        tuner->showMicrophoneDetectAlertView();
    } else if (name == "SetTuning" && settingsProxy_) {
        // The user's own tunings may have changed since the panel was given
        // the strings.
        if (tuningsVersion_ != settingsProxy_->tuningsVersion()) {
            tuningsVersion_ = settingsProxy_->tuningsVersion();
            tuner->setTuningArray(settingsProxy_->getNotesStand());
        }
        tuner->setTuningTuner(settingsProxy_->getTuningNumber());
    }
}

void TunerChromaticMediator::registered() {
    mediaProxy_ = facade().retrieveProxyAs<MediaProxy>(MediaProxy::NAME);
    mainFrequerncyProxy_ = facade().retrieveProxyAs<MainFrequerncyProxy>(MainFrequerncyProxy::NAME);
    settingsProxy_ = facade().retrieveProxyAs<SettingsProxy>(SettingsProxy::NAME);
    if (!mediaProxy_ || !mainFrequerncyProxy_ || !settingsProxy_)
        log("TunerChromaticMediator: a proxy is not registered; the tuner stays silent");
    if (screen() && settingsProxy_) {
        tuningsVersion_ = settingsProxy_->tuningsVersion();
        screen()->setTuningArray(settingsProxy_->getNotesStand());
    }
}

void TunerChromaticMediator::getFrequerncy() {
    if (mediaProxy_ && mediaProxy_->isBuffersLoaded() && mainFrequerncyProxy_ &&
        !mainFrequerncyProxy_->isAudioSessionStop()) {
        sendNotification("GetMainFrequerncy", static_cast<Proxy*>(mainFrequerncyProxy_.get()));
    }
}

void TunerChromaticMediator::startAudioSession() {
    if (!mainFrequerncyProxy_)
        return;
    mainFrequerncyProxy_->setIsAudioSessionStop(false);
    sendNotification("StartAudioSession", static_cast<Proxy*>(mainFrequerncyProxy_.get()));
}

void TunerChromaticMediator::stopAudioSession() {
    if (!mainFrequerncyProxy_)
        return;
    mainFrequerncyProxy_->setIsAudioSessionStop(true);
    sendNotification("StopAudioSession", static_cast<Proxy*>(mainFrequerncyProxy_.get()));
}

void TunerChromaticMediator::setChromaticTunerSavedData() {
    sendNotification("GetChromaticTunerSavedData", static_cast<Mediator*>(this));
}

void TunerChromaticMediator::setTuningDelegate(int tuning) {
    if (settingsProxy_)
        settingsProxy_->setTuning(tuning);
}

void TunerChromaticMediator::setTaperDelegate(int taperMode) {
    if (mainFrequerncyProxy_)
        mainFrequerncyProxy_->setTaperMode(static_cast<std::uint16_t>(taperMode));
}

void TunerChromaticMediator::setBaseNoteDelegate(const Note& baseNote) {
    if (mainFrequerncyProxy_)
        mainFrequerncyProxy_->setBaseNote(baseNote);
}

void TunerChromaticMediator::setTresholdPercentDelegate(int percent) {
    if (mainFrequerncyProxy_)
        mainFrequerncyProxy_->setTresholdPercent(percent);
}

void TunerChromaticMediator::setIsAllNotes(bool allNotes) {
    if (mainFrequerncyProxy_)
        mainFrequerncyProxy_->setIsAllNotes(allNotes);
}

bool TunerChromaticMediator::getAllNotes() const {
    return mainFrequerncyProxy_ && mainFrequerncyProxy_->isAllNotes();
}

void TunerChromaticMediator::getTuningChromaticTuner() {
    sendNotification("SetTuning");
}

void TunerChromaticMediator::showBrainTuner() {
    sendNotification("ShowTunerBrain");
}

void TunerChromaticMediator::showBrainTunerMode() {
    sendNotification("ShowTunerBrainMode");
}

void TunerChromaticMediator::showTunerChromaticSettings() {
    sendNotification("ShowTunerChromaticSettings");
}

void TunerChromaticMediator::stopMusic() {
    sendNotification("StopMusic");
}

void TunerChromaticMediator::startMusic() {
    sendNotification("StartMusic");
}

void TunerChromaticMediator::stopMetronome() {
    sendNotification("StopMetronome");
}

void TunerChromaticMediator::setButton() {
    if (screen())
        screen()->setButtonMode();
}

}  // namespace zt
