// zebtools-cli metronome: argument checking, and a render with the real packs.
#include <gtest/gtest.h>
#include <sndfile.h>
#include <sys/resource.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <vector>

#include "ClickTrack.h"
#include "cli/Cli.h"
#include "cli/MetronomeCommand.h"
#include "metronome/ClickSet.h"
#include "sound/SoundBank.h"

namespace zt::cli {
namespace {

struct BadArgs {
    std::vector<std::string> args;
    const char* says;
};

std::vector<std::string> metronome(std::vector<std::string> args) {
    args.insert(args.begin(), "metronome");
    return args;
}

TEST(MetronomeCommand, BadArgumentsExplainAndExitWithTwo) {
    const std::vector<BadArgs> rows = {
        {{}, "--out is required"},
        {{"--bpm", "19", "--out", "x.wav"}, "--bpm: Value 19 not in range 20 to 240"},
        {{"--bpm", "241", "--out", "x.wav"}, "--bpm"},
        {{"--bpm", "12x", "--out", "x.wav"}, "--bpm"},
        {{"--signature", "0/4", "--out", "x.wav"}, "--signature: must be N/D"},
        {{"--signature", "17/4", "--out", "x.wav"}, "--signature"},
        {{"--signature", "4/2", "--out", "x.wav"}, "--signature"},
        {{"--signature", "4", "--out", "x.wav"}, "--signature"},
        {{"--pattern", "7", "--out", "x.wav"}, "--pattern"},
        {{"--signature", "6/8", "--pattern", "5", "--out", "x.wav"}, "not offered"},
        {{"--pack", "6", "--out", "x.wav"}, "--pack"},
        {{"--accent", "yes", "--out", "x.wav"}, "--accent"},
        {{"--seconds", "0", "--out", "x.wav"}, "--seconds"},
        {{"--seconds", "nan", "--out", "x.wav"}, "--seconds"},
        {{"--out"}, "--out"},
        {{"--out", "a.wav", "--out", "b.wav"}, "--out"},
        {{"--tempo", "90", "--out", "x.wav"}, "--tempo"},
        {{"fast", "--out", "x.wav"}, "fast"},
    };
    for (const auto& row : rows) {
        std::ostringstream out, err;
        EXPECT_EQ(runCli(metronome(row.args), out, err), kExitUsage) << row.says;
        EXPECT_NE(err.str().find(row.says), std::string::npos) << err.str();
        EXPECT_NE(err.str().find("zebtools-cli metronome --help"), std::string::npos) << err.str();
        EXPECT_TRUE(out.str().empty());
    }
}

TEST(MetronomeCommand, ArgumentsMakeTheSetupTheAppWouldPlay) {
    CLI::App app;
    MetronomeCommand command(app);
    std::vector<std::string> args =
        metronome({"--bpm", "120", "--signature", "6/8", "--pattern", "6", "--pack", "5",
                   "--accent", "off", "--seconds", "2.5", "--out", "click.wav"});
    std::reverse(args.begin(), args.end());
    app.parse(args);
    ASSERT_TRUE(command.chosen());
    EXPECT_EQ(command.job().setup.currentState(), "5-6-8-6-0-1-100");
    EXPECT_EQ(command.job().setup.beatsPerMinute(), 240);
    EXPECT_DOUBLE_EQ(command.job().seconds, 2.5);
    EXPECT_EQ(command.job().out, "click.wav");
}

TEST(Cli, HelpAndVersionGoToStdoutAndSucceed) {
    const std::vector<std::pair<std::vector<std::string>, const char*>> rows = {
        {{"--help"}, "metronome"},
        {{"metronome", "--help"}, "--signature"},
        {{"--version"}, "zebtools-cli 0."},
    };
    for (const auto& [args, says] : rows) {
        std::ostringstream out, err;
        EXPECT_EQ(runCli(args, out, err), kExitOk) << says;
        EXPECT_NE(out.str().find(says), std::string::npos) << out.str();
        EXPECT_TRUE(err.str().empty()) << err.str();
    }
    std::ostringstream out, err;
    EXPECT_EQ(runCli({}, out, err), kExitUsage);
    EXPECT_EQ(runCli({"tune"}, out, err), kExitUsage);
}

// With the shipped pack files: the track opens with the accented click from
// its very first sample, and at 120 beats per minute the onsets of the written
// file lie 22050 samples apart, to the sample.
TEST(MetronomeCommand, WritesTheRealPackOnTheBeat) {
    for (int id = 51; id <= 53; ++id) {
        if (!std::filesystem::exists(SoundBank::path(SoundBank::fileName(id)))) {
            GTEST_SKIP() << "pack files not found";
        }
    }
    const auto path = std::filesystem::temp_directory_path() / "zt_metronome_cli_test.wav";
    std::ostringstream out, err;
    ASSERT_EQ(runCli({"metronome", "--bpm", "120", "--signature", "4/4", "--pack", "1", "--seconds",
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

    ClickSet pack;
    std::string error;
    ASSERT_TRUE(pack.loadPack(1, 44100, error)) << error;
    const auto accent = pack.bank().get(52);
    ASSERT_GE(accent.size(), 1000u);
    for (size_t i = 0; i < 1000; ++i)
        ASSERT_NEAR(samples[i], accent[i], 1.0 / 16384) << "sample " << i;

    const auto onsets = test::onsetsAfterQuiet(samples, 0.02f, 441);  // 10 ms of quiet
    ASSERT_EQ(onsets.size(), 12u);
    EXPECT_LT(onsets[0], 50);
    for (size_t i = 1; i < onsets.size(); ++i) {
        EXPECT_NEAR(double(onsets[i] - onsets[i - 1]), 22050.0, 1.0) << "beat " << i + 1;
    }
}

// A write that fails part-way (the file size limit stands in for a full
// disk) leaves the previous file whole and no temporary file behind.
TEST(MetronomeCommand, FailedWriteKeepsThePreviousFile) {
    namespace fs = std::filesystem;
    std::string dir = (fs::temp_directory_path() / "zt-cli-out-XXXXXX").string();
    ASSERT_NE(::mkdtemp(dir.data()), nullptr);
    const fs::path path = fs::path(dir) / "click.wav";
    std::ofstream(path) << "previous take";

    rlimit saved{};
    ::getrlimit(RLIMIT_FSIZE, &saved);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = saved;
    small.rlim_cur = 64 * 1024;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    std::ostringstream out, err;
    const int code = runCli({"metronome", "--seconds", "10", "--out", path.string()}, out, err);
    ::setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, oldHandler);

    EXPECT_EQ(code, kExitFailure);
    EXPECT_NE(err.str().find("cannot write " + path.string()), std::string::npos) << err.str();
    std::ifstream in(path);
    std::string kept((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(kept, "previous take");
    EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 1);

    std::ostringstream out2, err2;
    ASSERT_EQ(runCli({"metronome", "--seconds", "1", "--out", path.string()}, out2, err2), kExitOk)
        << err2.str();
    EXPECT_EQ(fs::file_size(path), 44u + 2u * 44100u);
    EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 1);
    fs::remove_all(dir);
}

}  // namespace
}  // namespace zt::cli
