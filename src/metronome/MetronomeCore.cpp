#include "metronome/MetronomeCore.h"

#include <cstdio>

#include "framework/Log.h"
#include "metronome/TempoRules.h"

namespace zt {

MetronomeCore::MetronomeCore(MetronomeOutput& output, const TickClock& clock)
    : output_(output), tapTempo_(clock) {}

void MetronomeCore::setSavedData(const Dictionary& data) {
    setup_.setSavedData(data);
}

void MetronomeCore::setSettingsFromDictionary(const Dictionary& preset) {
    if (preset.empty())
        return;
    setup_.setSavedData(preset);
    restartMetronome();
}

bool MetronomeCore::plus() {
    const auto row = rowAfterPlus(setup_.BPM);
    if (!row)
        return false;
    setup_.BPM = *row;
    restartMetronome();
    return true;
}

void MetronomeCore::minus() {
    setup_.BPM = rowAfterMinus(setup_.BPM);
    restartMetronome();
}

bool MetronomeCore::selectRow(int row) {
    if (!isWheelRow(row))
        return false;
    setup_.BPM = row;
    restartMetronome();
    return true;
}

bool MetronomeCore::setTimeSig1Value(int numerator) {
    if (!setup_.setTimeSig1Value(numerator))
        return false;
    restartMetronome();
    return true;
}

bool MetronomeCore::setTimeSig2Value(int denominator) {
    if (!setup_.setTimeSig2Value(denominator))
        return false;
    restartMetronome();
    return true;
}

bool MetronomeCore::setNotesPerBeat(int pattern) {
    if (!setup_.setNotesPerBeat(pattern))
        return false;
    restartMetronome();
    return true;
}

void MetronomeCore::setCurrentPack(int packNumber) {
    setup_.setCurrentPack(packNumber);
    output_.setCurrentPack(setup_.packNumber);
}

void MetronomeCore::setIsFirstBeatNeed(bool need) {
    setup_.setIsFirstBeatNeed(need);
    output_.setIsFirstBeatNeed(need);
}

void MetronomeCore::setBeatKind(int beat, BeatKind kind) {
    setup_.setBeatKind(beat, kind);
    restartMetronome();
}

void MetronomeCore::setPractice(const PracticeSetup& practice) {
    setup_.practice = practice.normalized();
    setup_.practice.followFirstBeatAccent(setup_.isFirstBeatNeed);
    restartMetronome();
}

void MetronomeCore::startMetronome() {
    if (isPlaying_)
        return;
    startOutput();
    isPlaying_ = true;
}

void MetronomeCore::startOutput() {
    tapTempo_.setReadyForDblClick();
    char line[48];
    std::snprintf(line, sizeof line, "DURATION: %f", 60.0f / setup_.beatsPerMinute());
    log(line);
    output_.start(setup_);
}

void MetronomeCore::stopMetronome() {
    if (!isPlaying_)
        return;
    output_.stop();
    tapTempo_.cancelRearm();
    isPlaying_ = false;
}

void MetronomeCore::restartMetronome() {
    if (!isPlaying_)
        return;
    tapTempo_.cancelRearm();
    startOutput();
}

void MetronomeCore::endMetronome() {
    if (!isPlaying_)
        return;
    stopMetronome();
    isPaused_ = true;
}

void MetronomeCore::runMetronome() {
    if (!isPaused_)
        return;
    isPaused_ = false;
    startMetronome();
}

bool MetronomeCore::tap() {
    const auto row = tapTempo_.tap();
    if (!row)
        return false;
    setup_.BPM = *row;
    log("Selected ROW :" + std::to_string(*row));
    restartMetronome();
    tapTempo_.setReadyForDblClick();
    return true;
}

}  // namespace zt
