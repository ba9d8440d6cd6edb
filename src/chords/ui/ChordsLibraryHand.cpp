// The chords screen drawn for either hand.
#include "chords/ui/ChordsLibrary.h"

namespace zt {

QVariantList ChordsLibrary::stringXs() const {
    QVariantList xs;
    for (int n = 1; n <= kStringCount; ++n)
        xs << TouchView::stringX(n, leftHanded());
    return xs;
}

int ChordsLibrary::stringAt(qreal x) const {
    return TouchView::stringNear(x, leftHanded());
}

void ChordsLibrary::setLeftHanded(bool on) {
    if (on == leftHanded())
        return;
    touch_.setLeftHanded(on);
    finder_.setLeftHanded(on);
    drawDiagrams();
    emit handChanged();
    emit chordChanged();
    paint();
}

}  // namespace zt
