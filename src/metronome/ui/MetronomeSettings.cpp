#include "metronome/ui/MetronomeSettings.h"

#include <algorithm>

#include "framework/Log.h"
#include "framework/Value.h"
#include "metronome/PresetName.h"
#include "metronome/ui/MetronomeControls.h"
#include "metronome/ui/MetronomeSettingsDelegate.h"
#include "sound/SoundBank.h"
#include "state/PlistText.h"

namespace zt {

namespace {
// Long enough to read the message and reach its button.
constexpr std::chrono::milliseconds kUndoWindow{6000};

QString quoted(const std::string& name) {
    return QStringLiteral("\u201C") + QString::fromStdString(name) + QStringLiteral("\u201D");
}
}  // namespace

MetronomeSettings::MetronomeSettings(MetronomeControls* metronome, QObject* parent)
    : Screen(parent), metronome_(metronome), practice_(new PracticeSettings(metronome, this)) {
    // A practice setting changes the state code the presets are matched on.
    connect(practice_, &PracticeSettings::changed, this, [this] {
        updatePresetNumber();
        emit reloaded();
    });
    for (std::string_view name : SoundBank::kPackNames) {
        arrayPack_.append(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    }
    undoTimer_.setSingleShot(true);
    undoTimer_.setInterval(kUndoWindow);
    connect(&undoTimer_, &QTimer::timeout, this, &MetronomeSettings::dismissUndo);
}

QString MetronomeSettings::dialogTitle() const {
    return renamingRow_ > 0 ? QStringLiteral("Rename preset") : addPresetTitle();
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
    dismissUndo();
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
    const Dictionary removed = delegate_->presetAtIndex(row);
    presets_.beginRemove(row);
    delegate_->removePresetWithIndex(row);
    presets_.endRemove();
    updatePresetNumber();
    reload();
    offerUndo(true, row, removed,
              QStringLiteral("Deleted ") + quoted(valueFor(removed, "name").toString()));
}

void MetronomeSettings::updatePreset(int row) {
    if (row < 1 || row > presetsCount() || !delegate_ || !metronome_)
        return;
    const Dictionary previous = delegate_->presetAtIndex(row);
    // Keys this version does not know stay with the preset.
    Dictionary updated = previous;
    for (const auto& [key, value] : metronome_->currentSettings())
        updated[key] = value;
    if (!delegate_->replacePresetAtIndex(row, updated))
        return;
    presets_.presetChanged(row);
    presetNumber_ = row;
    reload();
    offerUndo(false, row, previous,
              QStringLiteral("Updated ") + quoted(valueFor(previous, "name").toString()));
}

void MetronomeSettings::offerUndo(bool deleted, int row, const Dictionary& previous,
                                  const QString& message) {
    undoDeleted_ = deleted;
    undoRow_ = row;
    undoPreset_ = previous;
    undoMessage_ = message;
    undoTimer_.start();
    emit undoChanged();
}

void MetronomeSettings::undo() {
    if (undoMessage_.isEmpty() || !delegate_)
        return;
    if (undoDeleted_) {
        const int row = std::min(undoRow_, presetsCount() + 1);
        presets_.beginInsert(row);
        delegate_->insertPresetAtIndex(row, undoPreset_);
        presets_.endInsert();
    } else if (undoRow_ <= presetsCount() &&
               delegate_->replacePresetAtIndex(undoRow_, undoPreset_)) {
        presets_.presetChanged(undoRow_);
    }
    updatePresetNumber();
    reload();
    dismissUndo();
}

void MetronomeSettings::dismissUndo() {
    undoTimer_.stop();
    undoPreset_.clear();
    if (undoMessage_.isEmpty())
        return;
    undoMessage_.clear();
    emit undoChanged();
}

void MetronomeSettings::renamePresetRequested(int row) {
    if (row < 1 || row > presetsCount() || !delegate_)
        return;
    nameField_ = QString::fromStdString(delegate_->presetNameForIndex(row));
    message_.clear();
    renamingRow_ = row;
    dialogOpen_ = true;
    fieldFocused_ = true;
    emit dialogChanged();
}

void MetronomeSettings::addPresetRequested() {
    nameField_.clear();
    renamingRow_ = 0;
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
    if (!acceptTitle(name)) {
        fieldFocused_ = false;
        emit dialogChanged();
        return;
    }
    if (renamingRow_ > 0)
        renamePreset(name);
    else
        addPreset(name);
}

bool MetronomeSettings::acceptTitle(const std::string& name) {
    if (name.empty()) {
        message_ = QStringLiteral("Please enter a Preset title.");
        clearFieldAfterMessage_ = true;
        return false;
    }
    // A preset may take its own name back in other letter case.
    const bool ownName = renamingRow_ > 0 && delegate_ &&
                         foldCase(delegate_->presetNameForIndex(renamingRow_)) == foldCase(name);
    if (!ownName && delegate_ && delegate_->containPresetWithName(name)) {
        message_ = QStringLiteral("You allready have preset with same name.");
        clearFieldAfterMessage_ = false;
        return false;
    }
    return true;
}

void MetronomeSettings::addPreset(const std::string& name) {
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
}

void MetronomeSettings::renamePreset(const std::string& name) {
    const int row = renamingRow_;
    Dictionary preset = delegate_ ? delegate_->presetAtIndex(row) : Dictionary{};
    preset["name"] = name;
    if (delegate_ && delegate_->replacePresetAtIndex(row, preset))
        presets_.presetChanged(row);
    else
        log("preset " + std::to_string(row) + " not renamed: it is gone");
    closeDialog();
    reload();
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
    practice_->refresh();
}

void MetronomeSettings::closeDialog() {
    if (!dialogOpen_ && !fieldFocused_ && message_.isEmpty())
        return;
    dialogOpen_ = false;
    renamingRow_ = 0;
    fieldFocused_ = false;
    message_.clear();
    emit dialogChanged();
}

}  // namespace zt
