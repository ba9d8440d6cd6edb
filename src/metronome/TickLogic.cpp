#include "metronome/TickLogic.h"

namespace zt {

void TickLogic::start(const MetronomeSetup& setup) {
    const MetronomeSetup s = setup.normalized();
    sounds_ = clickSoundsForPack(s.packNumber);
    timeSig1Value_ = s.timeSig1Value;
    isFirstBeatNeed_ = s.isFirstBeatNeed;

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
    return {playBeat(), kBeatGroup, !isRunning()};
}

int TickLogic::playBeat() {
    int id = sounds_.tick;
    if (beatNumber_ == 1) {
        if (isFirstBeatNeed_ && timeSig1Value_ != 1)
            id = sounds_.tock;
    } else if (beatNumber_ == timeSig1Value_) {
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
    if (subtickMask_[currentSubtickIndex_])
        tick = {sounds_.subtick, kSubdivisionGroup, false};
    if (++currentSubtickIndex_ >= subticksInBeatCount_)
        currentSubtickIndex_ = 0;
    return tick;
}

}  // namespace zt
