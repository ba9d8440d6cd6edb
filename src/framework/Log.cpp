#include "framework/Log.h"

#include <cstdio>
#include <mutex>

namespace zt {

namespace {
std::mutex logMutex;
std::function<void(const std::string&)> logSink;
bool logQuiet = false;
}  // namespace

void log(const std::string& line) {
    std::lock_guard lock(logMutex);
    if (!logQuiet)
        std::fprintf(stderr, "zebtools: %s\n", line.c_str());
    if (logSink)
        logSink(line);
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
