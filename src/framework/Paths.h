#pragma once
// Where the program keeps the user's files and finds its own resources.
//
// Data folder (saved state, presets, event log): $ZEBTOOLS_DATA_DIR when set,
// else what setDataDir() was given (the application passes Qt's application
// data location), else $XDG_DATA_HOME/zebtools or ~/.local/share/zebtools,
// the home folder taken from the account when HOME is not set. Empty when
// there is no such place (never the root of the file system): nothing is
// saved then.
//
// Resource folder (sounds, default state): $ZEBTOOLS_RESOURCE_DIR when set,
// else share/zebtools beside the installed executable, else the source tree's
// data folder.

#include <filesystem>

namespace zt::paths {

std::filesystem::path dataDir();
void setDataDir(const std::filesystem::path& dir);

std::filesystem::path resourceDir();
std::filesystem::path resource(const std::filesystem::path& relative);

}  // namespace zt::paths
