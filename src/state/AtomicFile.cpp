#include "state/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <system_error>

#include "framework/Log.h"

namespace zt::file {

namespace fs = std::filesystem;

namespace {

std::string errnoText() {
    return std::strerror(errno);
}

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

// Makes the rename itself durable. Failure here only weakens the guarantee
// after a power cut, so it is not reported.
void syncDirectory(const fs::path& dir) {
    const int fd = ::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    ::fsync(fd);
    ::close(fd);
}

}  // namespace

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
    if (ec || size > maxBytes) {
        log("cannot read " + path.string() + ": " + (ec ? ec.message() : "file too large"));
        return {ReadStatus::Unreadable, {}};
    }
    std::ifstream in(path, std::ios::binary);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (!in || !in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
        log("cannot read " + path.string() + ": " + errnoText());
        return {ReadStatus::Unreadable, {}};
    }
    return {ReadStatus::Ok, std::move(bytes)};
}

bool writeAtomically(const fs::path& path, std::string_view bytes) {
    const fs::path dir = path.has_parent_path() ? path.parent_path() : fs::path(".");
    std::string temp = (dir / ("." + path.filename().string() + ".XXXXXX")).string();
    const int fd = ::mkostemp(temp.data(), O_CLOEXEC);
    if (fd < 0) {
        log("cannot write " + path.string() + ": " + errnoText());
        return false;
    }

    struct stat old {};
    const mode_t mode = ::stat(path.c_str(), &old) == 0 ? (old.st_mode & 07777) : 0644;
    bool ok = ::fchmod(fd, mode) == 0 && writeAll(fd, bytes) && ::fsync(fd) == 0;
    const std::string failure = ok ? std::string() : errnoText();
    if (::close(fd) != 0 && ok) {
        ok = false;
    }
    if (ok && ::rename(temp.c_str(), path.c_str()) != 0)
        ok = false;
    if (!ok) {
        log("cannot write " + path.string() + ": " + (failure.empty() ? errnoText() : failure));
        ::unlink(temp.c_str());
        return false;
    }
    syncDirectory(dir);
    return true;
}

std::optional<fs::path> keepAside(const fs::path& path, std::string_view tag) {
    const std::string base = path.string() + "." + std::string(tag);
    std::error_code ec;
    fs::path target = base;
    for (int n = 1; fs::exists(target, ec) || ec; ++n) {
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

bool ensureDirectory(const fs::path& dir) {
    std::error_code ec;
    if (fs::is_directory(dir, ec))
        return true;
    fs::create_directories(dir, ec);
    if (ec) {
        log("cannot create folder " + dir.string() + ": " + ec.message());
        return false;
    }
    return true;
}

}  // namespace zt::file
