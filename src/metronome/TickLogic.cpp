#include "metronome/TickLogic.h"

namespace zt {

void TickLogic::start(const MetronomeSetup& setup) {
    const MetronomeSetup s = setup.normalized();
    sounds_ = clickSoundsForPack(s.packNumber);
    timeSig1Value_ = s.timeSig1Value;
    isFirstBeatNeed_ = s.isFirstBeatNeed;
    practice_ = s.practice;
    barMuted_ = false;
    beatSounding_ = true;

    isRunningSubTimer_ = false;
    timerDirectionNeedStop_ = false;
    timerSubdivisionNeedStop_ = false;
    beatNumber_ = 1;

    const SubdivisionPattern pattern = subdivisionPattern(s.notesPerBeat);
    beatTimer_ = true;
    subdivisionTimer_ = pattern.hasSubdivision();
    subticksInBeatCount_ = pattern.slotsPerBeat;
    subtickMask_ = pattern.mask;
    currentSubtickIndex_ = 0;
}

void TickLogic::requestStop() {
    timerDirectionNeedStop_ = true;
    timerSubdivisionNeedStop_ = true;
}

void TickLogic::setCurrentPack(int packNumber) {
    sounds_ = clickSoundsForPack(packNumber);
}

void TickLogic::setIsFirstBeatNeed(bool need) {
    isFirstBeatNeed_ = need;
    practice_.followFirstBeatAccent(need);
}

void TickLogic::setBeats(const BeatKinds& beats) {
    practice_.beats = beats;
    practice_.followFirstBeatAccent(isFirstBeatNeed_);
}

TickLogic::Tick TickLogic::mainTick() {
    if (!beatTimer_)
        return {};
    if (timerDirectionNeedStop_) {
        beatTimer_ = false;
        if (subdivisionTimer_) {
            subdivisionTimer_ = false;
            return {0, 0, true};
        }
        // No subdivision: this beat still sounds, as the last one.
    }
    isRunningSubTimer_ = true;
    return {playBeat(), kBeatGroup, !isRunning(), true};
}

int TickLogic::playBeat() {
    const BeatKind kind = practice_.beatKind(beatNumber_, isFirstBeatNeed_);
    beatSounding_ = kind != BeatKind::Silent && !barMuted_;
    int id = beatSounding_ ? sounds_.tick : 0;
    if (beatSounding_ && kind == BeatKind::Accented && timeSig1Value_ != 1)
        id = sounds_.tock;
    if (beatNumber_ == timeSig1Value_) {
        beatNumber_ = 0;
    }
    if (timeSig1Value_ != 1) {
        ++beatNumber_;
    } else {
        beatNumber_ = 1;
    }
    return id;
}

void TickLogic::setCurrentSubtickIndex(int slot) {
    currentSubtickIndex_ = subticksInBeatCount_ > 0 ? slot % subticksInBeatCount_ : 0;
}

TickLogic::Tick TickLogic::subTick() {
    if (!subdivisionTimer_ || !isRunningSubTimer_)
        return {};
    if (timerSubdivisionNeedStop_) {
        subdivisionTimer_ = false;
        beatTimer_ = false;
        return {0, 0, true};
    }
    Tick tick;
    if (subtickMask_[currentSubtickIndex_] && beatSounding_)
        tick = {sounds_.subtick, kSubdivisionGroup, false};
    if (++currentSubtickIndex_ >= subticksInBeatCount_)
        currentSubtickIndex_ = 0;
    return tick;
}

}  // namespace zt
