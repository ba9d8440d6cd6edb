// The chords screen under a capo.
#include "chords/Capo.h"
#include "chords/ui/ChordsLibrary.h"
#include "chords/ui/ChordsLibraryDelegate.h"
#include "framework/Log.h"
#include "state/StateKeys.h"

namespace zt {

QString ChordsLibrary::capoLabel() const {
    return capo_ > 0 ? QStringLiteral("Capo %1").arg(capo_) : QString();
}

QString ChordsLibrary::shapeText() const {
    if (capo_ == 0 || set_->count == 0)
        return {};
    QString shape = QString::fromStdString(chords::shapeNote(state_.choice.generatorRoot(), capo_) +
                                           state_.choice.chordPartTwo);
    const QString bass = bassText();
    if (!bass.isEmpty())
        shape += "/" + QString::fromStdString(chords::shapeNote(bass.mid(1).toStdString(), capo_));
    return shape.replace('#', QStringLiteral("\u266F")) + QStringLiteral(" shape");
}

void ChordsLibrary::setCapo(int fret) {
    if (fret == capo_ || !delegate_ || !delegate_->setCapo(fret))
        return;
    capo_ = fret;
    log("chords: capo " + chords::capoFretText(capo_));
    emit capoChanged();
    state_.currentVariationsIndex = 0;
    reload();
}

void ChordsLibrary::restoreCapo(const Dictionary& data) {
    const int fret = state::read(data, state::chords::kCapo);
    const int before = capo_;
    if (delegate_ && delegate_->setCapo(fret))
        capo_ = fret;
    if (capo_ != before)
        emit capoChanged();
}

}  // namespace zt
