#include "sound/OfflineRender.h"

#include <sndfile.h>

#include <algorithm>
#include <array>
#include <memory>

#include "sound/StreamVoice.h"

namespace zt {

namespace {

constexpr int kBlockFrames = StreamVoice::kBlockFrames;

struct SndfileCloser {
    void operator()(SNDFILE* file) const { sf_close(file); }
};

}  // namespace

bool renderToWav(StreamRenderer& renderer, int sampleRate, std::int64_t frames,
                 const std::filesystem::path& path, std::string& error) {
    SF_INFO info{};
    info.samplerate = sampleRate;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    std::unique_ptr<SNDFILE, SndfileCloser> file(sf_open(path.c_str(), SFM_WRITE, &info));
    if (!file) {
        error = "cannot write " + path.string() + ": " + sf_strerror(nullptr);
        return false;
    }
    sf_command(file.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);

    std::array<float, kBlockFrames> block{};
    for (std::int64_t done = 0; done < frames;) {
        const int n = static_cast<int>(std::min<std::int64_t>(kBlockFrames, frames - done));
        renderer.render(block.data(), n, done);
        if (sf_writef_float(file.get(), block.data(), n) != n) {
            error = "cannot write " + path.string() + ": " + sf_strerror(file.get());
            return false;
        }
        done += n;
    }
    // The header's sizes are written on closing: a failure there leaves a
    // file that misstates its length.
    if (sf_close(file.release()) != 0) {
        error = "cannot write " + path.string() + ": the file could not be completed";
        return false;
    }
    return true;
}

}  // namespace zt
