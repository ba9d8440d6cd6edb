#include "sound/OpenAlSettings.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <mutex>
#include <string>

#include "framework/Log.h"

namespace zt {

namespace {

constexpr char kSettings[] =
    "# Written by the app for openal-soft; read after the user's own files.\n"
    "[pulse]\n"
    "allow-moves = true\n";

}  // namespace

void applyOpenAlSettings() {
    static std::once_flag once;
    std::call_once(once, [] {
        if (const char* own = std::getenv("ALSOFT_CONF"); own && *own)
            return;
        // openal-soft reads ALSOFT_CONF with fopen(); a file in memory, open
        // for the life of the process, needs no folder and leaves nothing
        // behind.
        int fd = ::memfd_create("zebtools-alsoft.conf", MFD_CLOEXEC);
        // Never in the place of a closed standard stream: what the program
        // writes there would go into the file, and a closed output would go
        // unnoticed.
        if (fd >= 0 && fd <= STDERR_FILENO) {
            const int high = ::fcntl(fd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
            ::close(fd);
            fd = high;
        }
        if (fd < 0) {
            log("SoundEngine: openal-soft keeps its own settings (no memory file)");
            return;
        }
        const auto size = static_cast<ssize_t>(sizeof kSettings - 1);
        if (::write(fd, kSettings, sizeof kSettings - 1) != size) {
            ::close(fd);
            log("SoundEngine: openal-soft keeps its own settings (cannot write them)");
            return;
        }
        ::setenv("ALSOFT_CONF", ("/proc/self/fd/" + std::to_string(fd)).c_str(), 1);
    });
}

}  // namespace zt
