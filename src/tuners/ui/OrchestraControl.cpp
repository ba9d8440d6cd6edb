#include "tuners/ui/OrchestraControl.h"

#include <cmath>

#include "state/StateKeys.h"
#include "tuners/ChromaticSection.h"
#include "tuners/ui/OrchestraControlDelegate.h"

namespace zt {

OrchestraControl::OrchestraControl(QObject* parent)
    : MeasuringScreen(QStringLiteral("The orchestra tuning requires a microphone to work. If you "
                                     "are using a device which does not include a built-in "
                                     "microphone, you must connect an external microphone via "
                                     "the headset jack. Or, you can adjust base frequency "
                                     "manually."),
                      parent),
      noteNames_{"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"} {}

void OrchestraControl::startSession() {
    if (delegate_)
        delegate_->startAudioSession();
}

void OrchestraControl::stopSession() {
    if (delegate_)
        delegate_->stopAudioSession();
}

void OrchestraControl::poll() {
    if (delegate_)
        delegate_->getFrequency();
}

QString OrchestraControl::frequencyText(double hertz) {
    QString digits = QString::number(std::lround(hertz * 10.0));
    if (digits == QLatin1String("0"))
        digits = QStringLiteral("000");
    return digits.left(digits.size() - 1) + QLatin1Char('.') + digits.right(1);
}

void OrchestraControl::setSavedData(const Dictionary& data) {
    taperMode_ = chromatic::taperMode(data);
    baseNote_ = chromatic::baseNote(data);
    classic_ = chromatic::classicDetection(data);
    emit changed();
}

void OrchestraControl::showNoteAndFreq(const NoteDescription& note) {
    defaultValueText_ = frequencyText(note.standartFrequency);
    customValueText_ = frequencyText(note.frequency);
    centsValueText_ = classic_ ? QString::number(std::lround(note.cents))
                               : QString::number(note.cents + 0.0, 'f', 1);
    currentFreq_ = static_cast<double>(std::lround(note.frequency * 10.0)) / 10.0;
    emit changed();
}

void OrchestraControl::setBaseNote(const Note& note) {
    baseNote_ = note;
    emit changed();
}

void OrchestraControl::manualIncrementor(int tag) {
    // Kept on the tenth shown: 440.2 + 0.1 would otherwise be 440.30000000000001
    // and 440.4 - 0.1 440.29999999999995, which the cents, reckoned on whole
    // tenths, read as 440.2.
    if (delegate_)
        delegate_->setManualFrequencyDelegate(std::round((currentFreq_ + tag / 10.0) * 10.0) /
                                              10.0);
}

void OrchestraControl::showNoteIndexPicker() {
    stopMeasuring();
    pickerOpen_ = true;
    emit changed();
}

void OrchestraControl::hideNoteIndexPicker() {
    if (!pickerOpen_)
        return;
    pickerOpen_ = false;
    emit changed();
}

void OrchestraControl::pickNote(int index) {
    if (index < 0 || index >= noteNames_.size())
        return;
    baseNote_ =
        Note(baseNote_.getOctave(), static_cast<std::uint16_t>(index), baseNote_.getFrequency());
    if (delegate_)
        delegate_->setBaseIndexDelegate(index);
    emit changed();
}

void OrchestraControl::saveSettings() {
    if (!delegate_)
        return;
    // The note as adjusted: the mediator answers at once with the proxy's.
    delegate_->askForBaseNote();
    namespace keys = state::chromatic;
    delegate_->saveChromaticTunerSettings({{keys::kBaseOctave.name, int{baseNote_.getOctave()}},
                                           {keys::kBaseIndex.name, int{baseNote_.getIndex()}},
                                           {keys::kBaseFrequency.name, baseNote_.getFrequency()}});
}

void OrchestraControl::viewWillAppear() {
    pickerOpen_ = false;
    if (delegate_) {
        delegate_->setOrchestraSavedData();
        delegate_->setTaperDelegate(taperMode_);
        delegate_->setBaseNoteDelegate(baseNote_);
    }
    emit changed();
}

void OrchestraControl::viewWillDisappear() {
    hideNoteIndexPicker();
    endMeasuring();
}

}  // namespace zt
