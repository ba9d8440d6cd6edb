// Decoding files of various layouts into mono samples at the engine rate.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <fstream>
#include <numbers>

#include "sound/AudioAnalysis.h"
#include "sound/SoundDecoder.h"

using namespace zt;
using namespace zt::testing;

namespace {

constexpr int kRate = 44100;
constexpr double kTone = 440.0;

enum class Content { Sine, Missing, Text, NoFrames };

struct DecodeRow {
    const char* name;
    Content content;
    int format;
    int rate;
    int channels;
};

void writeSine(const std::filesystem::path& path, const DecodeRow& row, double seconds) {
    SF_INFO info{};
    info.samplerate = row.rate;
    info.channels = row.channels;
    info.format = row.format;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    ASSERT_NE(file, nullptr) << sf_strerror(nullptr);
    const auto frames = static_cast<size_t>(seconds * row.rate);
    std::vector<float> data(frames * row.channels);
    for (size_t i = 0; i < frames; ++i) {
        const auto s =
            static_cast<float>(0.5 * std::sin(2 * std::numbers::pi * kTone * i / row.rate));
        for (int c = 0; c < row.channels; ++c)
            data[i * row.channels + c] = s;
    }
    sf_writef_float(file, data.data(), static_cast<sf_count_t>(frames));
    sf_close(file);
}

void PrintTo(const DecodeRow& row, std::ostream* os) {
    *os << row.name;
}

class SoundDecoderFiles : public ::testing::TestWithParam<DecodeRow> {
protected:
    std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                  (std::string("zt-decoder-") + GetParam().name + ".caf");
    void TearDown() override { std::filesystem::remove(path_); }
};

}  // namespace

TEST_P(SoundDecoderFiles, GivesMonoAtTheEngineRateOrAReason) {
    const auto& row = GetParam();
    const double seconds = 0.5;
    switch (row.content) {
        case Content::Sine:
            writeSine(path_, row, seconds);
            break;
        case Content::NoFrames:
            writeSine(path_, row, 0.0);
            break;
        case Content::Text:
            std::ofstream(path_) << "not a sound file at all";
            break;
        case Content::Missing:
            break;
    }

    std::string error;
    const auto samples = SoundDecoder(kRate).decode(path_, error);
    if (row.content != Content::Sine) {
        EXPECT_FALSE(samples.has_value());
        EXPECT_FALSE(error.empty());
        return;
    }
    ASSERT_TRUE(samples.has_value()) << error;
    EXPECT_NEAR(static_cast<double>(samples->size()), seconds * kRate, 2.0);
    const std::span<const float> middle(samples->data() + kRate / 10, kRate / 4);
    EXPECT_LT(std::abs(cents(toneFrequency(middle, kRate, kTone), kTone)), 0.05);
    EXPECT_NEAR(toneAmplitude(middle, kRate, kTone), 0.5, 0.01);
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, SoundDecoderFiles,
    ::testing::Values(
        DecodeRow{"caf16", Content::Sine, SF_FORMAT_CAF | SF_FORMAT_PCM_16, 44100, 1},
        DecodeRow{"wav22k", Content::Sine, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 22050, 1},
        DecodeRow{"stereo48k", Content::Sine, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2},
        DecodeRow{"missing", Content::Missing, 0, 0, 0}, DecodeRow{"text", Content::Text, 0, 0, 0},
        DecodeRow{"empty", Content::NoFrames, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1}),
    [](const auto& info) { return std::string(info.param.name); });
