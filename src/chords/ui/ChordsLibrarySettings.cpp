#include "chords/ui/ChordsLibrarySettings.h"

#include "chords/ui/ChordsLibrary.h"
#include "chords/ui/ChordsLibrarySettingsDelegate.h"
#include "state/StateKeys.h"

namespace zt {

ChordsLibrarySettings::ChordsLibrarySettings(ChordsLibrary* chordsLibrary, QObject* parent)
    : Screen(parent), chordsLibrary_(chordsLibrary) {
    if (chordsLibrary_)
        isShowNotes_ = chordsLibrary_->flag();
}

void ChordsLibrarySettings::switcherNotesAction() {
    isShowNotes_ = !isShowNotes_;
    emit isShowNotesChanged();
    if (chordsLibrary_)
        chordsLibrary_->setShowNotes(isShowNotes_);
}

void ChordsLibrarySettings::selectRow(int row) {
    if (row > 1 && delegate_)
        delegate_->chooseChordsOptions(row);
}

void ChordsLibrarySettings::viewWillAppear() {
    if (chordsLibrary_ && chordsLibrary_->flag() != isShowNotes_) {
        isShowNotes_ = chordsLibrary_->flag();
        emit isShowNotesChanged();
    }
    const QString name = delegate_ ? QString::fromStdString(delegate_->getTuningName()) : QString();
    if (name != nameOfTuning_) {
        nameOfTuning_ = name;
        emit nameOfTuningChanged();
    }
}

void ChordsLibrarySettings::viewWillDisappear() {
    currentSave();
}

void ChordsLibrarySettings::currentSave() {
    if (delegate_)
        delegate_->saveChordsLibrarySettings({{state::chords::kNotes.name, isShowNotes_}});
}

}  // namespace zt
