// The engine's watch over its output device: a device that goes away is
// replaced by the default one as soon as the system has one again.

#include <chrono>

#include "framework/Log.h"
#include "sound/AlContext.h"
#include "sound/SoundEngine.h"

namespace zt {

namespace {
// How often a playing device is asked whether it is still there, and how
// often a new one is tried while there is none: together well under the
// two seconds after which a returning device should be heard.
constexpr auto kLook = std::chrono::milliseconds(250);
constexpr auto kRetry = std::chrono::milliseconds(250);
}  // namespace

void SoundEngine::watchLoop() {
    bool lost = false;
    std::unique_lock guard(watchMutex_);
    while (!watchWake_.wait_for(guard, lost ? kRetry : kLook, [this] { return watchQuit_; })) {
        guard.unlock();
        bool playing = false;
        {
            auto alLock = al_->lock();
            playing = al_->connected();
        }
        if (!playing) {
            if (!lost)
                log("SoundEngine: the output device has gone; waiting for one to come back");
            lost = true;
            if (auto alLock = al_->reopen(); alLock.owns_lock()) {
                rebuild();
                lost = false;
                log("SoundEngine: output is back");
            }
        }
        guard.lock();
    }
}

void SoundEngine::stopWatching() {
    {
        std::lock_guard guard(watchMutex_);
        watchQuit_ = true;
    }
    watchWake_.notify_all();
    if (watcher_.joinable())
        watcher_.join();
}

void SoundEngine::rebuild() {
    // The buffers' names went with the old device; each is made again from
    // its samples when it is next played.
    for (auto& [id, sound] : sounds_)
        sound.buffer = 0;
    // The sources went with the old device; sounds started on them are over.
    groups_.clear();
    makeGroups(groupSizes_);
}

}  // namespace zt
