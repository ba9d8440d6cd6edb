#include "tuners/ui/TunerChromaticSettings.h"

#include "framework/Log.h"
#include "state/StateKeys.h"
#include "tuners/ChromaticSection.h"
#include "tuners/ui/TunerChromaticSettingsDelegate.h"
#include "tuners/ui/TunerChromaticTaper.h"

namespace zt {

namespace keys = state::chromatic;

TunerChromaticSettings::TunerChromaticSettings(QObject* parent)
    : Screen(parent),
      settingsNameArray_{QStringLiteral("Tunings"), QStringLiteral("Tapering functions"),
                         QStringLiteral("Microphone sensitivity"),
                         QStringLiteral("Orchestra tuning")} {}

QStringList TunerChromaticSettings::inputChoices() const {
    QStringList choices{QStringLiteral("System default")};
    for (const auto& device : devices_)
        choices.append(QString::fromStdString(device));
    return choices;
}

int TunerChromaticSettings::inputChoice() const {
    for (std::size_t i = 0; i < devices_.size(); ++i) {
        if (devices_[i] == device_)
            return static_cast<int>(i) + 1;
    }
    return 0;
}

void TunerChromaticSettings::setSavedData(const Dictionary& data) {
    linearScale_ = state::read(data, keys::kLinearScale);
    allNotes_ = state::read(data, keys::kAllNotes);
    emit changed();
}

void TunerChromaticSettings::setSectionData(const Dictionary& data,
                                            std::vector<std::string> devices) {
    taperName_ = TunerChromaticTaper::names().value(chromatic::taperMode(data));
    sensitivityText_ = QStringLiteral("%1 %").arg(chromatic::tresholdPercent(data));
    const double a4 = chromatic::concertPitchOf(chromatic::baseNote(data));
    referenceText_ = QStringLiteral("A4 = %1 Hz").arg(a4, 0, 'f', 1);
    classic_ = chromatic::classicDetection(data);
    strobeView_ = state::read(data, keys::kStrobeView);
    pitchHistory_ = state::read(data, keys::kPitchHistory);
    device_ = chromatic::inputDevice(data);
    devices_ = std::move(devices);
    emit changed();
}

void TunerChromaticSettings::selectRow(int row) {
    if (row <= 2 || row >= rowCount())
        return;
    log("chooseChromaticOptions " + std::to_string(row));
    if (delegate_)
        delegate_->chooseChromaticOptions(row);
}

void TunerChromaticSettings::switcherLSAction() {
    linearScale_ = !linearScale_;
    emit changed();
    currentSave();
}

void TunerChromaticSettings::switcherANAction() {
    allNotes_ = !allNotes_;
    emit changed();
    currentSave();
}

void TunerChromaticSettings::toggleClassicDetection() {
    classic_ = !classic_;
    emit changed();
    if (delegate_)
        delegate_->saveChromaticTunerSettings({{keys::kClassicDetection.name, classic_}});
}

void TunerChromaticSettings::chooseStrobeView(bool strobe) {
    if (strobe == strobeView_)
        return;
    strobeView_ = strobe;
    emit changed();
    if (delegate_)
        delegate_->saveChromaticTunerSettings({{keys::kStrobeView.name, strobeView_}});
}

void TunerChromaticSettings::togglePitchHistory() {
    pitchHistory_ = !pitchHistory_;
    emit changed();
    if (delegate_)
        delegate_->saveChromaticTunerSettings({{keys::kPitchHistory.name, pitchHistory_}});
}

void TunerChromaticSettings::chooseInput(int choice) {
    if (choice < 0 || choice > static_cast<int>(devices_.size()))
        return;
    device_ = choice == 0 ? std::string() : devices_[static_cast<std::size_t>(choice - 1)];
    emit changed();
    if (delegate_)
        delegate_->saveChromaticTunerSettings({{keys::kInputDevice.name, device_}});
}

void TunerChromaticSettings::viewWillAppear() {
    if (!delegate_)
        return;
    delegate_->setChromaticTunerSavedData();
    tuningName_ = QString::fromStdString(delegate_->getTuningName());
    emit changed();
}

void TunerChromaticSettings::currentSave() {
    if (delegate_) {
        delegate_->saveChromaticTunerSettings(
            {{keys::kAllNotes.name, allNotes_}, {keys::kLinearScale.name, linearScale_}});
    }
}

}  // namespace zt
