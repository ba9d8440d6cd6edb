#include "metronome/ui/Metronome.h"

#include <QMetaObject>

#include "framework/Log.h"
#include "metronome/ClickSounds.h"
#include "metronome/TempoRules.h"
#include "metronome/ui/MetronomeDelegate.h"

namespace zt {

namespace {
// The beat light's polling period: about one frame at 60 Hz.
constexpr int kBeatPollMs = 16;
}  // namespace

Metronome::Metronome(MetronomeOutput& output, const TickClock& clock, QObject* parent)
    : Screen(parent), output_(output), core_(output_, clock) {
    shownRow_ = core_.getCurrentBPM();
    beatTimer_.setInterval(kBeatPollMs);
    beatTimer_.setTimerType(Qt::PreciseTimer);
    connect(&beatTimer_, &QTimer::timeout, this, &Metronome::pollHeardBeats);
}

Metronome::~Metronome() = default;

QStringList Metronome::wheelLabels() const {
    QStringList labels;
    labels.reserve(kWheelRows);
    for (int row = 0; row < kWheelRows; ++row)
        labels << QString::number(tempoForRow(row));
    return labels;
}

int Metronome::shownTempo() const {
    return trainerTempo_ > 0 ? trainerTempo_ : tempoForRow(shownRow_);
}

QStringList Metronome::tempoDigits() const {
    QStringList digits;
    for (int digit : zt::tempoDigits(shownTempo()))
        digits << (digit < 0 ? QString() : QString::number(digit));
    return digits;
}

QString Metronome::tempoName() const {
    return QString::fromStdString(tempoLabel(shownTempo()));
}

QVariantList Metronome::patternOffered() const {
    QVariantList offered;
    for (int p = state::metronome::kNotesPerBeat.min; p <= state::metronome::kNotesPerBeat.max; ++p)
        offered << core_.setup().isPatternOffered(p);
    return offered;
}

bool Metronome::canSound() const {
    return delegate_ && delegate_->isBuffersLoaded();
}

void Metronome::rowUpdated() {
    shownRow_ = core_.getCurrentBPM();
    emit rowChanged();
    emit tempoChanged();
    presetUpdated();
}

void Metronome::settingsUpdated() {
    emit settingsChanged();
    presetUpdated();
}

void Metronome::presetUpdated() {
    const std::string state = core_.currentState();
    const QString name =
        delegate_ ? QString::fromStdString(delegate_->presetNameForState(state, appliedPreset_))
                  : QString();
    if (name == presetName_)
        return;
    presetName_ = name;
    emit presetNameChanged();
}

void Metronome::setCurrentBeat(int beat) {
    if (beat == currentBeat_)
        return;
    currentBeat_ = beat;
    emit currentBeatChanged();
}

void Metronome::updateTrainerStatus(const HeardBeat* heard) {
    const PracticeSetup& p = core_.setup().practice;
    QString status;
    int tempo = 0;
    if (core_.isPlaying() && p.trainerOn) {
        tempo = heard ? heard->tempo : p.trainerStart;
        status = QString::fromStdString(heard ? p.trainerStatus(heard->tempo, heard->barsToStep)
                                              : p.trainerStatus(p.trainerStart, p.barsToStep(0)));
    }
    if (tempo != trainerTempo_) {
        trainerTempo_ = tempo;
        emit tempoChanged();
    }
    if (status == trainerStatus_)
        return;
    trainerStatus_ = status;
    emit trainerStatusChanged();
}

QStringList Metronome::beatKinds() const {
    QStringList kinds;
    for (int beat = 1; beat <= numerator(); ++beat)
        kinds.append(QString(QChar(beatLetter(core_.setup().beatKind(beat)))));
    return kinds;
}

void Metronome::cycleBeat(int beat) {
    if (beat < 1 || beat > numerator())
        return;
    core_.setBeatKind(beat, nextBeatKind(core_.setup().beatKind(beat)));
    settingsUpdated();
}

void Metronome::setPractice(const PracticeSetup& practice) {
    core_.setPractice(practice);
    settingsUpdated();
    updateTrainerStatus(nullptr);
}

void Metronome::playingUpdated() {
    const bool playing = core_.isPlaying();
    if (playing && !beatTimer_.isActive())
        beatTimer_.start();
    if (!playing)
        setCurrentBeat(0);
    if (playing != wasPlaying_)
        updateTrainerStatus(nullptr);
    if (playing == wasPlaying_)
        return;
    wasPlaying_ = playing;
    emit playingChanged();
}

void Metronome::setPanel(Panel panel) {
    if (panel == panel_)
        return;
    panel_ = panel;
    emit panelChanged();
}

void Metronome::startStop() {
    if (core_.isPlaying())
        stopMetronome();
    else
        startMetronome();
}

void Metronome::startMetronome() {
    if (core_.isPlaying())
        return;
    if (!canSound()) {
        log("metronome: the sounds are not loaded yet");
        return;
    }
    core_.forgetPause();
    core_.startMetronome();
    playingUpdated();
}

void Metronome::stopMetronome() {
    core_.stopMetronome();
    playingUpdated();
}

void Metronome::tap() {
    if (core_.tap())
        rowUpdated();
}

void Metronome::openSettings() {
    isSettings_ = true;
    setPanel(NoPanel);
    if (delegate_)
        delegate_->showMetronomeSettings();
}

void Metronome::viewWillAppear() {
    setTabBarIsVisible(true);
    if (delegate_)
        delegate_->stopMusic();
    // A pause asked for by another tool is over once the user is back here;
    // the window's life cycle must not resume it later.
    core_.forgetPause();
    // The presets may have been renamed, updated or deleted meanwhile.
    presetUpdated();
    if (isSettings_) {
        // Back from the settings screen, where a preset may have changed
        // everything.
        isSettings_ = false;
        rowUpdated();
        settingsUpdated();
    }
}

void Metronome::viewWillDisappear() {
    log("Picker = " + std::to_string(core_.getCurrentBPM()));
    // The wheel may have been left turning: show the chosen row.
    shownRow_ = core_.getCurrentBPM();
    emit tempoChanged();
    setPanel(NoPanel);
    // The screen is always the root of its tab, so leaving it never ends the
    // metronome: it goes on while other tabs are shown, until a tool asks
    // for "StopMetronome".
}

void Metronome::viewDidDisappear() {
    log("DISAPPEAR!");
    saveCurrentState();
    if (!core_.isPlaying() && delegate_)
        delegate_->startMusic();
}

void Metronome::setTabBarIsVisible(bool visible) {
    if (visible == tabBarIsVisible_)
        return;
    tabBarIsVisible_ = visible;
    emit tabBarIsVisibleChanged();
}

void Metronome::endMetronome() {
    if (!core_.isPlaying())
        return;
    // The output stops once this turn of the event loop is over, unless
    // runMetronome comes first.
    output_.holdNextStop();
    core_.endMetronome();
    QMetaObject::invokeMethod(
        this, [this] { output_.releaseHeldStop(); }, Qt::QueuedConnection);
    playingUpdated();
}

void Metronome::runMetronome() {
    core_.runMetronome();
    playingUpdated();
}

void Metronome::setSavedData(const Dictionary& data) {
    core_.setSavedData(data);
    rowUpdated();
    settingsUpdated();
}

void Metronome::setSettingsFromDictionary(const Dictionary& preset) {
    if (!preset.empty())
        appliedPreset_ = valueFor(preset, "name").toString();
    core_.setSettingsFromDictionary(preset);
    rowUpdated();
    settingsUpdated();
}

void Metronome::setIsFirstBeatNeed(bool need) {
    core_.setIsFirstBeatNeed(need);
    settingsUpdated();
}

void Metronome::setCurrentPack(int packNumber) {
    core_.setCurrentPack(packNumber);
    settingsUpdated();
}

void Metronome::saveCurrentState() {
    if (delegate_)
        delegate_->saveMetronomeSettings(core_.savedData());
}

void Metronome::playSampleTick() {
    if (canSound())
        delegate_->playSoundByID(clickSoundsForPack(packNumber()).tick, kBeatGroup, false);
}

void Metronome::pollHeardBeats() {
    if (const auto beat = output_.takeHeardBeat()) {
        beatAccented_ = beat->accented;
        ++beatCount_;
        emit beatCountChanged();
        // A click of a run already stopped, still on its way to the speaker,
        // lights nothing.
        if (core_.isPlaying()) {
            setCurrentBeat(beat->beatInBar);
            updateTrainerStatus(&*beat);
        }
    }
    // Stopped: keep watching until the last click has been heard.
    if (!core_.isPlaying() && output_.releaseWhenSilent())
        beatTimer_.stop();
}

}  // namespace zt
