#pragma once
// Property-list files of the user's data folder: the saved state and the
// metronome presets. Reading tells a missing file from an unreadable one and
// from one whose content is damaged; openFile turns all three into something
// the caller can act on without ever deleting what the user had.

#include <filesystem>
#include <string>

#include "framework/Value.h"
#include "state/AtomicFile.h"

namespace zt::plist {

enum class RootKind { Dictionary, Array };

enum class FileStatus {
    Ok,
    Missing,
    Unreadable,  // exists, but could not be read; left alone
    Corrupt,     // not a property list with the expected root, nested too
                 // deeply, or too large to be one of ours
};

struct FileContent {
    FileStatus status = FileStatus::Missing;
    Value root;  // set when status is Ok
};

FileContent readFile(const std::filesystem::path& path, RootKind kind);

// Writes root as XML, atomically (see file::replaceFile).
bool writeFile(const std::filesystem::path& path, const Value& root, file::Failure* why = nullptr);

struct Opened {
    enum class State {
        Read,     // root holds the file's content
        Missing,  // no file, or a damaged one now kept aside: start afresh
        Blocked,  // a file is there that cannot be used and must not be
                  // written over (unreadable, or damaged and stuck in place)
    };
    State state = State::Missing;
    Value root;
    file::Failure why;  // for Blocked: what is wrong, in the user's words
};

// Reads path as a property list of the given root kind. A damaged file is
// renamed to "<path>.corrupt" (see file::keepAside), with a warning in the
// log, and reported Missing.
Opened openFile(const std::filesystem::path& path, RootKind kind);

}  // namespace zt::plist
