// The shipped sound bank (tuned open strings; short, clean, distinct clicks)
// and decoding files of various layouts into mono samples at the engine rate.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "sound/FileCapture.h"
#include "sound/SoundBank.h"
#include "sound/SoundDecoder.h"
#include "sound/SoundTesting.h"

using namespace zt;
using namespace zt::testing;

namespace {

Recording readBankSound(int id) {
    const Recording sound = readSound(SoundBank::path(SoundBank::fileName(id)));
    EXPECT_EQ(sound.format, SF_FORMAT_CAF | SF_FORMAT_PCM_16) << id;
    EXPECT_EQ(sound.channels, 1) << id;
    EXPECT_EQ(sound.rate, 44100) << id;
    return sound;
}

struct StringRow {
    int string;
    const char* file;
    double hertz;
};
void PrintTo(const StringRow& row, std::ostream* os) {
    *os << row.file;
}

class GeneratedStrings : public ::testing::TestWithParam<StringRow> {};
class GeneratedPacks : public ::testing::TestWithParam<int> {};

double zeroCrossingRate(const std::vector<float>& samples) {
    int crossings = 0;
    for (size_t i = 1; i < samples.size(); ++i)
        crossings += (samples[i - 1] < 0) != (samples[i] < 0);
    return static_cast<double>(crossings) / samples.size();
}

}  // namespace

TEST_P(GeneratedStrings, IsInTuneAndDiesAway) {
    const auto& row = GetParam();
    const int id = SoundBank::stringSoundId(row.string);
    ASSERT_EQ(SoundBank::fileName(id), row.file);
    const Recording tone = readBankSound(id);
    const double seconds = static_cast<double>(tone.samples.size()) / tone.rate;
    ASSERT_NEAR(seconds, 3.0, 0.5);

    const double measured = toneFrequency(tone.samples, tone.rate, row.hertz);
    RecordProperty("cents", std::to_string(cents(measured, row.hertz)));
    EXPECT_LT(std::abs(cents(measured, row.hertz)), 0.5) << measured << " Hz";
    EXPECT_GT(peak(tone.window(0, 0.0, 0.5)), 0.5);
    EXPECT_LT(rms(tone.window(0, seconds - 0.5, seconds)), 0.5 * rms(tone.window(0, 0.0, 0.5)));
    EXPECT_LT(std::abs(tone.samples.back()), 1e-3);
}

// The sound generator tunes each file to openStringFrequency, and the strum
// shifts it by semitones counted from openStringNote: both must name the
// file's own note.
TEST_P(GeneratedStrings, TheGeneratorAndTheStrumAgreeOnItsPitch) {
    const auto& row = GetParam();
    EXPECT_NEAR(SoundBank::openStringFrequency(row.string), row.hertz, 1e-3);
    const int note = SoundBank::openStringNote(row.string);
    EXPECT_NEAR(440.0 * std::exp2((note - 57) / 12.0), row.hertz, 1e-3);
    EXPECT_EQ(SoundBank::openStringFrequency(-1), 0.0);
    EXPECT_EQ(SoundBank::openStringFrequency(SoundBank::kStringCount), 0.0);
}

INSTANTIATE_TEST_SUITE_P(
    Standard, GeneratedStrings,
    ::testing::Values(StringRow{0, "E4_.caf", 329.628}, StringRow{1, "B3_.caf", 246.942},
                      StringRow{2, "G3_.caf", 195.998}, StringRow{3, "D3_.caf", 146.832},
                      StringRow{4, "A2_.caf", 110.000}, StringRow{5, "E2_.caf", 82.4069}));

TEST_P(GeneratedPacks, ClicksAreShortCleanAndDistinct) {
    const int pack = GetParam();
    const char* kinds[] = {"tick", "tock", "subtick"};
    Recording clicks[3];
    for (int kind = 0; kind < 3; ++kind) {
        const int id = SoundBank::clickSoundId(pack, static_cast<SoundBank::Click>(kind));
        ASSERT_EQ(SoundBank::fileName(id), std::to_string(pack) + "_" + kinds[kind] + ".caf");
        clicks[kind] = readBankSound(id);
        const auto& samples = clicks[kind].samples;
        EXPECT_GT(samples.size(), 100u) << kinds[kind];
        EXPECT_LT(samples.size(), 4410u) << kinds[kind] << " lasts 100 ms or more";
        EXPECT_LT(peak(std::span(samples).last(8)), 5e-3) << kinds[kind] << " ends abruptly";
        EXPECT_GT(peak(samples), 0.2) << kinds[kind];
    }
    const auto& [tick, tock, subtick] = clicks;
    const double brightness = zeroCrossingRate(tock.samples) / zeroCrossingRate(tick.samples);
    EXPECT_GT(std::abs(brightness - 1.0), 0.1) << "tock is pitched like tick";
    EXPECT_GE(peak(tock.samples), peak(tick.samples));
    EXPECT_LT(peak(subtick.samples), 0.7 * peak(tick.samples));
}

INSTANTIATE_TEST_SUITE_P(Packs, GeneratedPacks, ::testing::Range(1, SoundBank::kPackCount + 1),
                         [](const auto& info) {
                             return std::string(SoundBank::kPackNames[info.param - 1]);
                         });

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

// A damaged Ogg Vorbis file whose last page claims billions of frames and
// which holds none that decode (found by fuzz_audio_file): both readers go by
// what the file holds, not by the claim, which used to end the program.
TEST(DamagedSoundFile, IsReadForWhatItHoldsNotWhatItsHeaderClaims) {
    const auto path = std::filesystem::path(ZEBTOOLS_TEST_DATA_DIR) / "huge-length.ogg";
    std::string error;
    EXPECT_FALSE(SoundDecoder(8000).decode(path, error).has_value());
    EXPECT_EQ(error, "no samples could be read");

    struct Counter : CaptureSink {
        std::size_t total = 0;
        void captured(const std::int16_t*, std::size_t count) override { total += count; }
    } sink;
    auto capture = FileCapture::open(path, error);
    ASSERT_TRUE(capture) << error;
    ASSERT_TRUE(capture->start(sink, 8000));
    EXPECT_EQ(capture->pump(400), 0u);
    EXPECT_EQ(sink.total, 0u);
    EXPECT_EQ(capture->state(), AudioCapture::State::Stopped);
}

// A few kilobytes of damaged AIFF whose sound chunk claims 200 MB (found by
// fuzz_audio_file): it reads as hours of sound. Loading it whole stops at a
// minute instead of filling memory.
TEST(DamagedSoundFile, EndlessSoundIsRefusedForLoadingWhole) {
    const auto path = std::filesystem::path(ZEBTOOLS_TEST_DATA_DIR) / "endless.aiff";
    std::string error;
    EXPECT_FALSE(SoundDecoder(8000).decode(path, error).has_value());
    EXPECT_EQ(error, "longer than 60 seconds");
}
