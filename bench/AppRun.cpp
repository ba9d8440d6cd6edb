#include "AppRun.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace zt::bench {

std::filesystem::path scratchPath(const std::string& name) {
    return std::filesystem::temp_directory_path() / (name + "-" + std::to_string(::getpid()));
}

AppRun runApp(const char* app, const std::vector<std::string>& args, const std::string& dataDir,
              const std::string& marker) {
    std::vector<char*> argv{const_cast<char*>(app)};
    for (const auto& arg : args)
        argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);
    int output[2];
    if (::pipe(output) != 0)
        return {};

    AppRun run;
    const auto start = std::chrono::steady_clock::now();
    const auto elapsed = [&start] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    const pid_t child = ::fork();
    if (child == 0) {
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        ::setenv("ALSOFT_DRIVERS", "null", 1);
        ::setenv("ZEBTOOLS_DATA_DIR", dataDir.c_str(), 1);
        const int sink = marker.empty() ? ::open("/dev/null", O_WRONLY) : output[1];
        ::dup2(sink, STDOUT_FILENO);
        ::dup2(sink, STDERR_FILENO);
        if (sink != output[1])
            ::close(sink);
        ::close(output[0]);
        ::close(output[1]);
        ::execv(app, argv.data());
        ::_exit(127);
    }
    ::close(output[1]);
    if (child < 0) {
        ::close(output[0]);
        return {};
    }
    // Read to the end, so that the child never waits on a full pipe.
    if (FILE* lines = ::fdopen(output[0], "r")) {
        char line[1024];
        while (std::fgets(line, sizeof line, lines)) {
            if (run.markerSeconds < 0 && !marker.empty() &&
                std::string(line).find(marker) != std::string::npos)
                run.markerSeconds = elapsed();
        }
        std::fclose(lines);
    } else {
        ::close(output[0]);
    }
    int status = 0;
    rusage usage{};
    if (::wait4(child, &status, 0, &usage) != child)
        return run;
    run.seconds = elapsed();
    run.exitedCleanly = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    run.peakMB = static_cast<double>(usage.ru_maxrss) / 1024.0;  // KiB on Linux
    return run;
}

}  // namespace zt::bench
