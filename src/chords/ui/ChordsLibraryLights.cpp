// The chords screen's keys and the lights on its strings.
#include <QKeyEvent>

#include "chords/ui/ChordsLibrary.h"

namespace zt {

QVariantList ChordsLibrary::litStrings() const {
    QVariantList list;
    for (bool lit : lit_)
        list << lit;
    return list;
}

bool ChordsLibrary::isLit(int stringNumber) const {
    return stringNumber >= 1 && stringNumber <= kStringCount &&
           lit_[static_cast<std::size_t>(stringNumber - 1)];
}

bool ChordsLibrary::keyPressed(int key) {
    if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) {
        playCurrentChord();
        return true;
    }
    if (key < Qt::Key_A || key > Qt::Key_G)
        return false;
    const char letter = static_cast<char>('A' + (key - Qt::Key_A));
    const int row = rowForLetter(roots_, state_.choice.rootRow, letter);
    if (row >= 0)
        selectRow(row, 0);
    return true;
}

void ChordsLibrary::followSound() {
    updateLights();
    if (!lightTimer_.isActive())
        lightTimer_.start();
}

void ChordsLibrary::updateLights() {
    const HeardStrings heard = output_.heard();
    std::array<bool, kStringCount> lit{};
    bool any = false;
    for (std::size_t n = 0; n < lit.size(); ++n) {
        lit[n] = heard.secondsAgo[n] < kLightSeconds;
        any = any || lit[n];
    }
    if (!any && !heard.waiting)
        lightTimer_.stop();
    if (lit == lit_)
        return;
    lit_ = lit;
    emit litChanged();
}

}  // namespace zt
