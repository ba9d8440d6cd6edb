#include "metronome/ui/MetronomeSettings.h"

#include "framework/Log.h"
#include "framework/Value.h"
#include "metronome/ui/MetronomeControls.h"
#include "metronome/ui/MetronomeSettingsDelegate.h"
#include "sound/SoundBank.h"
#include "state/PlistText.h"

namespace zt {

MetronomeSettings::MetronomeSettings(MetronomeControls* metronome, QObject* parent)
    : Screen(parent), metronome_(metronome) {
    for (std::string_view name : SoundBank::kPackNames) {
        arrayPack_.append(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    }
}

void MetronomeSettings::setPresetTitle(const QString& title) {
    if (title == nameField_)
        return;
    nameField_ = title;
    emit dialogChanged();
}

void MetronomeSettings::viewWillAppear() {
    if (metronome_) {
        switcherFBValue_ = metronome_->isFirstBeatNeed();
        packNumber_ = metronome_->packNumber();
    }
    updatePresetNumber();
    presets_.reload();
    reload();
}

void MetronomeSettings::viewWillDisappear() {
    closeDialog();
    if (metronome_)
        metronome_->saveCurrentState();
}

void MetronomeSettings::toggleAccent() {
    switcherFBValue_ = !switcherFBValue_;
    if (metronome_)
        metronome_->setIsFirstBeatNeed(switcherFBValue_);
    updatePresetNumber();
    reload();
    if (metronome_)
        metronome_->restartMetronome();
}

void MetronomeSettings::choosePack(int row) {
    if (row < 1 || row > SoundBank::kPackCount)
        return;
    const bool changed = row != packNumber_;
    packNumber_ = row;
    if (metronome_)
        metronome_->setCurrentPack(row);
    if (changed) {
        updatePresetNumber();
        log("FirstBeat " + std::to_string(packNumber_));
    }
    if (metronome_ && !metronome_->isPlaying())
        metronome_->playSampleTick();
    reload();
}

void MetronomeSettings::choosePreset(int row) {
    if (row < 1 || row > presetsCount() || !delegate_)
        return;
    // The touched row is marked even when an earlier preset holds the same
    // settings.
    presetNumber_ = row;
    delegate_->setMetronomePresetTo(row);
    if (metronome_) {
        switcherFBValue_ = metronome_->isFirstBeatNeed();
        packNumber_ = metronome_->packNumber();
    }
    reload();
}

void MetronomeSettings::deletePreset(int row) {
    if (row < 1 || row > presetsCount() || !delegate_)
        return;
    presets_.beginRemove(row);
    delegate_->removePresetWithIndex(row);
    presets_.endRemove();
    updatePresetNumber();
    reload();
}

void MetronomeSettings::addPresetRequested() {
    nameField_.clear();
    message_.clear();
    dialogOpen_ = true;
    fieldFocused_ = true;
    emit dialogChanged();
}

void MetronomeSettings::savePreset(const QString& title) {
    if (!dialogOpen_ || !message_.isEmpty())
        return;
    nameField_ = title;
    const std::string name = plist::sanitizeName(title.toStdString());
    if (name.empty()) {
        fieldFocused_ = false;
        message_ = QStringLiteral("Please enter a Preset title.");
        clearFieldAfterMessage_ = true;
    } else if (delegate_ && delegate_->containPresetWithName(name)) {
        fieldFocused_ = false;
        message_ = QStringLiteral("You allready have preset with same name.");
        clearFieldAfterMessage_ = false;
    } else {
        if (delegate_ && metronome_) {
            Dictionary preset = metronome_->currentSettings();
            preset["name"] = name;
            presets_.beginAppend();
            delegate_->saveCurrentState(preset);
            presets_.endAppend();
            presetNumber_ = presetsCount();
        } else {
            log("preset \"" + name + "\" not added: the screen is not connected");
        }
        closeDialog();
        reload();
        if (presetNumber_ > 0)
            emit scrollToPreset(presetNumber_);
        return;
    }
    emit dialogChanged();
}

void MetronomeSettings::cancelAddPreset() {
    closeDialog();
}

void MetronomeSettings::acknowledgeMessage() {
    if (message_.isEmpty())
        return;
    message_.clear();
    if (clearFieldAfterMessage_)
        nameField_.clear();
    fieldFocused_ = true;
    emit dialogChanged();
}

int MetronomeSettings::presetsCount() const {
    return delegate_ ? delegate_->presetsCount() : 0;
}

void MetronomeSettings::updatePresetNumber() {
    presetNumber_ =
        delegate_ && metronome_ ? delegate_->presetIndexForState(metronome_->currentState()) : 0;
}

void MetronomeSettings::reload() {
    emit reloaded();
}

void MetronomeSettings::closeDialog() {
    if (!dialogOpen_ && !fieldFocused_ && message_.isEmpty())
        return;
    dialogOpen_ = false;
    fieldFocused_ = false;
    message_.clear();
    emit dialogChanged();
}

}  // namespace zt
