#pragma once
// Usage events, kept in a local log file only; nothing leaves the machine.
// One line per event: ISO time, category, action, label, value, tab-separated.

#include <filesystem>
#include <string>

namespace zt {

class AnalyticsLog {
public:
    // Events go to `file`; the dispatch period is kept for the record only.
    void start(const std::filesystem::path& file, int dispatchPeriodSeconds);
    // False when the event could not be written (not started, or I/O error).
    bool trackEvent(const std::string& category, const std::string& action,
                    const std::string& label, int value);
    void stop();
    bool running() const { return running_; }
    const std::filesystem::path& file() const { return file_; }

private:
    std::filesystem::path file_;
    bool running_ = false;
};

}  // namespace zt
