#pragma once
// Whole-file reads and crash-safe writes for the user's data files. A write
// goes to a temporary file in the same folder, is flushed to the disk and then
// renamed over the target, so the target is always either the old or the new
// content, never a torn mix.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zt::file {

enum class ReadStatus {
    Ok,
    Missing,     // nothing at the path (or its folder is missing)
    Unreadable,  // it exists but could not be read (permissions, I/O, too large)
};

struct ReadResult {
    ReadStatus status = ReadStatus::Missing;
    std::string bytes;
};

// Reads the whole file. Files above maxBytes count as unreadable.
ReadResult readAll(const std::filesystem::path& path, std::size_t maxBytes = 16u << 20);

// Replaces path with bytes atomically, keeping the old file's permissions
// (0644 for a new file). Returns false, with a log line, when anything fails;
// the old file is then untouched and no temporary file is left behind.
bool writeAtomically(const std::filesystem::path& path, std::string_view bytes);

// Moves a damaged file out of the way without deleting it: renames it to
// "<path>.<tag>", or "<path>.<tag>.1", ".2", ... when that name is taken.
// Returns the new path, or nullopt (with a log line) when the rename failed.
std::optional<std::filesystem::path> keepAside(const std::filesystem::path& path,
                                               std::string_view tag = "corrupt");

// Creates the folder and its parents when missing; false when it cannot exist.
bool ensureDirectory(const std::filesystem::path& dir);

}  // namespace zt::file
