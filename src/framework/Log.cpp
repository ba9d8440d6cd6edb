#include "framework/Log.h"

#include <cstdio>
#include <mutex>

namespace zt {

namespace {
std::mutex logMutex;
std::function<void(LogLevel, const std::string&)> logHandler;
std::function<void(const std::string&)> logSink;
bool logQuiet = false;

void write(LogLevel level, const std::string& line) {
    std::lock_guard lock(logMutex);
    if (!logQuiet) {
        if (logHandler)
            logHandler(level, line);
        else
            std::fprintf(stderr, "zebtools: %s\n", line.c_str());
    }
    if (logSink)
        logSink(line);
}
}  // namespace

void log(const std::string& line) {
    write(LogLevel::Debug, line);
}

void warn(const std::string& line) {
    write(LogLevel::Warning, line);
}

void setLogHandler(std::function<void(LogLevel, const std::string&)> handler) {
    std::lock_guard lock(logMutex);
    logHandler = std::move(handler);
}

void setLogSink(std::function<void(const std::string&)> sink) {
    std::lock_guard lock(logMutex);
    logSink = std::move(sink);
}

void setLogQuiet(bool quiet) {
    std::lock_guard lock(logMutex);
    logQuiet = quiet;
}

}  // namespace zt
