#include "tuners/ui/TunerChromaticTaper.h"

#include "state/StateKeys.h"
#include "tuners/ui/TunerChromaticTaperDelegate.h"

namespace zt {

QStringList TunerChromaticTaper::names() {
    return {QStringLiteral("Gauss"), QStringLiteral("Cosine"), QStringLiteral("Hamming"),
            QStringLiteral("Hann"), QStringLiteral("Lanczos")};
}

TunerChromaticTaper::TunerChromaticTaper(QObject* parent)
    : Screen(parent), taperNameArray_(names()) {}

void TunerChromaticTaper::setTaperMode(int mode) {
    if (mode < 0 || mode >= taperNameArray_.size())
        mode = state::chromatic::kTaper.fallback;
    if (mode == taperMode_)
        return;
    taperMode_ = mode;
    emit taperModeChanged();
}

void TunerChromaticTaper::selectRow(int row) {
    if (row < 1 || row >= rowCount())
        return;
    // The service answers with its new window ("SetTaper"); the row is
    // ticked even when there is no service to answer.
    if (delegate_)
        delegate_->setTaperMode(row - 1);
    setTaperMode(row - 1);
}

void TunerChromaticTaper::viewWillAppear() {
    if (delegate_)
        delegate_->getTaperMode();
}

void TunerChromaticTaper::viewWillDisappear() {
    if (delegate_)
        delegate_->saveChromaticTunerSettings({{state::chromatic::kTaper.name, taperMode_}});
}

}  // namespace zt
