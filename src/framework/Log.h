#pragma once
// The debug log: free-text diagnostic lines. They go to standard error and,
// when a sink is set (tests, the application's log view), to that sink too.

#include <functional>
#include <string>

namespace zt {

void log(const std::string& line);

// Replaces the extra sink; pass an empty function to remove it.
void setLogSink(std::function<void(const std::string&)> sink);
// Silences standard error output (the sink still receives lines).
void setLogQuiet(bool quiet);

}  // namespace zt
