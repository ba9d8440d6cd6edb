#pragma once
// Usage events, kept in a local log file only; nothing leaves the machine.
// One line per event: ISO time, category, action, label, value, tab-separated.
//
// Lines are written by a thread of the log's own, so a slow disk never holds
// up the window. The file is opened without blocking and used only when it
// is a regular file (a pipe put in its place would stall a writer or fill
// up); it is rotated to "<file>.1" before it passes kMaxBytes, so the two
// together stay under a megabyte.

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <mutex>
#include <string>
#include <thread>

namespace zt {

class AnalyticsLog {
public:
    static constexpr std::uintmax_t kMaxBytes = 500 * 1024;

    AnalyticsLog() = default;
    ~AnalyticsLog();
    AnalyticsLog(const AnalyticsLog&) = delete;
    AnalyticsLog& operator=(const AnalyticsLog&) = delete;

    // Events go to `file`; the dispatch period is kept for the record only.
    void start(const std::filesystem::path& file, int dispatchPeriodSeconds);
    // Queues the event. False when not started, or when the last write
    // failed (the file cannot be opened, or is not a regular file).
    bool trackEvent(const std::string& category, const std::string& action,
                    const std::string& label, int value);
    // Waits until every queued event has been written or given up.
    void flush();
    // Writes what is queued and ends the writer.
    void stop();
    bool running() const { return running_; }
    const std::filesystem::path& file() const { return file_; }

private:
    void writeQueued();
    void writeLine(const std::string& line);

    std::filesystem::path file_;
    bool running_ = false;
    std::thread writer_;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::condition_variable drained_;
    std::deque<std::string> queue_;
    bool writing_ = false;
    bool stopping_ = false;
    std::atomic<bool> failed_{false};
    // The writer's own.
    int fd_ = -1;
    std::uintmax_t size_ = 0;
};

}  // namespace zt
