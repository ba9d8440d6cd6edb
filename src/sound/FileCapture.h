#pragma once
// A sound file as a capture source, for the command line and tests: any
// file libsndfile reads, its channels mixed to mono, converted to the
// capture rate with libsoxr and to 16-bit samples (clipped; values that are
// not numbers become silence). It keeps no clock of its own: whoever drives
// it takes the next samples with pump(), so a file is analysed as fast as
// the machine allows, in the same pieces and order as live sound would be.
// The file is read and converted piece by piece; nothing of it is held whole.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "dsp/AudioCapture.h"

namespace zt {

class FileCapture final : public AudioCapture {
public:
    // nullptr, with the reason in `error`, when the file is missing or is not
    // sound libsndfile can read.
    static std::unique_ptr<FileCapture> open(const std::filesystem::path& path, std::string& error);
    ~FileCapture() override;

    // The file's own rate and length.
    int fileRate() const { return fileRate_; }
    double fileSeconds() const;

    bool start(CaptureSink& sink, int rate) override;
    void stop() override;
    State state() const override { return state_; }

    // Delivers up to `count` further samples to the sink on the calling
    // thread; returns how many, fewer only at the end of the file (then the
    // state becomes Stopped).
    std::size_t pump(std::size_t count);

private:
    struct Impl;
    explicit FileCapture(std::unique_ptr<Impl> impl);
    // Converts more of the file into ready_; false at its end.
    bool refill();

    std::unique_ptr<Impl> impl_;
    int fileRate_ = 0;
    CaptureSink* sink_ = nullptr;
    State state_ = State::Stopped;
    std::vector<std::int16_t> ready_;
    std::size_t readyAt_ = 0;
};

}  // namespace zt
