#include "framework/ManualLoop.h"

#include <thread>

namespace zt {

namespace {
MainLoop* installed = nullptr;
}  // namespace

MainLoop& MainLoop::instance() {
    static ManualLoop fallback;
    return installed ? *installed : fallback;
}

void MainLoop::install(MainLoop* loop) {
    installed = loop;
}

MainLoop::TimerId ManualLoop::startTimer(std::chrono::milliseconds interval, bool repeat,
                                         Callback callback) {
    const TimerId id = nextId_++;
    timers_[id] = Timer{interval, repeat, std::move(callback), now_ + interval};
    return id;
}

void ManualLoop::stopTimer(TimerId id) {
    timers_.erase(id);
}

void ManualLoop::post(Callback callback) {
    std::lock_guard lock(postedMutex_);
    posted_.push_back(std::move(callback));
}

void ManualLoop::drainPosted() {
    std::vector<Callback> batch;
    {
        std::lock_guard lock(postedMutex_);
        batch.swap(posted_);
    }
    for (auto& callback : batch)
        callback();
}

void ManualLoop::fireDue() {
    for (;;) {
        auto next = timers_.end();
        for (auto it = timers_.begin(); it != timers_.end(); ++it) {
            if (it->second.due <= now_ &&
                (next == timers_.end() || it->second.due < next->second.due)) {
                next = it;
            }
        }
        if (next == timers_.end())
            return;
        const TimerId id = next->first;
        Callback callback = next->second.callback;
        if (next->second.repeat) {
            next->second.due += std::max(next->second.interval, std::chrono::milliseconds(1));
        } else {
            timers_.erase(next);
        }
        callback();
        (void)id;
    }
}

void ManualLoop::advance(std::chrono::milliseconds duration) {
    const auto end = now_ + duration;
    drainPosted();
    for (;;) {
        std::chrono::milliseconds nextDue = end;
        for (const auto& [id, timer] : timers_)
            nextDue = std::min(nextDue, timer.due);
        now_ = std::max(now_, nextDue);
        fireDue();
        drainPosted();
        if (now_ >= end)
            return;
    }
}

bool ManualLoop::runUntil(const std::function<bool()>& pred, std::chrono::milliseconds timeout) {
    const auto start = Clock::now();
    const auto step = std::chrono::milliseconds(5);
    while (!pred()) {
        if (Clock::now() - start > timeout)
            return false;
        std::this_thread::sleep_for(step);
        advance(step);
    }
    return true;
}

}  // namespace zt
