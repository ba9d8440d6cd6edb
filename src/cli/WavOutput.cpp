#include "cli/WavOutput.h"

#include <cerrno>

#include "sound/OfflineRender.h"
#include "state/AtomicFile.h"

namespace zt::cli {

namespace fs = std::filesystem;

bool writeWav(StreamRenderer& renderer, int sampleRate, std::int64_t frames, const fs::path& path,
              std::string& error) {
    std::error_code ec;
    const auto status = fs::status(path, ec);
    if (fs::exists(status) && !fs::is_regular_file(status))
        return renderToWav(renderer, sampleRate, frames, path, error);

    file::Failure why;
    const bool written = file::replaceFile(
        path,
        [&](const fs::path& temp, file::Failure& failure) {
            errno = 0;
            std::string renderError;
            if (renderToWav(renderer, sampleRate, frames, temp, renderError))
                return true;
            failure = errno != 0 ? file::describeError(errno) : renderError;
            return false;
        },
        &why);
    if (!written)
        error = "cannot write " + path.string() + ": " + why;
    return written;
}

}  // namespace zt::cli
