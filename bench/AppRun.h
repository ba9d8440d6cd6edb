#pragma once
// The application started without a display (offscreen, OpenAL's null
// output) in a child process, so that its peak memory is its own.

#include <filesystem>
#include <string>
#include <vector>

namespace zt::bench {

// `name` in the temporary folder, marked with this process's id so that
// runs side by side (two build trees) keep apart.
std::filesystem::path scratchPath(const std::string& name);

struct AppRun {
    bool exitedCleanly = false;  // status 0
    double markerSeconds = -1;   // from the start to the first line holding the marker
    double seconds = 0;          // from the start to its exit
    double peakMB = 0;           // largest resident set
};

// Runs `app` with `args` on the data folder `dataDir`, reading its standard
// output and error for `marker` (none when empty: the output is dropped).
AppRun runApp(const char* app, const std::vector<std::string>& args, const std::string& dataDir,
              const std::string& marker = {});

}  // namespace zt::bench
