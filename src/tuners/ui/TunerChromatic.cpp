#include "tuners/ui/TunerChromatic.h"

#include <QVariantMap>
#include <algorithm>
#include <cmath>

#include "framework/Log.h"
#include "state/StateKeys.h"
#include "tuners/ChromaticSection.h"
#include "tuners/LevelScale.h"
#include "tuners/ui/TunerChromaticDelegate.h"
#include "tuners/ui/TunerDial.h"

namespace zt {

namespace {
constexpr double kNoPitch = -1.0;
// The tuning mode lights a string for any reading within this many cents.
constexpr double kStringLitCents = 5000.0;
}  // namespace

TunerChromatic::TunerChromatic(QObject* parent) : Screen(parent) {
    startTuner_.setInterval(kPollMs);
    startTuner_.setTimerType(Qt::PreciseTimer);
    connect(&startTuner_, &QTimer::timeout, this, &TunerChromatic::startTunerAction);
    timerChangeNotes_.setSingleShot(true);
    timerChangeNotes_.setInterval(kPanelRefreshMs);
    connect(&timerChangeNotes_, &QTimer::timeout, this, &TunerChromatic::showNewNote);
    setUpPractice();
}

void TunerChromatic::setDelegate(TunerChromaticDelegate* delegate) {
    delegate_ = delegate;
    if (delegate_ && appearPending_) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (appearPending_)
                    viewWillAppear();
            },
            Qt::QueuedConnection);
    }
}

QStringList TunerChromatic::slotLetters() const {
    QStringList out;
    for (const std::string& letter : panel_.letters())
        out.append(QString::fromStdString(letter));
    return out;
}

QVariantList TunerChromatic::slotSharps() const {
    QVariantList out;
    for (bool sharp : panel_.sharps())
        out.append(sharp);
    return out;
}

QVariantList TunerChromatic::scaleTicks() const {
    QVariantList ticks;
    for (int cents = -dial::kMaxCentModule; cents <= dial::kMaxCentModule; cents += 10) {
        const int length = cents % 100 == 0 ? 30 : (cents % 50 == 0 ? 20 : 10);
        ticks.append(QVariantMap{{QStringLiteral("angle"), convertAngle(cents)},
                                 {QStringLiteral("length"), length}});
    }
    return ticks;
}

double TunerChromatic::convertAngle(double cents) const {
    return dial::convertAngle(cents, linearScale_);
}

void TunerChromatic::openSettings() {
    cancelPanelRefresh();
    if (delegate_)
        delegate_->showTunerChromaticSettings();
}

void TunerChromatic::dismissMicrophoneAlert() {
    if (!microphoneAlert_)
        return;
    microphoneAlert_ = false;
    emit microphoneAlertChanged();
    if (delegate_)
        delegate_->showBrainTuner();
}

void TunerChromatic::setTuningArray(const std::vector<std::string>& notesStand) {
    panel_.setTuningArray(notesStand);
    tuningStrings_ = notesStand;
    setTuningImages();
}

void TunerChromatic::setTuningTuner(int tuning) {
    if (tuning < 0 || tuning >= panel_.tuningCount()) {
        log("TunerChromatic: no tuning " + std::to_string(tuning) + "; showing Standard");
        tuning = 0;
    }
    const bool redraw = tuning != tuning_ || isAllNotesChange_;
    tuning_ = tuning;
    isAllNotesChange_ = false;
    if (redraw)
        setTuningImages();
}

void TunerChromatic::setTuningImages() {
    panel_.reset(tuning_, isAllNotes_);
    emit panelChanged();
}

void TunerChromatic::setSavedData(const Dictionary& data) {
    namespace keys = state::chromatic;
    const bool allNotes = state::read(data, keys::kAllNotes);
    if (allNotes != isAllNotes_) {
        isAllNotesChange_ = true;
        isAllNotes_ = allNotes;
    }
    if (delegate_)
        delegate_->setIsAllNotes(isAllNotes_);
    taperMode_ = chromatic::taperMode(data);
    baseNote_ = chromatic::baseNote(data);
    const bool linear = state::read(data, keys::kLinearScale);
    tresholdPercent_ = chromatic::tresholdPercent(data);
    emit volumeChanged();
    classic_ = chromatic::classicDetection(data);
    readDisplay(data);
    if (linear != linearScale_) {
        linearScale_ = linear;
        emit scaleChanged();
    }
}

void TunerChromatic::viewWillAppear() {
    appearPending_ = !delegate_;
    if (appearPending_)
        return;
    microphoneAlert_ = false;
    emit microphoneAlertChanged();
    delegate_->stopMusic();
    delegate_->stopMetronome();
    // The application keeps the screen lit for as long as it runs.
    delegate_->setChromaticTunerSavedData();
    // The tuning may have changed on the tunings list meanwhile: take it
    // before handing it on, and redraw the panel if the mode changed.
    delegate_->getTuningChromaticTuner();
    delegate_->setTuningDelegate(tuning_);
    delegate_->setTaperDelegate(taperMode_);
    delegate_->setBaseNoteDelegate(baseNote_);
    delegate_->setTresholdPercentDelegate(tresholdPercent_);
    emit scaleChanged();
    setVolume(110, 100, 0);
    cancelPanelRefresh();
    activeNoteIndex_ = 0;
    panel_.setBeginIndex(0);
    delegate_->startAudioSession();
    setPolling(true);
}

void TunerChromatic::viewDidDisappear() {
    appearPending_ = false;
    // The alert is the screen's: it goes with it, however it was left.
    if (microphoneAlert_) {
        microphoneAlert_ = false;
        emit microphoneAlertChanged();
    }
    stopTone(false);
    stopTimer();
    if (delegate_) {
        delegate_->stopAudioSession();
        if (!buttonMode_)
            delegate_->startMusic();
    }
    buttonMode_ = false;
}

void TunerChromatic::stopTimer() {
    setPolling(false);
    cancelPanelRefresh();
    setVolume(110, 100, 0);
}

void TunerChromatic::startTunerAction() {
    if (delegate_)
        delegate_->getFrequerncy();
}

void TunerChromatic::showNoteAndFreq(const NoteDescription& note) {
    if (!isTimerStop_)
        return;
    freq_ = static_cast<float>(note.frequency);
    setNotePanelIndex(note);
    updateLabel(note);
    rotationArrow(note);
    recordReading(note);
}

void TunerChromatic::showMicrophoneDetectAlertView() {
    stopTimer();
    // The needle must not stay where the last reading left it.
    NoteDescription none;
    none.frequency = kNoPitch;
    rotationArrow(none);
    updateLabel(none);
    recordReading(none);
    if (microphoneAlert_)
        return;
    microphoneAlert_ = true;
    emit microphoneAlertChanged();
}

void TunerChromatic::setNotePanelIndex(const NoteDescription& note) {
    currentNote_ = note.fullName;
    heardOctave_ = dial::octaveOf(note, baseNote_);
    activeNoteIndex_ = note.index;
    const double cents = std::abs(std::trunc(note.cents));
    if (!isAllNotes_) {
        panel_.showString(tuning_, activeNoteIndex_, currentNote_,
                          cents <= kStringLitCents && freq_ != kNoPitch);
        emit panelChanged();
        return;
    }
    panel_.slideTo(activeNoteIndex_);
    isTimerStop_ = false;
    if (cents > dial::kMaxCentModule) {
        // Too far from any note to name it: the panel stays as it is.
        isTimerStop_ = true;
        return;
    }
    timerChangeNotes_.start();
}

void TunerChromatic::showNewNote() {
    panel_.showWindow(activeNoteIndex_, freq_ != kNoPitch);
    litOctave_ = QString::fromStdString(heardOctave_);
    isTimerStop_ = true;
    emit panelChanged();
}

void TunerChromatic::cancelPanelRefresh() {
    timerChangeNotes_.stop();
    isTimerStop_ = true;
}

void TunerChromatic::updateLabel(const NoteDescription& note) {
    const dial::VolumeBar bar = dial::volumeBar(std::clamp(note.volumeLevel, 0, 10));
    setVolume(bar.x, bar.width, bar.shown, level::ofPitchStep(note.volumeLevel, tresholdPercent_));
    frequencyText_ = QString::fromStdString(dial::frequencyText(note));
    centsText_ = QString::fromStdString(dial::centsText(note));
    referenceTexts_.clear();
    for (const std::string& text : dial::referenceTexts(note))
        referenceTexts_.append(QString::fromStdString(text));
    frequencyAmber_ = dial::isInTune(note.cents);
    emit labelsChanged();
}

void TunerChromatic::rotationArrow(const NoteDescription& note) {
    const dial::NeedleMove move = dial::needleMove(note, linearScale_, classic_);
    moveNeedle(move.angle, move.seconds);
}

void TunerChromatic::moveNeedle(double angle, double seconds) {
    needleAngle_ = angle;
    needleSeconds_ = seconds;
    emit needleMoved();
}

void TunerChromatic::setVolume(double x, double width, double shown, double level) {
    const QRectF frame(x, 190, width, 20);
    if (frame == volumeFrame_ && shown == volumeShown_ && level == level_)
        return;
    volumeFrame_ = frame;
    volumeShown_ = shown;
    level_ = level;
    emit volumeChanged();
}

double TunerChromatic::thresholdMark() const {
    return level::ofPercent(tresholdPercent_);
}

void TunerChromatic::setPolling(bool on) {
    if (on == startTuner_.isActive())
        return;
    if (on) {
        startTuner_.start();
    } else {
        startTuner_.stop();
    }
    emit pollingChanged();
}

}  // namespace zt
