// zebtools-cli metronome: argument checking, and a render with the real packs.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <filesystem>
#include <sstream>
#include <vector>

#include "ClickTrack.h"
#include "cli/CliCommand.h"
#include "cli/MetronomeCommand.h"
#include "sound/SoundBank.h"

namespace zt::cli {
namespace {

struct BadArgs {
    std::vector<std::string> args;
    const char* says;
};

TEST(MetronomeCommand, BadArgumentsExplainAndExitWithTwo) {
    const std::vector<BadArgs> rows = {
        {{}, "--out FILE is required"},
        {{"--bpm", "19", "--out", "x.wav"}, "--bpm must be a whole number from 20 to 240"},
        {{"--bpm", "241", "--out", "x.wav"}, "--bpm"},
        {{"--bpm", "12x", "--out", "x.wav"}, "--bpm"},
        {{"--signature", "0/4", "--out", "x.wav"}, "--signature must be N/D"},
        {{"--signature", "17/4", "--out", "x.wav"}, "--signature"},
        {{"--signature", "4/2", "--out", "x.wav"}, "--signature"},
        {{"--signature", "4", "--out", "x.wav"}, "--signature"},
        {{"--pattern", "7", "--out", "x.wav"}, "--pattern must be"},
        {{"--signature", "6/8", "--pattern", "5", "--out", "x.wav"}, "not offered"},
        {{"--pack", "6", "--out", "x.wav"}, "--pack"},
        {{"--accent", "yes", "--out", "x.wav"}, "--accent must be on or off"},
        {{"--seconds", "0", "--out", "x.wav"}, "--seconds"},
        {{"--seconds", "nan", "--out", "x.wav"}, "--seconds"},
        {{"--out"}, "needs a value"},
        {{"--out", "a.wav", "--out", "b.wav"}, "given twice"},
        {{"--tempo", "90"}, "unknown option --tempo"},
        {{"fast"}, "unexpected argument"},
    };
    for (const auto& row : rows) {
        std::ostringstream out, err;
        EXPECT_EQ(runMetronomeCommand(row.args, out, err), kExitUsage) << row.says;
        EXPECT_NE(err.str().find(row.says), std::string::npos) << err.str();
        EXPECT_TRUE(out.str().empty());
    }
}

TEST(MetronomeCommand, ArgumentsMakeTheSetupTheAppWouldPlay) {
    std::string error;
    const auto job =
        parseMetronomeJob({"--bpm", "120", "--signature", "6/8", "--pattern", "6", "--pack", "5",
                           "--accent", "off", "--seconds", "2.5", "--out", "click.wav"},
                          error);
    ASSERT_TRUE(job) << error;
    EXPECT_EQ(job->setup.currentState(), "5-6-8-6-0-1-100");
    EXPECT_EQ(job->setup.beatsPerMinute(), 240);
    EXPECT_DOUBLE_EQ(job->seconds, 2.5);
    EXPECT_EQ(job->out, "click.wav");

    std::ostringstream out, err;
    EXPECT_EQ(runMetronomeCommand({"--help"}, out, err), kExitOk);
    EXPECT_NE(out.str().find("--signature N/D"), std::string::npos);
}

// With the shipped pack files: at 120 beats per minute the onsets of the
// written file lie 22050 samples apart, to the sample.
TEST(MetronomeCommand, WritesTheRealPackOnTheBeat) {
    for (int id = 51; id <= 53; ++id) {
        if (!std::filesystem::exists(SoundBank::path(SoundBank::fileName(id)))) {
            GTEST_SKIP() << "pack files not found";
        }
    }
    const auto path = std::filesystem::temp_directory_path() / "zt_metronome_cli_test.wav";
    std::ostringstream out, err;
    ASSERT_EQ(runMetronomeCommand({"--bpm", "120", "--signature", "4/4", "--pack", "1", "--seconds",
                                   "6", "--out", path.string()},
                                  out, err),
              kExitOk)
        << err.str();

    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(info.samplerate, 44100);
    EXPECT_EQ(info.channels, 1);
    EXPECT_EQ(info.format, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    ASSERT_EQ(info.frames, 6 * 44100);
    std::vector<float> samples(info.frames);
    sf_readf_float(file, samples.data(), info.frames);
    sf_close(file);
    std::filesystem::remove(path);

    const auto onsets = test::onsetsAfterQuiet(samples, 0.02f, 441);  // 10 ms of quiet
    ASSERT_EQ(onsets.size(), 11u);
    EXPECT_NEAR(double(onsets[0]), 22050.0, 200.0);
    for (size_t i = 1; i < onsets.size(); ++i) {
        EXPECT_NEAR(double(onsets[i] - onsets[i - 1]), 22050.0, 1.0) << "beat " << i + 1;
    }
}

}  // namespace
}  // namespace zt::cli
