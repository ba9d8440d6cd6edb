#include "sound/SoundDecoder.h"

#include <sndfile.h>
#include <soxr.h>

#include <cmath>
#include <memory>
#include <string>

namespace zt {

namespace {
struct SndfileCloser {
    void operator()(SNDFILE* file) const { sf_close(file); }
};
}  // namespace

std::optional<std::vector<float>> SoundDecoder::decode(const std::filesystem::path& path,
                                                       std::string& error) const {
    SF_INFO info{};
    std::unique_ptr<SNDFILE, SndfileCloser> file(sf_open(path.c_str(), SFM_READ, &info));
    if (!file) {
        error = sf_strerror(nullptr);
        return std::nullopt;
    }
    if (info.frames <= 0 || info.channels <= 0 || info.samplerate <= 0) {
        error = "no samples";
        return std::nullopt;
    }

    // Read piece by piece to the end: the header's frame count is only a
    // claim, and a damaged one may promise more than memory holds. The
    // sounds loaded whole are clicks and plucked strings, seconds long; a
    // file that goes on past a minute is not one of them (a few kilobytes
    // of damaged AIFF can read as hours of sound).
    constexpr sf_count_t kPieceFrames = 4096;
    constexpr size_t kMaxSeconds = 60;
    const size_t maxFrames = kMaxSeconds * static_cast<size_t>(info.samplerate);
    const auto channels = static_cast<size_t>(info.channels);
    std::vector<float> interleaved(static_cast<size_t>(kPieceFrames) * channels);
    std::vector<float> mono;
    for (;;) {
        const sf_count_t read = sf_readf_float(file.get(), interleaved.data(), kPieceFrames);
        if (read <= 0)
            break;
        if (mono.size() + static_cast<size_t>(read) > maxFrames) {
            error = "longer than " + std::to_string(kMaxSeconds) + " seconds";
            return std::nullopt;
        }
        for (size_t frame = 0; frame < static_cast<size_t>(read); ++frame) {
            float sum = 0.0f;
            for (size_t channel = 0; channel < channels; ++channel)
                sum += interleaved[frame * channels + channel];
            mono.push_back(sum / static_cast<float>(channels));
        }
    }
    if (mono.empty()) {
        error = "no samples could be read";
        return std::nullopt;
    }
    if (info.samplerate == rate_)
        return mono;
    std::vector<float> converted = resample(mono, info.samplerate, rate_);
    if (converted.empty()) {
        error = "cannot convert from " + std::to_string(info.samplerate) + " Hz";
        return std::nullopt;
    }
    return converted;
}

std::vector<float> SoundDecoder::resample(const std::vector<float>& in, int fromRate, int toRate) {
    if (fromRate == toRate || in.empty())
        return in;
    const double ratio = static_cast<double>(toRate) / fromRate;
    std::vector<float> out(static_cast<size_t>(std::ceil(static_cast<double>(in.size()) * ratio)));
    size_t produced = 0;
    const soxr_io_spec_t io = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
    const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_HQ, 0);
    const soxr_error_t failure =
        soxr_oneshot(fromRate, toRate, 1, in.data(), in.size(), nullptr, out.data(), out.size(),
                     &produced, &io, &quality, nullptr);
    if (failure)
        return {};
    out.resize(produced);
    return out;
}

}  // namespace zt
