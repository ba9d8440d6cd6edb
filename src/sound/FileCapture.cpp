#include "sound/FileCapture.h"

#include <sndfile.h>
#include <soxr.h>

#include <algorithm>
#include <cmath>

namespace zt {

namespace {
constexpr sf_count_t kFramesPerRead = 4096;
}

struct FileCapture::Impl {
    SNDFILE* file = nullptr;
    SF_INFO info{};
    soxr_t resampler = nullptr;
    int rate = 0;
    bool fileDone = false;
    bool flushed = false;
    std::vector<float> interleaved;
    std::vector<float> mono;
    std::vector<float> converted;

    ~Impl() {
        if (resampler)
            soxr_delete(resampler);
        if (file)
            sf_close(file);
    }
};

std::unique_ptr<FileCapture> FileCapture::open(const std::filesystem::path& path,
                                               std::string& error) {
    std::error_code missing;
    if (!std::filesystem::exists(path, missing)) {
        error = "no such file";
        return nullptr;
    }
    auto impl = std::make_unique<Impl>();
    impl->file = sf_open(path.c_str(), SFM_READ, &impl->info);
    if (!impl->file) {
        error = sf_strerror(nullptr);
        return nullptr;
    }
    if (impl->info.channels <= 0 || impl->info.samplerate <= 0) {
        error = "no sound in it";
        return nullptr;
    }
    return std::unique_ptr<FileCapture>(new FileCapture(std::move(impl)));
}

FileCapture::FileCapture(std::unique_ptr<Impl> impl)
    : impl_(std::move(impl)), fileRate_(impl_->info.samplerate) {}

FileCapture::~FileCapture() = default;

double FileCapture::fileSeconds() const {
    return static_cast<double>(impl_->info.frames) / fileRate_;
}

bool FileCapture::start(CaptureSink& sink, int rate) {
    stop();
    sf_seek(impl_->file, 0, SEEK_SET);
    impl_->rate = rate;
    impl_->fileDone = false;
    impl_->flushed = false;
    if (fileRate_ != rate) {
        const soxr_io_spec_t io = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
        const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_HQ, 0);
        soxr_error_t failure = nullptr;
        impl_->resampler = soxr_create(fileRate_, rate, 1, &failure, &io, &quality, nullptr);
        if (failure)
            return false;
    }
    const auto channels = static_cast<std::size_t>(impl_->info.channels);
    impl_->interleaved.resize(static_cast<std::size_t>(kFramesPerRead) * channels);
    impl_->mono.resize(static_cast<std::size_t>(kFramesPerRead));
    impl_->converted.resize(static_cast<std::size_t>(kFramesPerRead) * rate / fileRate_ + 64);
    ready_.clear();
    readyAt_ = 0;
    sink_ = &sink;
    state_ = State::Running;
    return true;
}

void FileCapture::stop() {
    if (impl_->resampler) {
        soxr_delete(impl_->resampler);
        impl_->resampler = nullptr;
    }
    sink_ = nullptr;
    state_ = State::Stopped;
}

bool FileCapture::refill() {
    Impl& f = *impl_;
    ready_.clear();
    readyAt_ = 0;
    std::size_t produced = 0;
    while (produced == 0 && !f.flushed) {
        std::size_t frames = 0;
        if (!f.fileDone) {
            const sf_count_t read = sf_readf_float(f.file, f.interleaved.data(), kFramesPerRead);
            frames = read > 0 ? static_cast<std::size_t>(read) : 0;
            f.fileDone = frames == 0;
            const auto channels = static_cast<std::size_t>(f.info.channels);
            for (std::size_t i = 0; i < frames; ++i) {
                float sum = 0.0f;
                for (std::size_t c = 0; c < channels; ++c)
                    sum += f.interleaved[i * channels + c];
                const float value = sum / static_cast<float>(channels);
                f.mono[i] = std::isfinite(value) ? value : 0.0f;
            }
        }
        if (!f.resampler) {
            f.flushed = f.fileDone;
            std::copy_n(f.mono.begin(), frames, f.converted.begin());
            produced = frames;
        } else {
            // No input at the end of the file asks the resampler for its tail.
            soxr_process(f.resampler, f.fileDone ? nullptr : f.mono.data(), frames, nullptr,
                         f.converted.data(), f.converted.size(), &produced);
            f.flushed = f.fileDone && produced == 0;
        }
    }
    for (std::size_t i = 0; i < produced; ++i) {
        const float scaled = std::clamp(f.converted[i] * 32767.0f, -32768.0f, 32767.0f);
        ready_.push_back(static_cast<std::int16_t>(std::lround(scaled)));
    }
    return produced > 0;
}

std::size_t FileCapture::pump(std::size_t count) {
    std::size_t delivered = 0;
    while (state_ == State::Running && delivered < count) {
        if (readyAt_ == ready_.size() && !refill()) {
            state_ = State::Stopped;
            break;
        }
        const std::size_t piece = std::min(count - delivered, ready_.size() - readyAt_);
        sink_->captured(ready_.data() + readyAt_, piece);
        readyAt_ += piece;
        delivered += piece;
    }
    return delivered;
}

}  // namespace zt
