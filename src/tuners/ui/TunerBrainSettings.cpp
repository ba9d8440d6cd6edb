#include "tuners/ui/TunerBrainSettings.h"

#include "state/StateKeys.h"
#include "tuners/ui/TunerBrain.h"
#include "tuners/ui/TunerBrainSettingsDelegate.h"

namespace zt {

TunerBrainSettings::TunerBrainSettings(TunerBrain* tunerBrain, QObject* parent)
    : Screen(parent), tunerBrain_(tunerBrain) {
    if (tunerBrain_)
        loopSound_ = tunerBrain_->loopSound();
}

void TunerBrainSettings::switcherLoopAction() {
    loopSound_ = !loopSound_;
    emit loopSoundChanged();
    if (tunerBrain_)
        tunerBrain_->setLoopSound(loopSound_);
    currentSave();
}

void TunerBrainSettings::selectRow(int row) {
    if (row > 1 && delegate_)
        delegate_->chooseBrainOptions(row);
}

void TunerBrainSettings::viewWillAppear() {
    if (tunerBrain_ && tunerBrain_->loopSound() != loopSound_) {
        loopSound_ = tunerBrain_->loopSound();
        emit loopSoundChanged();
    }
    const QString name = delegate_ ? QString::fromStdString(delegate_->getTuningName()) : QString();
    if (name != nameOfTuning_) {
        nameOfTuning_ = name;
        emit nameOfTuningChanged();
    }
}

void TunerBrainSettings::currentSave() {
    if (delegate_)
        delegate_->saveBrainTunerSettings({{state::brain::kLoop.name, loopSound_}});
}

}  // namespace zt
