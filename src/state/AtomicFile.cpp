#include "state/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <optional>
#include <system_error>

#include "framework/Log.h"

namespace zt::file {

namespace fs = std::filesystem;

namespace {

bool writeAll(int fd, std::string_view bytes) {
    const char* p = bytes.data();
    std::size_t left = bytes.size();
    while (left > 0) {
        const ssize_t n = ::write(fd, p, left);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        p += n;
        left -= static_cast<std::size_t>(n);
    }
    return true;
}

bool syncFile(const fs::path& path, Failure& why) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool ok = fd >= 0 && ::fsync(fd) == 0;
    if (!ok)
        why = describeError(errno);
    if (fd >= 0)
        ::close(fd);
    return ok;
}

// Makes the rename itself durable. Failure here only weakens the guarantee
// after a power cut, so it is not reported.
void syncDirectory(const fs::path& dir) {
    const int fd = ::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    ::fsync(fd);
    ::close(fd);
}

// The file a chain of symbolic links ends at (path itself when it is none),
// so that a write replaces the file the user linked to, not the link.
fs::path resolveLinks(fs::path path) {
    std::error_code ec;
    for (int hops = 0; hops < 40 && fs::is_symlink(path, ec); ++hops) {
        const fs::path target = fs::read_symlink(path, ec);
        if (ec)
            break;
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path;
}

fs::path folderOf(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

std::string temporaryPrefix(const fs::path& target) {
    return "." + target.filename().string() + ".";
}

// Whether name is one replaceFile gives its temporaries for target:
// mkostemp's, the prefix and six characters.
bool isTemporaryOf(const fs::path& target, const std::string& name) {
    const std::string prefix = temporaryPrefix(target);
    return name.size() == prefix.size() + 6 && name.compare(0, prefix.size(), prefix) == 0;
}

// The process's umask, read without changing it (umask() sets it, which
// would race with other threads creating files).
mode_t currentUmask() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("Umask:", 0) == 0)
            return static_cast<mode_t>(std::stoul(line.substr(6), nullptr, 8) & 0777);
    }
    return 022;
}

// The mode for the new file: the old one's, or what a plain create would
// give. Nullopt (why set) when the old file may not be written.
std::optional<mode_t> modeFor(const fs::path& target, Failure& why) {
    struct stat old {};
    if (::stat(target.c_str(), &old) != 0)
        return 0666 & ~currentUmask();
    // The bits first: the superuser may write anything, but a file marked
    // read-only is still not to be replaced.
    if (S_ISREG(old.st_mode) && (old.st_mode & 0222) == 0) {
        why = "the file is read-only";
        return std::nullopt;
    }
    if (S_ISREG(old.st_mode) && ::access(target.c_str(), W_OK) != 0) {
        why = errno == EACCES ? Failure("the file is read-only") : describeError(errno);
        return std::nullopt;
    }
    return old.st_mode & 07777;
}

}  // namespace

Failure describeError(int error) {
    switch (error) {
        case ENOSPC:
            return "the disk is full";
        case EDQUOT:
            return "the disk quota is used up";
        case EFBIG:
            return "the file is too large for the disk";
        case EROFS:
            return "the disk is read-only";
        case EACCES:
        case EPERM:
            return "the folder cannot be written to";
        case ENOENT:
        case ENOTDIR:
        case ENODEV:
        case ENXIO:
            return "the folder is not available";
        case EIO:
            return "the disk reported an error";
        default:
            return std::strerror(error);
    }
}

ReadResult readAll(const fs::path& path, std::size_t maxBytes) {
    std::error_code ec;
    const auto status = fs::status(path, ec);
    if (status.type() == fs::file_type::not_found)
        return {ReadStatus::Missing, {}};
    if (ec || !fs::is_regular_file(status)) {
        log("cannot read " + path.string() + ": not a readable file");
        return {ReadStatus::Unreadable, {}};
    }
    const auto size = fs::file_size(path, ec);
    if (ec) {
        log("cannot read " + path.string() + ": " + ec.message());
        return {ReadStatus::Unreadable, {}};
    }
    if (size > maxBytes) {
        log("not reading " + path.string() + ": larger than " + std::to_string(maxBytes) +
            " bytes");
        return {ReadStatus::TooLarge, {}};
    }
    std::ifstream in(path, std::ios::binary);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (!in || !in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
        log("cannot read " + path.string() + ": " + std::strerror(errno));
        return {ReadStatus::Unreadable, {}};
    }
    return {ReadStatus::Ok, std::move(bytes)};
}

bool replaceFile(const fs::path& path, const Writer& write, Failure* why, Links links) {
    const fs::path target = links == Links::Follow ? resolveLinks(path) : path;
    const fs::path dir = folderOf(target);
    std::string temp = (dir / (temporaryPrefix(target) + "XXXXXX")).string();
    Failure failure;
    bool ok = false;
    const auto mode = modeFor(target, failure);
    const int fd = mode ? ::mkostemp(temp.data(), O_CLOEXEC) : -1;
    if (fd < 0) {
        if (mode)
            failure = describeError(errno);
    } else {
        ::close(fd);
        // The mode is set once the content is in: a read-only one would
        // keep the writer out.
        ok = write(temp, failure) && syncFile(temp, failure);
        if (ok && ::chmod(temp.c_str(), *mode) != 0) {
            failure = describeError(errno);
            ok = false;
        }
        if (ok && ::rename(temp.c_str(), target.c_str()) != 0) {
            failure = describeError(errno);
            ok = false;
        }
        if (!ok)
            ::unlink(temp.c_str());
    }
    if (!ok) {
        log("cannot write " + path.string() + ": " + failure);
        if (why)
            *why = failure;
        return false;
    }
    syncDirectory(dir);
    return true;
}

bool writeAtomically(const fs::path& path, std::string_view bytes, Failure* why) {
    return replaceFile(
        path,
        [bytes](const fs::path& temp, Failure& failure) {
            const int fd = ::open(temp.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
            bool ok = fd >= 0 && writeAll(fd, bytes);
            if (!ok)
                failure = describeError(errno);
            if (fd >= 0 && ::close(fd) != 0 && ok) {
                failure = describeError(errno);
                ok = false;
            }
            return ok;
        },
        why);
}

void removeStaleTemporaries(const fs::path& path, fs::file_time_type::duration minAge,
                            Links links) {
    const fs::path target = links == Links::Follow ? resolveLinks(path) : path;
    const auto now = fs::file_time_type::clock::now();
    std::error_code ec;
    for (auto it = fs::directory_iterator(folderOf(target), ec);
         !ec && it != fs::directory_iterator(); it.increment(ec)) {
        struct stat st {};
        if (!isTemporaryOf(target, it->path().filename().string()) ||
            ::lstat(it->path().c_str(), &st) != 0 || !S_ISREG(st.st_mode) ||
            st.st_uid != ::geteuid())
            continue;
        const auto written = it->last_write_time(ec);
        if (ec || now - written < minAge)
            continue;
        std::error_code removed;
        if (fs::remove(it->path(), removed))
            log("removed " + it->path().string() + ", left by an interrupted save");
    }
}

std::optional<fs::path> keepAside(const fs::path& path, std::string_view tag) {
    const std::string base = path.string() + "." + std::string(tag);
    const auto taken = [](const fs::path& p) {
        std::error_code ec;
        return fs::symlink_status(p, ec).type() != fs::file_type::not_found;
    };
    std::error_code ec;
    fs::path target = base;
    for (int n = 1; taken(target); ++n) {
        if (n > 999) {
            log("cannot keep " + path.string() + " aside: too many earlier copies");
            return std::nullopt;
        }
        target = base + "." + std::to_string(n);
    }
    fs::rename(path, target, ec);
    if (ec) {
        log("cannot keep " + path.string() + " aside: " + ec.message());
        return std::nullopt;
    }
    return target;
}

std::string stampOf(const fs::path& path) {
    struct stat st {};
    if (path.empty() || ::stat(path.c_str(), &st) != 0)
        return {};
    return std::to_string(st.st_ino) + ":" + std::to_string(st.st_size) + ":" +
           std::to_string(st.st_mtim.tv_sec) + "." + std::to_string(st.st_mtim.tv_nsec);
}

bool ensureDirectory(const fs::path& dir, Failure* why) {
    std::error_code ec;
    if (fs::is_directory(dir, ec))
        return true;
    fs::create_directories(dir, ec);
    if (ec) {
        log("cannot create folder " + dir.string() + ": " + ec.message());
        if (why)
            *why = describeError(ec.value());
        return false;
    }
    return true;
}

}  // namespace zt::file
