#include "framework/Paths.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <system_error>

#ifndef ZEBTOOLS_SOURCE_DATA_DIR
#define ZEBTOOLS_SOURCE_DATA_DIR "data"
#endif

namespace zt::paths {

namespace fs = std::filesystem;

namespace {
fs::path configuredDataDir;

fs::path fromEnv(const char* name) {
    const char* value = std::getenv(name);
    return (value && *value) ? fs::path(value) : fs::path();
}
// A home (or XDG_DATA_HOME) folder worth keeping files under: absolute, and not the root of the
// file system (what some environments give an account without a home).
fs::path usableHome(const fs::path& home) {
    return home.is_absolute() && home != home.root_path() ? home : fs::path();
}
}  // namespace

fs::path dataDir() {
    if (auto env = fromEnv("ZEBTOOLS_DATA_DIR"); !env.empty())
        return env;
    if (!configuredDataDir.empty())
        return configuredDataDir;
    if (auto xdg = usableHome(fromEnv("XDG_DATA_HOME")); !xdg.empty())
        return xdg / "zebtools";
    if (auto home = usableHome(fromEnv("HOME")); !home.empty())
        return home / ".local/share/zebtools";
    // No HOME (a service, a bare shell): the account's home folder.
    const passwd* account = ::getpwuid(::getuid());
    if (auto home = usableHome(account && account->pw_dir ? account->pw_dir : ""); !home.empty())
        return home / ".local/share/zebtools";
    return {};
}

void setDataDir(const fs::path& dir) {
    configuredDataDir = dir;
}

void moveOldDataFolder() {
    const fs::path dir = dataDir();
    if (dir.empty())
        return;
    const fs::path old = dir / "zebtools";
    std::error_code ec;
    if (!fs::is_directory(fs::symlink_status(old, ec)))
        return;
    for (auto it = fs::directory_iterator(old, ec); !ec && it != fs::directory_iterator();
         it.increment(ec)) {
        const fs::path moved = dir / it->path().filename();
        std::error_code taken;
        if (fs::symlink_status(moved, taken).type() == fs::file_type::not_found) {
            std::error_code renamed;
            fs::rename(it->path(), moved, renamed);
        }
    }
    fs::remove(old, ec);  // only when empty
}

fs::path resourceDir() {
    if (auto env = fromEnv("ZEBTOOLS_RESOURCE_DIR"); !env.empty())
        return env;
    std::error_code ec;
    const fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    if (!ec) {
        const fs::path installed = exe.parent_path().parent_path() / "share/zebtools";
        if (fs::exists(installed / "saveState.plist", ec))
            return installed;
    }
    return fs::path(ZEBTOOLS_SOURCE_DATA_DIR);
}

fs::path resource(const fs::path& relative) {
    return resourceDir() / relative;
}

}  // namespace zt::paths
