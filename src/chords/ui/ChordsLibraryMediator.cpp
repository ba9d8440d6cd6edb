#include "chords/ui/ChordsLibraryMediator.h"

#include "chords/ChordsProxy.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "sound/MediaProxy.h"
#include "tunings/SettingsProxy.h"

namespace zt {

std::vector<std::string> ChordsLibraryMediator::listNotificationInterests() const {
    return {"StateChordsData", "ReloadChords", "ChordsForPickerReady",
            "LoadChordVariationsComplete", kLeftHandedChanged};
}

void ChordsLibraryMediator::handleNotification(const Notification& notification) {
    ChordsLibrary* chords = screen();
    if (!chords)
        return;
    const std::string& name = notification.name();
    if (name == "StateChordsData") {
        const Dictionary* data = notification.bodyAs<Dictionary>();
        chords->setSavedData(data ? *data : Dictionary{});
    } else if (name == "ReloadChords") {
        updateTuning();
        chords->tuningChanged();
    } else if (name == kLeftHandedChanged && settings_) {
        chords->setLeftHanded(settings_->leftHanded());
    } else if (name == "ChordsForPickerReady" && chords_) {
        chords->setChordsForPicker(chords_->chordsPart1(), chords_->chordsPart2());
    }
}

void ChordsLibraryMediator::registered() {
    Facade& f = facade();
    chords_ = f.retrieveProxyAs<ChordsProxy>(ChordsProxy::NAME);
    settings_ = f.retrieveProxyAs<SettingsProxy>(SettingsProxy::NAME);
    media_ = f.retrieveProxyAs<MediaProxy>(MediaProxy::NAME);
    if (!chords_ || !settings_ || !media_)
        log("ChordsLibraryMediator: ChordsProxy, SettingsProxy or MediaProxy is not registered");
    updateTuning();
    if (screen() && settings_)
        screen()->setLeftHanded(settings_->leftHanded());
    if (chords_)
        chords_->getChordsForPicker();
    if (screen())
        setChordsLibrarySavedData();
}

void ChordsLibraryMediator::updateTuning() {
    if (chords_ && settings_)
        chords_->updateTuning(settings_->getTuning());
}

void ChordsLibraryMediator::getChordVariationsByName(const std::string& root,
                                                     const std::string& typeKey,
                                                     VariationSet& set) {
    if (chords_)
        chords_->variationsInDisplayOrder(root, typeKey, set);
}

void ChordsLibraryMediator::showChordsLibrarySettings() {
    sendNotification("ShowChordsLibrarySettings");
}

void ChordsLibraryMediator::setChordsLibrarySavedData() {
    sendNotification("GetChordsLibrarySavedData");
}

void ChordsLibraryMediator::saveChordsLibrarySettings(const Dictionary& settings) {
    sendNotification("SaveChordsLibraryState", settings);
}

void ChordsLibraryMediator::stopMusic() {
    sendNotification("StopMusic");
}

void ChordsLibraryMediator::startMusic() {
    sendNotification("StartMusic");
}

void ChordsLibraryMediator::stopMetronome() {
    sendNotification("StopMetronome");
}

bool ChordsLibraryMediator::isBuffersLoaded() const {
    return media_ && media_->isBuffersLoaded();
}

std::string ChordsLibraryMediator::getTuningName() const {
    return settings_ ? settings_->getTuningName() : std::string();
}

std::array<int, kStringCount> ChordsLibraryMediator::openNotes() const {
    // The generator's tuning, so that the finder and the fingerings agree.
    std::array<int, kStringCount> open{};
    if (chords_) {
        const auto& strings = chords_->getTuningDictionary();
        for (std::size_t s = 0; s < open.size(); ++s)
            open[s] = strings[open.size() - 1 - s].index;
    }
    return open;
}

}  // namespace zt

namespace zt {

bool ChordsLibraryMediator::setCapo(int fret) {
    return chords_ && chords_->setCapo(fret);
}

}  // namespace zt
