#include "state/PlistFile.h"

#include "framework/Log.h"
#include "state/PlistCodec.h"

namespace zt::plist {

namespace fs = std::filesystem;

namespace {

bool hasKind(const Value& v, RootKind kind) {
    return kind == RootKind::Dictionary ? v.isDictionary() : v.isArray();
}

}  // namespace

FileContent readFile(const fs::path& path, RootKind kind) {
    const auto read = file::readAll(path);
    switch (read.status) {
        case file::ReadStatus::Missing:
            return {FileStatus::Missing, {}};
        case file::ReadStatus::Unreadable:
            return {FileStatus::Unreadable, {}};
        case file::ReadStatus::TooLarge:
            return {FileStatus::Corrupt, {}};
        case file::ReadStatus::Ok:
            break;
    }
    auto parsed = parse(read.bytes);
    if (!parsed || !hasKind(*parsed, kind))
        return {FileStatus::Corrupt, {}};
    return {FileStatus::Ok, std::move(*parsed)};
}

bool writeFile(const fs::path& path, const Value& root, file::Failure* why) {
    return file::writeAtomically(path, toXml(root), why);
}

Opened openFile(const fs::path& path, RootKind kind) {
    auto content = readFile(path, kind);
    const std::string name = path.filename().string();
    switch (content.status) {
        case FileStatus::Ok:
            return {Opened::State::Read, std::move(content.root), {}};
        case FileStatus::Missing:
            return {};
        case FileStatus::Unreadable:
            warn("warning: " + path.string() + " cannot be read; it is left as it is");
            return {Opened::State::Blocked, {}, name + " cannot be read"};
        case FileStatus::Corrupt:
            break;
    }
    const auto aside = file::keepAside(path);
    if (!aside) {
        warn("warning: " + path.string() + " is damaged and could not be moved aside");
        return {Opened::State::Blocked, {}, name + " is damaged and cannot be replaced"};
    }
    warn("warning: " + path.string() + " is damaged; kept as " + aside->string() +
         " and started afresh");
    return {};
}

}  // namespace zt::plist
