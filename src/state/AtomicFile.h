#pragma once
// Whole-file reads and crash-safe writes for the user's files. A write goes
// to a temporary file in the target's folder, is flushed to the disk and then
// renamed over the target, so the target is always either the old or the new
// content, never a torn mix. For the user's own data folder a symbolic link
// at the target is followed: the file it points to is replaced and the link
// stays. A path named on a command line is never followed (Links::Replace):
// in a folder others can write to, such as /tmp, a link planted there would
// otherwise make the program replace a file of the link's choosing.

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

enum class Links { Follow, Replace };

// Replaces path with what write produces, atomically, keeping the old
// file's permissions (0666 less the umask for a new file). A file without
// write permission is not replaced ("the file is read-only"). Returns false,
// with why set and a log line, when anything fails; the old file is then
// untouched and no temporary file is left behind.
bool replaceFile(const std::filesystem::path& path, const Writer& write, Failure* why = nullptr,
                 Links links = Links::Follow);

// replaceFile with the given bytes.
bool writeAtomically(const std::filesystem::path& path, std::string_view bytes,
                     Failure* why = nullptr);

// The user's words for an errno value.
Failure describeError(int error);

// Removes temporary files of this user that an interrupted write of path
// left in its folder and that are older than minAge (a younger one may
// belong to a write in progress in another instance).
void removeStaleTemporaries(const std::filesystem::path& path,
                            std::filesystem::file_time_type::duration minAge,
                            Links links = Links::Follow);

// Moves a damaged file out of the way without deleting it: renames it to
// "<path>.<tag>", or "<path>.<tag>.1", ".2", ... when that name is taken.
// Returns the new path, or nullopt (with a log line) when the rename failed.
std::optional<std::filesystem::path> keepAside(const std::filesystem::path& path,
                                               std::string_view tag = "corrupt");

// What tells one state of the file at path from another (inode, size and
// time of the last change), "" when there is none: replaced or written by
// anyone, it differs.
std::string stampOf(const std::filesystem::path& path);

// Creates the folder and its parents when missing; false (with why set) when
// it cannot exist.
bool ensureDirectory(const std::filesystem::path& dir, Failure* why = nullptr);

}  // namespace zt::file
