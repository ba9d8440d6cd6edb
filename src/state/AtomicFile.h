#pragma once
// Whole-file reads and crash-safe writes for the user's files. A write goes
// to a temporary file in the target's folder, is flushed to the disk and then
// renamed over the target, so the target is always either the old or the new
// content, never a torn mix. When the target is a symbolic link the write
// goes through it: the file it points to is replaced and the link stays.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zt::file {

enum class ReadStatus {
    Ok,
    Missing,     // nothing at the path (or its folder is missing)
    Unreadable,  // it exists but could not be read (permissions, I/O)
    TooLarge,    // larger than the reader accepts; not read
};

struct ReadResult {
    ReadStatus status = ReadStatus::Missing;
    std::string bytes;
};

// Reads the whole file. Files above maxBytes are not read (TooLarge).
ReadResult readAll(const std::filesystem::path& path, std::size_t maxBytes = 16u << 20);

// Why a write failed, in words a user understands ("the disk is full").
using Failure = std::string;

// Writes a complete new file at temp (a fresh, empty file beside the
// target); returns false, with why set, when it could not.
using Writer = std::function<bool(const std::filesystem::path& temp, Failure& why)>;

// Replaces path with what write produces, atomically, keeping the old
// file's permissions (0644 for a new file). Returns false, with why set and
// a log line, when anything fails; the old file is then untouched and no
// temporary file is left behind.
bool replaceFile(const std::filesystem::path& path, const Writer& write, Failure* why = nullptr);

// replaceFile with the given bytes.
bool writeAtomically(const std::filesystem::path& path, std::string_view bytes,
                     Failure* why = nullptr);

// The user's words for an errno value.
Failure describeError(int error);

// Removes temporary files that an interrupted write of path left in its
// folder and that are older than minAge (a younger one may belong to a write
// in progress in another instance).
void removeStaleTemporaries(const std::filesystem::path& path,
                            std::filesystem::file_time_type::duration minAge);

// Moves a damaged file out of the way without deleting it: renames it to
// "<path>.<tag>", or "<path>.<tag>.1", ".2", ... when that name is taken.
// Returns the new path, or nullopt (with a log line) when the rename failed.
std::optional<std::filesystem::path> keepAside(const std::filesystem::path& path,
                                               std::string_view tag = "corrupt");

// Creates the folder and its parents when missing; false (with why set) when
// it cannot exist.
bool ensureDirectory(const std::filesystem::path& dir, Failure* why = nullptr);

}  // namespace zt::file
