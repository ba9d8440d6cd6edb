#pragma once
// Timers and hand-over to the main thread, for the plain C++ layers that have
// no event loop of their own. The application installs one over Qt's event
// loop; tests and the command-line tool use ManualLoop.

#include <chrono>
#include <functional>

namespace zt {

class MainLoop {
public:
    using TimerId = int;
    using Callback = std::function<void()>;

    virtual ~MainLoop() = default;

    // Runs callback on the main thread after interval, again every interval
    // when repeat is set, until stopTimer. Main thread only.
    virtual TimerId startTimer(std::chrono::milliseconds interval, bool repeat,
                               Callback callback) = 0;
    virtual void stopTimer(TimerId id) = 0;
    // Queues callback to run on the main thread. Safe from any thread.
    virtual void post(Callback callback) = 0;

    // The installed loop; a process-wide ManualLoop when none was installed.
    static MainLoop& instance();
    static void install(MainLoop* loop);
};

}  // namespace zt
