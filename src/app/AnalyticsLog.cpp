#include "app/AnalyticsLog.h"

#include <chrono>
#include <ctime>
#include <fstream>

namespace zt {

void AnalyticsLog::start(const std::filesystem::path& file, int) {
    file_ = file;
    running_ = true;
}

bool AnalyticsLog::trackEvent(const std::string& category, const std::string& action,
                              const std::string& label, int value) {
    if (!running_)
        return false;
    std::error_code ec;
    std::filesystem::create_directories(file_.parent_path(), ec);
    std::ofstream out(file_, std::ios::app);
    if (!out)
        return false;
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%Y-%m-%dT%H:%M:%SZ", std::gmtime(&now));
    out << stamp << '\t' << category << '\t' << action << '\t' << label << '\t' << value << '\n';
    return static_cast<bool>(out.flush());
}

void AnalyticsLog::stop() {
    running_ = false;
}

}  // namespace zt
