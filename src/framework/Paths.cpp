#include "framework/Paths.h"

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
}  // namespace

fs::path dataDir() {
    if (auto env = fromEnv("ZEBTOOLS_DATA_DIR"); !env.empty())
        return env;
    if (!configuredDataDir.empty())
        return configuredDataDir;
    if (auto xdg = fromEnv("XDG_DATA_HOME"); !xdg.empty())
        return xdg / "zebtools";
    if (auto home = fromEnv("HOME"); !home.empty())
        return home / ".local/share/zebtools";
    return fs::temp_directory_path() / "zebtools";
}

void setDataDir(const fs::path& dir) {
    configuredDataDir = dir;
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
