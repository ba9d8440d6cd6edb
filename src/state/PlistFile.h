#pragma once
// Property-list files of the user's data folder: the saved state and the
// metronome presets. Reading tells a missing file from an unreadable one and
// from one whose content is damaged; loadWithDefault turns all three into a
// usable root without ever deleting what the user had.

#include <filesystem>
#include <string>

#include "framework/Value.h"

namespace zt::plist {

enum class RootKind { Dictionary, Array };

enum class FileStatus {
    Ok,
    Missing,
    Unreadable,  // exists, but could not be read; left alone
    Corrupt,     // read, but not a property list with the expected root
};

struct FileContent {
    FileStatus status = FileStatus::Missing;
    Value root;  // set when status is Ok
};

FileContent readFile(const std::filesystem::path& path, RootKind kind);

// Writes root as XML, atomically (see file::writeAtomically).
bool writeFile(const std::filesystem::path& path, const Value& root);

struct Loaded {
    Value root;
    // False when the file could not be used and root is the default content;
    // callers must not write such a root back over the file.
    bool fromFile = false;
};

// Reads path as a property list of the given root kind. A missing file is
// created from defaultXml. A damaged one is renamed to "<path>.corrupt" (see
// file::keepAside), with a warning in the log, and defaultXml put in its
// place. When the file cannot be read or replaced, the parsed defaultXml is
// returned with fromFile false (or a null root if defaultXml is no good
// either).
Loaded loadWithDefault(const std::filesystem::path& path, RootKind kind,
                       const std::string& defaultXml);

}  // namespace zt::plist
