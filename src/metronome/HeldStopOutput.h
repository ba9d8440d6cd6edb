#pragma once
// Sits between the metronome's controls and its output so that a pause that
// is taken back at once leaves the bar running. The application pauses the
// metronome when its window loses focus and resumes it straight after, in
// the same turn of the event loop; passed through, that pair would stop the
// bar and start a new one in the middle of a beat. Here the pause's stop is held until
// released, and a start of the same setup before that cancels both.
// Everything else passes straight through.

#include <optional>

#include "metronome/MetronomeOutput.h"

namespace zt {

class HeldStopOutput : public MetronomeOutput {
public:
    // The output must outlive the object.
    explicit HeldStopOutput(MetronomeOutput& output) : output_(output) {}

    // The next stop waits for releaseHeldStop().
    void holdNextStop() { holdNextStop_ = true; }
    // Sends a held stop on, if there is one.
    void releaseHeldStop();

    void start(const MetronomeSetup& setup) override;
    void stop() override;
    void setCurrentPack(int packNumber) override;
    void setIsFirstBeatNeed(bool need) override;
    std::optional<HeardBeat> takeHeardBeat() override { return output_.takeHeardBeat(); }
    bool releaseWhenSilent() override { return !stopHeld_ && output_.releaseWhenSilent(); }

private:
    MetronomeOutput& output_;
    // The setup of the run the output is playing, as last started and changed.
    std::optional<MetronomeSetup> running_;
    bool holdNextStop_ = false;
    bool stopHeld_ = false;
};

}  // namespace zt
