#pragma once
// The debug log: free-text lines. log() is for diagnostics, what the program
// is doing; warn() for problems a user should hear of (a damaged file, no
// audio device). Lines go to standard error unless a handler takes them (the
// application sends them to its logging category), and to the extra sink
// when one is set (tests).

#include <functional>
#include <string>

namespace zt {

enum class LogLevel { Debug, Warning };

void log(const std::string& line);
void warn(const std::string& line);

// Replaces standard error as the place lines go; an empty function restores it.
void setLogHandler(std::function<void(LogLevel, const std::string&)> handler);
// Replaces the extra sink; pass an empty function to remove it.
void setLogSink(std::function<void(const std::string&)> sink);
// Silences the handler (or standard error); the sink still receives lines.
void setLogQuiet(bool quiet);

}  // namespace zt
