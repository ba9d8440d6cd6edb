#include "metronome/HeldStopOutput.h"

namespace zt {

void HeldStopOutput::releaseHeldStop() {
    if (!stopHeld_)
        return;
    stopHeld_ = false;
    running_.reset();
    output_.stop();
}

void HeldStopOutput::start(const MetronomeSetup& setup) {
    holdNextStop_ = false;
    if (stopHeld_ && running_ == setup) {
        // The resume of a pause not yet carried out: the run goes on.
        stopHeld_ = false;
        return;
    }
    releaseHeldStop();
    running_ = setup;
    output_.start(setup);
}

void HeldStopOutput::stop() {
    if (holdNextStop_ && running_) {
        holdNextStop_ = false;
        stopHeld_ = true;
        return;
    }
    holdNextStop_ = false;
    if (stopHeld_) {
        releaseHeldStop();
        return;
    }
    running_.reset();
    output_.stop();
}

void HeldStopOutput::setCurrentPack(int packNumber) {
    if (running_)
        running_->setCurrentPack(packNumber);
    output_.setCurrentPack(packNumber);
}

void HeldStopOutput::setIsFirstBeatNeed(bool need) {
    if (running_)
        running_->isFirstBeatNeed = need;
    output_.setIsFirstBeatNeed(need);
}

}  // namespace zt
