#include "sound/EngineRecorder.h"

#include <thread>

namespace zt::testing {

EngineRecorder::EngineRecorder()
    : output_("sound-engine"), engine_(std::make_unique<SoundEngine>()) {}

Recording EngineRecorder::finish() {
    engine_.reset();
    return readSound(output_.file());
}

bool EngineRecorder::waitLoaded(std::chrono::milliseconds timeout) {
    const auto end = std::chrono::steady_clock::now() + timeout;
    while (engine_->loadProgress() < 1.0f) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

}  // namespace zt::testing
