#pragma once
// A MainLoop driven by its owner: timers fire when run*() is called and their
// time has come. Used by tests (with virtual time) and the command-line tool.

#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <vector>

#include "framework/MainLoop.h"

namespace zt {

class ManualLoop : public MainLoop {
public:
    using Clock = std::chrono::steady_clock;

    TimerId startTimer(std::chrono::milliseconds interval, bool repeat, Callback callback) override;
    void stopTimer(TimerId id) override;
    void post(Callback callback) override;

    // Runs posted callbacks and the timers due within the next `duration` of
    // virtual time, in time order, without sleeping.
    void advance(std::chrono::milliseconds duration);
    // Runs in real time until pred() holds or timeout passes; true if it held.
    bool runUntil(const std::function<bool()>& pred, std::chrono::milliseconds timeout);
    // Runs posted callbacks only.
    void drainPosted();

    size_t activeTimers() const { return timers_.size(); }

private:
    struct Timer {
        std::chrono::milliseconds interval;
        bool repeat;
        Callback callback;
        std::chrono::milliseconds due;
    };
    void fireDue();

    std::chrono::milliseconds now_{0};
    TimerId nextId_ = 1;
    std::map<TimerId, Timer> timers_;
    std::mutex postedMutex_;
    std::vector<Callback> posted_;
};

}  // namespace zt
