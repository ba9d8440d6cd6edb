#include "state/PlistFile.h"

#include "framework/Log.h"
#include "state/AtomicFile.h"
#include "state/PlistCodec.h"

namespace zt::plist {

namespace fs = std::filesystem;

namespace {

bool hasKind(const Value& v, RootKind kind) {
    return kind == RootKind::Dictionary ? v.isDictionary() : v.isArray();
}

Value parseDefault(const std::string& defaultXml, RootKind kind) {
    auto parsed = parse(defaultXml);
    if (parsed && hasKind(*parsed, kind))
        return std::move(*parsed);
    log("the default content of a property-list file is not usable");
    return Value();
}

}  // namespace

FileContent readFile(const fs::path& path, RootKind kind) {
    const auto read = file::readAll(path);
    switch (read.status) {
        case file::ReadStatus::Missing:
            return {FileStatus::Missing, {}};
        case file::ReadStatus::Unreadable:
            return {FileStatus::Unreadable, {}};
        case file::ReadStatus::Ok:
            break;
    }
    auto parsed = parse(read.bytes);
    if (!parsed || !hasKind(*parsed, kind))
        return {FileStatus::Corrupt, {}};
    return {FileStatus::Ok, std::move(*parsed)};
}

bool writeFile(const fs::path& path, const Value& root) {
    return file::writeAtomically(path, toXml(root));
}

Loaded loadWithDefault(const fs::path& path, RootKind kind, const std::string& defaultXml) {
    auto content = readFile(path, kind);
    if (content.status == FileStatus::Ok)
        return {std::move(content.root), true};
    if (content.status == FileStatus::Unreadable) {
        warn("using default values: " + path.string() + " cannot be read");
        return {parseDefault(defaultXml, kind), false};
    }
    if (content.status == FileStatus::Corrupt) {
        const auto aside = file::keepAside(path);
        if (!aside) {
            warn("warning: " + path.string() +
                 " is damaged and could not be moved aside; using default values");
            return {parseDefault(defaultXml, kind), false};
        }
        warn("warning: " + path.string() + " is damaged; kept as " + aside->string() +
             " and replaced by the defaults");
    }
    Value fallback = parseDefault(defaultXml, kind);
    if (fallback.isNull())
        return {};
    const bool written = file::ensureDirectory(path.has_parent_path() ? path.parent_path() : ".") &&
                         file::writeAtomically(path, defaultXml);
    if (!written)
        return {std::move(fallback), false};
    return {std::move(fallback), true};
}

}  // namespace zt::plist
