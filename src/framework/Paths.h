#pragma once
// Where the program keeps the user's files and finds its own resources.
//
// Data folder (saved state, presets, event log): $ZEBTOOLS_DATA_DIR when set,
// else what setDataDir() was given (a fuzzer's scratch folder), else
// $XDG_DATA_HOME/zebtools, else ~/.local/share/zebtools. As the XDG rules
// say, an XDG_DATA_HOME that is not an absolute path is ignored; so are one
// and a HOME that are the root of the file system. Without HOME the home
// folder is the account's, so the folder is the same with or without it.
// Empty when there is no such place: nothing is saved then.
//
// Resource folder (sounds, default state): $ZEBTOOLS_RESOURCE_DIR when set,
// else share/zebtools beside the installed executable, else the source tree's
// data folder.

#include <filesystem>

namespace zt::paths {

std::filesystem::path dataDir();
void setDataDir(const std::filesystem::path& dir);

// Earlier versions kept their files one folder deeper, in the data folder's
// own "zebtools" folder. Moves each of them up into the data folder unless a
// file of that name is there already (then it stays where it is), and
// removes the old folder once empty.
void moveOldDataFolder();

std::filesystem::path resourceDir();
std::filesystem::path resource(const std::filesystem::path& relative);

}  // namespace zt::paths
