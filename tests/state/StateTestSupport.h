#pragma once
// A private data folder per test ($ZEBTOOLS_DATA_DIR), a fresh facade, and
// the log lines written meanwhile.

#include <gtest/gtest.h>
#include <sched.h>
#include <stdlib.h>
#include <sys/mount.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "framework/Facade.h"
#include "framework/Log.h"
#include "framework/Mediator.h"
#include "framework/Paths.h"
#include "state/PlistCodec.h"
#include "state/SaveNotice.h"

namespace zt::test {

// The messages of kSaveFailed, as the shell would show them.
struct NoticeRecorder : Mediator {
    NoticeRecorder() : Mediator("NoticeRecorder") {}
    std::vector<std::string> listNotificationInterests() const override { return {kSaveFailed}; }
    void handleNotification(const Notification& n) override {
        const auto* text = n.bodyAs<std::string>();
        messages.push_back(text ? *text : "(not a string)");
    }
    std::vector<std::string> messages;
};

// Mounts an empty file system of the given size at dir, seen by this test
// process only (a private mount namespace), so that a full disk or a
// read-only one is real. False where the system does not allow it.
inline bool mountSmallDisk(const std::filesystem::path& dir, std::size_t bytes) {
    static const bool privateMounts =
        ::unshare(CLONE_NEWNS) == 0 &&
        ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    std::filesystem::create_directories(dir);
    const std::string options = "size=" + std::to_string(bytes) + ",mode=0755";
    return privateMounts && ::mount("tmpfs", dir.c_str(), "tmpfs", 0, options.c_str()) == 0;
}

inline bool remountReadOnly(const std::filesystem::path& dir) {
    return ::mount(nullptr, dir.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

// v in `bytes` bytes, most significant first, as the binary property list
// form stores numbers.
inline std::string bigEndian(std::uint64_t v, int bytes) {
    std::string out;
    for (int b = bytes - 1; b >= 0; --b)
        out += static_cast<char>((v >> (8 * b)) & 0xFF);
    return out;
}

// A binary property list of the given objects (marker byte and contents,
// references refSize bytes wide), object 0 on top, offsets 4 bytes wide.
inline std::string binaryPlist(const std::vector<std::string>& objects, int refSize) {
    std::string bin = "bplist00";
    std::string offsets;
    for (const auto& object : objects) {
        offsets += bigEndian(bin.size(), 4);
        bin += object;
    }
    const std::size_t table = bin.size();
    bin += offsets + std::string(6, '\0') + '\x04' + static_cast<char>(refSize);
    return bin + bigEndian(objects.size(), 8) + bigEndian(0, 8) + bigEndian(table, 8);
}

class DataDirTest : public ::testing::Test {
protected:
    void SetUp() override {
        namespace fs = std::filesystem;
        std::string pattern = (fs::temp_directory_path() / "zt-state-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        root_ = pattern;
        setDataDir(root_ / "data");
        Facade::reset();
        setLogQuiet(true);
        setLogSink([this](const std::string& line) { logLines_.push_back(line); });
    }

    void TearDown() override {
        ::umount2(dataDir_.c_str(), MNT_DETACH);
        setLogSink({});
        setLogQuiet(false);
        Facade::reset();
        ::unsetenv("ZEBTOOLS_DATA_DIR");
        // Tests may leave folders read-only; make them removable again.
        std::error_code ec;
        for (auto it = std::filesystem::recursive_directory_iterator(root_, ec);
             it != std::filesystem::recursive_directory_iterator(); it.increment(ec)) {
            std::filesystem::permissions(it->path(), std::filesystem::perms::owner_all,
                                         std::filesystem::perm_options::add, ec);
        }
        std::filesystem::remove_all(root_, ec);
    }

    void setDataDir(const std::filesystem::path& dir) {
        dataDir_ = dir;
        ::setenv("ZEBTOOLS_DATA_DIR", dir.c_str(), 1);
    }

    std::filesystem::path statePath() const { return dataDir_ / "saveState.plist"; }

    static std::string readBytes(const std::filesystem::path& path) {
        std::ifstream in(path, std::ios::binary);
        std::ostringstream out;
        out << in.rdbuf();
        return out.str();
    }

    static void writeBytes(const std::filesystem::path& path, const std::string& bytes) {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
    }

    static Dictionary readDictionary(const std::filesystem::path& path) {
        auto parsed = plist::parse(readBytes(path));
        return parsed ? parsed->dictionary() : Dictionary{};
    }

    static Dictionary defaultFile() { return readDictionary(paths::resource("saveState.plist")); }

    bool logged(const std::string& fragment) const {
        return std::any_of(logLines_.begin(), logLines_.end(), [&](const std::string& line) {
            return line.find(fragment) != std::string::npos;
        });
    }

    std::filesystem::path root_;
    std::filesystem::path dataDir_;
    std::vector<std::string> logLines_;
};

}  // namespace zt::test
