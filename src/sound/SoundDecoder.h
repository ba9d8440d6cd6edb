#pragma once
// Reads a sound file (any format libsndfile knows, ".caf" among them) into
// mono float samples (-1..1) at a chosen rate: channels are averaged, and a
// file at another rate is converted with libsoxr at high quality.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace zt {

class SoundDecoder {
public:
    // rate: output sample rate in hertz.
    explicit SoundDecoder(int rate) : rate_(rate) {}

    int rate() const { return rate_; }

    // The whole file as mono samples at rate(); nullopt for a missing,
    // unreadable or empty file, or one longer than a minute, with the reason
    // in `error`.
    std::optional<std::vector<float>> decode(const std::filesystem::path& path,
                                             std::string& error) const;

    // Converts mono samples from one rate to another; empty on failure.
    static std::vector<float> resample(const std::vector<float>& in, int fromRate, int toRate);

private:
    int rate_;
};

}  // namespace zt
