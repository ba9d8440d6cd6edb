#include "app/AnalyticsLog.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <ctime>

namespace zt {

namespace {

// The log opened for appending, or -1 when it cannot be or is not a regular
// file. O_NONBLOCK keeps a pipe without a reader from blocking the open.
int openRegular(const std::filesystem::path& file, std::uintmax_t& size) {
    const int fd = ::open(file.c_str(),
                          O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
    struct stat st {};
    if (fd >= 0 && (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode))) {
        ::close(fd);
        return -1;
    }
    size = fd >= 0 ? static_cast<std::uintmax_t>(st.st_size) : 0;
    return fd;
}

bool writeAll(int fd, const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += static_cast<std::size_t>(n);
    }
    return true;
}

}  // namespace

AnalyticsLog::~AnalyticsLog() {
    stop();
}

void AnalyticsLog::start(const std::filesystem::path& file, int) {
    stop();
    file_ = file;
    failed_ = false;
    stopping_ = false;
    running_ = true;
    writer_ = std::thread([this] { writeQueued(); });
}

bool AnalyticsLog::trackEvent(const std::string& category, const std::string& action,
                              const std::string& label, int value) {
    if (!running_)
        return false;
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm utc{};
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%Y-%m-%dT%H:%M:%SZ", ::gmtime_r(&now, &utc));
    std::string line = std::string(stamp) + '\t' + category + '\t' + action + '\t' + label + '\t' +
                       std::to_string(value) + '\n';
    {
        const std::lock_guard lock(mutex_);
        queue_.push_back(std::move(line));
    }
    wake_.notify_one();
    return !failed_;
}

void AnalyticsLog::flush() {
    std::unique_lock lock(mutex_);
    drained_.wait(lock, [this] { return (queue_.empty() && !writing_) || !writer_.joinable(); });
}

void AnalyticsLog::stop() {
    if (!writer_.joinable())
        return;
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    wake_.notify_one();
    writer_.join();
    running_ = false;
    drained_.notify_all();
}

void AnalyticsLog::writeQueued() {
    std::unique_lock lock(mutex_);
    for (;;) {
        wake_.wait(lock, [this] { return stopping_ || !queue_.empty(); });
        while (!queue_.empty()) {
            const std::string line = std::move(queue_.front());
            queue_.pop_front();
            writing_ = true;
            lock.unlock();
            writeLine(line);
            lock.lock();
            writing_ = false;
        }
        drained_.notify_all();
        if (stopping_)
            break;
    }
    if (fd_ >= 0)
        ::close(fd_);
    fd_ = -1;
}

void AnalyticsLog::writeLine(const std::string& line) {
    std::error_code ec;
    if (fd_ < 0) {
        std::filesystem::create_directories(file_.parent_path(), ec);
        fd_ = openRegular(file_, size_);
    }
    if (fd_ >= 0 && size_ + line.size() > kMaxBytes) {
        ::close(fd_);
        std::filesystem::rename(file_, file_.string() + ".1", ec);
        fd_ = openRegular(file_, size_);
    }
    const bool written = fd_ >= 0 && writeAll(fd_, line);
    if (written)
        size_ += line.size();
    failed_ = !written;
}

}  // namespace zt
