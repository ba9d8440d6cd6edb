#include "tuners/ui/TunerBrain.h"

#include <algorithm>

#include "framework/Log.h"
#include "state/StateKeys.h"
#include "tuners/ui/TunerBrainDelegate.h"

namespace zt {

namespace {

// How often a sounding output is asked whether it may let the device go.
constexpr int kReleasePollMs = 1000;

bool validString(int n) {
    return n >= 1 && n <= TunerBrain::kStrings;
}

std::size_t slot(int n) {
    return static_cast<std::size_t>(n - 1);
}

}  // namespace

TunerBrain::TunerBrain(StringToneOutput& output, QObject* parent)
    : Screen(parent), output_(output) {
    releaseTimer_.setInterval(kReleasePollMs);
    connect(&releaseTimer_, &QTimer::timeout, this, [this] {
        if (output_.releaseWhenSilent())
            releaseTimer_.stop();
    });
}

QStringList TunerBrain::noteNames() const {
    QStringList names;
    for (const std::string& note : strings_.notes)
        names << QString::fromStdString(note);
    return names;
}

QVariantList TunerBrain::highlights() const {
    QVariantList list;
    for (Highlight h : highlights_)
        list << static_cast<int>(h);
    return list;
}

QVariantList TunerBrain::fadeCounts() const {
    QVariantList list;
    for (int count : fadeCounts_)
        list << count;
    return list;
}

QVariantList TunerBrain::stringOrder() const {
    QVariantList order;
    for (int i = 0; i < kStrings; ++i)
        order << (leftHanded_ ? i + 1 : kStrings - i);
    return order;
}

void TunerBrain::setLeftHanded(bool on) {
    if (on == leftHanded_)
        return;
    leftHanded_ = on;
    emit handChanged();
}

QString TunerBrain::caption() const {
    return loopSound_ ? QStringLiteral("Loop: touch the string again to stop it")
                      : QStringLiteral("Touch a string to hear it");
}

qreal TunerBrain::fadeOpacity(qreal seconds) {
    const qreal t = std::clamp(seconds / kFadeSeconds, 0.0, 1.0);
    return 1.0 - t * t;
}

int TunerBrain::offset(int stringNumber) const {
    return validString(stringNumber) ? strings_.offsets[slot(stringNumber)] : 0;
}

bool TunerBrain::isLooping(int stringNumber) const {
    return validString(stringNumber) && startLoopSound_[slot(stringNumber)];
}

TunerBrain::Highlight TunerBrain::highlight(int stringNumber) const {
    return validString(stringNumber) ? highlights_[slot(stringNumber)] : Hidden;
}

bool TunerBrain::canSound() const {
    return delegate_ && delegate_->isBuffersLoaded();
}

void TunerBrain::pressed(int stringNumber) {
    if (!validString(stringNumber) || !canSound())
        return;
    const std::size_t n = slot(stringNumber);
    // With looping on, only one string sounds at a time.
    if (loopSound_)
        stopAllSounds();
    const bool wasLooping = startLoopSound_[n];
    startLoopSound_.fill(false);
    highlights_.fill(Hidden);
    if (wasLooping) {
        // The touch on a looping string stops it.
        output_.stopString(stringNumber);
    } else {
        output_.playString(stringNumber, strings_.offsets[n], loopSound_);
        if (loopSound_) {
            startLoopSound_[n] = true;
            highlights_[n] = Held;
        } else {
            highlights_[n] = Fading;
            ++fadeCounts_[n];
        }
        releaseTimer_.start();
    }
    emit highlightsChanged();
}

void TunerBrain::clickSettingsButton() {
    if (delegate_)
        delegate_->showTunerBrainSettings();
}

void TunerBrain::stopAllSounds() {
    for (int n = 1; n <= kStrings; ++n)
        output_.stopString(n);
}

void TunerBrain::setLoopSound(bool loop) {
    if (loop == loopSound_)
        return;
    loopSound_ = loop;
    emit loopSoundChanged();
}

void TunerBrain::setSavedData(const Dictionary& data) {
    setLoopSound(state::read(data, state::brain::kLoop));
    setCapo(state::read(data, state::brain::kCapo));
}

QString TunerBrain::tuningName() const {
    return capo_ > 0 ? tuningName_ + QStringLiteral("  \u00B7  Capo %1").arg(capo_) : tuningName_;
}

void TunerBrain::setCapo(int fret) {
    fret = std::clamp(fret, state::brain::kCapo.min, state::brain::kCapo.max);
    if (fret == capo_)
        return;
    capo_ = fret;
    // What rang was tuned for the old capo.
    stopAllSounds();
    startLoopSound_.fill(false);
    highlights_.fill(Hidden);
    setSound();
    emit tuningChanged();
    emit highlightsChanged();
}

void TunerBrain::setSound() {
    strings_ = byEarStrings(currentTuning_, capo_);
    std::string line =
        "by-ear tuner: " + currentTuning_ + ", capo " + std::to_string(capo_) + ", offsets";
    for (int offset : strings_.offsets)
        line += " " + std::to_string(offset);
    log(line);
}

void TunerBrain::viewWillAppear() {
    if (delegate_) {
        delegate_->stopMusic();
        delegate_->stopMetronome();
        currentTuning_ = delegate_->getTuning();
        tuningName_ = QString::fromStdString(delegate_->getTuningName());
    }
    setSound();
    highlights_.fill(Hidden);
    emit tuningChanged();
    emit highlightsChanged();
}

bool TunerBrain::keyPressed(int key) {
    if (key < Qt::Key_1 || key > Qt::Key_6)
        return false;
    pressed(key - Qt::Key_0);
    return true;
}

void TunerBrain::viewDidDisappear() {
    stopAllSounds();
    // Silenced, no string is looping any more: the next touch plays.
    startLoopSound_.fill(false);
    highlights_.fill(Hidden);
    emit highlightsChanged();
    if (output_.releaseWhenSilent())
        releaseTimer_.stop();
    if (!buttonMode_ && delegate_)
        delegate_->startMusic();
    buttonMode_ = false;
}

}  // namespace zt
