#include "FuzzSupport.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <streambuf>
#include <string_view>

#include "framework/Log.h"
#include "framework/Paths.h"

namespace zt::fuzz {

namespace fs = std::filesystem;

namespace {

class NullBuffer : public std::streambuf {
protected:
    int overflow(int c) override { return traits_type::not_eof(c); }
    std::streamsize xsputn(const char*, std::streamsize n) override { return n; }
};

struct Scratch {
    fs::path dir;
    Scratch() {
        // In memory when possible: the state files are written with fsync,
        // which on a disk would bound the runs to a few dozen a second.
        std::error_code ec;
        const fs::path base =
            fs::is_directory("/dev/shm", ec) ? fs::path("/dev/shm") : fs::temp_directory_path();
        std::string pattern = (base / "zt-fuzz-XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            std::abort();
        dir = pattern;
    }
    ~Scratch() {
        std::error_code ec;
        fs::remove_all(dir, ec);
    }
};

}  // namespace

const fs::path& scratchDir() {
    static Scratch scratch;
    return scratch.dir;
}

fs::path writeScratch(const std::string& name, const std::uint8_t* data, std::size_t size) {
    const fs::path path = scratchDir() / name;
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    return path;
}

void clearScratch() {
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(scratchDir(), ec))
        fs::remove_all(entry.path(), ec);
}

void useScratchAsDataDir() {
    unsetenv("ZEBTOOLS_DATA_DIR");
    paths::setDataDir(scratchDir());
    setLogQuiet(true);
}

bool placeDataFile(const std::string& name, const std::uint8_t* data, std::size_t size) {
    clearScratch();
    writeScratch(name, data, size);
    return true;
}

std::ostream& nullStream() {
    static NullBuffer buffer;
    static std::ostream stream(&buffer);
    return stream;
}

std::vector<std::string> lines(const std::uint8_t* data, std::size_t size) {
    std::vector<std::string> result(1);
    for (std::size_t i = 0; i < size; ++i) {
        if (data[i] == '\n')
            result.emplace_back();
        else
            result.back().push_back(static_cast<char>(data[i]));
    }
    return result;
}

}  // namespace zt::fuzz
