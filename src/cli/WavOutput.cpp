#include "cli/WavOutput.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>

#include "sound/OfflineRender.h"
#include "state/AtomicFile.h"

namespace zt::cli {

namespace fs = std::filesystem;

namespace {

// The temporary being written, for the signal handler, which may only use
// what is async-signal-safe: a fixed buffer and unlink().
char gTemporary[4096];
volatile std::sig_atomic_t gArmed = 0;

void removeTemporaryAndDie(int signal) {
    if (gArmed)
        ::unlink(gTemporary);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

// While alive, an interruption (Ctrl-C, kill, the terminal closing) removes
// the temporary file before the program ends as the signal says.
class RemovedOnInterrupt {
public:
    explicit RemovedOnInterrupt(const fs::path& temp) {
        const std::string name = temp.string();
        if (name.size() >= sizeof gTemporary)
            return;
        std::memcpy(gTemporary, name.c_str(), name.size() + 1);
        struct sigaction action {};
        action.sa_handler = removeTemporaryAndDie;
        sigemptyset(&action.sa_mask);
        for (std::size_t i = 0; i < kSignals.size(); ++i)
            ::sigaction(kSignals[i], &action, &saved_[i]);
        gArmed = 1;
    }
    ~RemovedOnInterrupt() {
        if (!gArmed)
            return;
        for (std::size_t i = 0; i < kSignals.size(); ++i)
            ::sigaction(kSignals[i], &saved_[i], nullptr);
        gArmed = 0;
    }
    RemovedOnInterrupt(const RemovedOnInterrupt&) = delete;
    RemovedOnInterrupt& operator=(const RemovedOnInterrupt&) = delete;

private:
    static constexpr std::array<int, 3> kSignals{SIGINT, SIGTERM, SIGHUP};
    std::array<struct sigaction, 3> saved_{};
};

}  // namespace

bool writeWav(StreamRenderer& renderer, int sampleRate, std::int64_t frames, const fs::path& path,
              std::string& error) {
    std::error_code ec;
    const auto status = fs::status(path, ec);
    if (fs::exists(status) && !fs::is_regular_file(status))
        return renderToWav(renderer, sampleRate, frames, path, error);

    // Left by a run that was killed outright; one a minute old is no longer
    // being written.
    file::removeStaleTemporaries(path, std::chrono::minutes(1), file::Links::Replace);
    file::Failure why;
    const bool written = file::replaceFile(
        path,
        [&](const fs::path& temp, file::Failure& failure) {
            const RemovedOnInterrupt guard(temp);
            errno = 0;
            std::string renderError;
            if (renderToWav(renderer, sampleRate, frames, temp, renderError))
                return true;
            failure = errno != 0 ? file::describeError(errno) : renderError;
            return false;
        },
        &why, file::Links::Replace);
    if (!written)
        error = "cannot write " + path.string() + ": " + why;
    return written;
}

}  // namespace zt::cli
