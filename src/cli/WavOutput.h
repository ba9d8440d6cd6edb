#pragma once
// The --out file of the commands that render sound. The WAV is written to a
// temporary file beside the target and renamed over it only when complete,
// so a full disk or an interrupted run leaves the previous file as it was
// and never a truncated one that looks valid; Ctrl-C or a kill removes the
// temporary, and one left by a harder end is removed by the next run into
// that folder. The path is taken as given: a symbolic link there is replaced,
// never followed. A target that exists but is not a regular file (a pipe,
// /dev/stdout) is written directly.

#include <cstdint>
#include <filesystem>
#include <string>

namespace zt {
class StreamRenderer;
}

namespace zt::cli {

bool writeWav(StreamRenderer& renderer, int sampleRate, std::int64_t frames,
              const std::filesystem::path& path, std::string& error);

}  // namespace zt::cli
