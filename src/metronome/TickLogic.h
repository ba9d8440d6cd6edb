#pragma once
// What happens at each beat and subdivision instant: which click sounds, where
// the bar stands, and how a stop request ends the run. It knows nothing of
// time; the scheduler calls mainTick() at every beat instant and subTick() at
// every subdivision instant (beat first when both fall on the same sample).
//
// Accents: a run starts on the first beat of a bar, so its very first beat is
// the accented one (when the accent is on), and so is every bar start after
// it. A numerator of 1 never accents. Each beat plays as its kind says
// (PracticeSetup); a silent beat, or any beat of a muted bar, counts but makes
// no sound, and neither do the subdivisions within it.
//
// Stopping: requestStop() raises both stop requests. With a subdivision, the
// next instant of either kind ends the run silently. Without one, the next
// beat still sounds, as one last beat, and then the run ends.

#include <array>

#include "metronome/ClickSounds.h"
#include "metronome/MetronomeSetup.h"
#include "metronome/SubdivisionPattern.h"

namespace zt {

class TickLogic {
public:
    // The outcome of one instant: a click to start (soundId 0 for none) and
    // whether the run has ended with it.
    struct Tick {
        int soundId = 0;
        int group = 0;
        bool runEnded = false;
        // A beat of the bar went by, sounding or not.
        bool counted = false;
    };

    // Begins a run: bar position 1, subdivision pattern set up at slot 0, no
    // stop requested.
    void start(const MetronomeSetup& setup);
    void requestStop();

    // Takes effect at the next tick, without restarting the bar.
    void setCurrentPack(int packNumber);
    void setIsFirstBeatNeed(bool need);
    void setBeats(const BeatKinds& beats);
    // Whether the bar the next beat belongs to is muted.
    void setBarMuted(bool muted) { barMuted_ = muted; }

    Tick mainTick();
    Tick subTick();
    // The slot the next subTick() stands on: after a change of tempo the
    // scheduler resumes the subdivision part-way through a beat.
    void setCurrentSubtickIndex(int slot);

    // True from start() until an instant ends the run.
    bool isRunning() const { return beatTimer_ || subdivisionTimer_; }
    bool stopRequested() const { return timerDirectionNeedStop_; }
    int beatNumber() const { return beatNumber_; }
    int subticksInBeatCount() const { return subticksInBeatCount_; }
    int currentSubtickIndex() const { return currentSubtickIndex_; }
    const ClickSounds& sounds() const { return sounds_; }

private:
    int playBeat();

    ClickSounds sounds_;
    int timeSig1Value_ = 1;
    bool isFirstBeatNeed_ = true;
    PracticeSetup practice_;
    bool barMuted_ = false;
    // Whether the latest beat sounded, and with it its subdivisions.
    bool beatSounding_ = true;

    int beatNumber_ = 1;
    bool isRunningSubTimer_ = false;
    bool timerDirectionNeedStop_ = false;
    bool timerSubdivisionNeedStop_ = false;
    // Whether each repeating instant stream is still live (the timers of a run).
    bool beatTimer_ = false;
    bool subdivisionTimer_ = false;

    int subticksInBeatCount_ = 0;
    int currentSubtickIndex_ = 0;
    std::array<bool, SubdivisionPattern::kMaxSlots> subtickMask_{};
};

}  // namespace zt
