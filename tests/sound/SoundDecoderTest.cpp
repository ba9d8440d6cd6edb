// Decoding files of various layouts into mono samples at the engine rate.
#include <gtest/gtest.h>

#include <fstream>

#include "sound/SoundDecoder.h"
#include "sound/SoundTesting.h"

using namespace zt;
using namespace zt::testing;

namespace {

struct DecodeRow {
    const char* name;
    int format;  // 0: not a sound file (name says which kind)
    int rate;
    int channels;
};
void PrintTo(const DecodeRow& row, std::ostream* os) {
    *os << row.name;
}

class SoundDecoderFiles : public ::testing::TestWithParam<DecodeRow> {};

}  // namespace

TEST_P(SoundDecoderFiles, GivesMonoAtTheEngineRateOrAReason) {
    const auto& row = GetParam();
    const auto path = scratchPath(std::string(row.name) + ".caf");
    const std::string kind = row.name;
    if (row.format)
        writeTone(path, 440.0, kind == "empty" ? 0.0 : 0.5, row.rate, row.channels, row.format);
    if (kind == "text")
        std::ofstream(path) << "not a sound file at all";

    std::string error;
    const auto samples = SoundDecoder(44100).decode(path, error);
    std::filesystem::remove(path);
    if (!row.format || kind == "empty") {
        EXPECT_FALSE(samples.has_value());
        EXPECT_FALSE(error.empty());
        return;
    }
    ASSERT_TRUE(samples.has_value()) << error;
    EXPECT_NEAR(samples->size(), 22050.0, 2.0);
    const std::span<const float> middle(samples->data() + 4410, 11025);
    EXPECT_LT(std::abs(cents(toneFrequency(middle, 44100, 440.0), 440.0)), 0.05);
    EXPECT_NEAR(toneAmplitude(middle, 44100, 440.0), 0.5, 0.01);
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, SoundDecoderFiles,
    ::testing::Values(DecodeRow{"caf16", SF_FORMAT_CAF | SF_FORMAT_PCM_16, 44100, 1},
                      DecodeRow{"wav22k", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 22050, 1},
                      DecodeRow{"stereo48k", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2},
                      DecodeRow{"empty", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1},
                      DecodeRow{"missing", 0, 0, 0}, DecodeRow{"text", 0, 0, 0}),
    [](const auto& info) { return std::string(info.param.name); });
