#pragma once
// A sound engine whose output goes to a WAV file for the length of a test.

#include <chrono>
#include <memory>

#include "sound/AudioAnalysis.h"
#include "sound/SoundEngine.h"
#include "sound/WaveOutput.h"

namespace zt::testing {

class EngineRecorder {
public:
    EngineRecorder();

    SoundEngine& engine() { return *engine_; }
    // Closes the engine and returns everything it played.
    Recording finish();
    // Waits until the engine's loading is done; false on timeout.
    bool waitLoaded(std::chrono::milliseconds timeout = std::chrono::seconds(5));

private:
    WaveOutput output_;
    std::unique_ptr<SoundEngine> engine_;
};

}  // namespace zt::testing
