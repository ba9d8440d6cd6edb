// zebtools-cli metronome: argument checking, and a render with the real packs.
#include <gtest/gtest.h>
#include <sndfile.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <sstream>
#include <thread>
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
        {{"--trainer", "60:120:5", "--out", "x.wav"}, "--trainer: must be START:END:STEP:BARS"},
        {{"--trainer", "60:120:5:4:1", "--out", "x.wav"}, "--trainer"},
        {{"--trainer", "19:120:5:4", "--out", "x.wav"}, "--trainer"},
        {{"--trainer", "60:241:5:4", "--out", "x.wav"}, "--trainer"},
        {{"--trainer", "60:120:0:4", "--out", "x.wav"}, "--trainer"},
        {{"--trainer", "60:120:-5:4", "--out", "x.wav"}, "negative only when END is below"},
        {{"--trainer", "60:120:5:0", "--out", "x.wav"}, "--trainer"},
        {{"--trainer", "60::5:4", "--out", "x.wav"}, "--trainer"},
        {{"--beats", "ANX", "--out", "x.wav"}, "--beats: must be 1 to 16 letters"},
        {{"--beats", "", "--out", "x.wav"}, "--beats"},
        {{"--beats", "ANN", "--out", "x.wav"}, "has 3 letters, but a bar of 2/4 has 2 beats"},
        {{"--beats", "NA", "--accent", "on", "--out", "x.wav"}, "--accent on disagrees"},
        {{"--mute", "3", "--out", "x.wav"}, "--mute: must be PLAY:SILENT"},
        {{"--mute", "0:1", "--out", "x.wav"}, "--mute"},
        {{"--mute", "3:100", "--out", "x.wav"}, "--mute"},
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

    // The practice options, as the app saves them in its state code.
    const std::vector<std::pair<std::vector<std::string>, std::string>> rows = {
        {{"--beats", "AS"}, "1-2-4-1-1-0-60-ASNNNNNNNNNNNNNN-0-60-120-5-4-0-3-1"},
        {{"--beats", "SN"}, "1-2-4-1-0-0-60-SNNNNNNNNNNNNNNN-0-60-120-5-4-0-3-1"},
        {{"--beats", "na", "--accent", "off"},
         "1-2-4-1-0-0-60-NANNNNNNNNNNNNNN-0-60-120-5-4-0-3-1"},
        {{"--trainer", "60:120:5:4"}, "1-2-4-1-1-0-60-ANNNNNNNNNNNNNNN-1-60-120-5-4-0-3-1"},
        {{"--trainer", "140:90:-10:2"}, "1-2-4-1-1-0-60-ANNNNNNNNNNNNNNN-1-140-90-10-2-0-3-1"},
        {{"--trainer", "140:90:10:2"}, "1-2-4-1-1-0-60-ANNNNNNNNNNNNNNN-1-140-90-10-2-0-3-1"},
        {{"--mute", "3:1"}, "1-2-4-1-1-0-60-ANNNNNNNNNNNNNNN-0-60-120-5-4-1-3-1"},
        {{"--signature", "3/4", "--beats", "ANS", "--mute", "2:2", "--trainer", "80:80:1:1"},
         "1-3-4-1-1-0-60-ANSNNNNNNNNNNNNN-1-80-80-1-1-1-2-2"},
    };
    for (const auto& [options, state] : rows) {
        CLI::App parent;
        MetronomeCommand practice(parent);
        std::vector<std::string> line = metronome(options);
        line.insert(line.end(), {"--bpm", "80", "--out", "x.wav"});
        std::reverse(line.begin(), line.end());
        parent.parse(line);
        EXPECT_EQ(practice.job().setup.currentState(), state) << options.front();
    }
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

// The --out file in a folder of its own: what the folder holds beforehand,
// and what the run must leave there.
struct OutCase {
    const char* what;
    std::function<void(const std::filesystem::path& dir)> before;
    int code;
    const char* says;
    std::function<void(const std::filesystem::path& dir)> after;
};

void PrintTo(const OutCase& c, std::ostream* os) {
    *os << c.what;
}

class OutFileTest : public ::testing::TestWithParam<OutCase> {};

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream in(path);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

int entriesIn(const std::filesystem::path& dir) {
    namespace fs = std::filesystem;
    return static_cast<int>(std::distance(fs::directory_iterator(dir), fs::directory_iterator()));
}

const OutCase kOutCases[] = {
    {"a symbolic link is replaced, the file it points to is not",
     [](const auto& dir) {
         std::filesystem::create_directory(dir / "elsewhere");
         std::ofstream(dir / "elsewhere" / "theirs.txt") << "theirs";
         std::filesystem::create_symlink(dir / "elsewhere" / "theirs.txt", dir / "click.wav");
     },
     kExitOk, "",
     [](const auto& dir) {
         EXPECT_EQ(contentOf(dir / "elsewhere" / "theirs.txt"), "theirs");
         EXPECT_EQ(entriesIn(dir / "elsewhere"), 1);
         EXPECT_TRUE(
             std::filesystem::is_regular_file(std::filesystem::symlink_status(dir / "click.wav")));
     }},
    {"a new file honours the umask", [](const auto&) { ::umask(077); }, kExitOk, "",
     [](const auto& dir) {
         ::umask(022);
         struct stat st {};
         ASSERT_EQ(::stat((dir / "click.wav").c_str(), &st), 0);
         EXPECT_EQ(st.st_mode & 0777, 0600u);
     }},
    {"a read-only file is reported as such and kept",
     [](const auto& dir) {
         std::ofstream(dir / "click.wav") << "kept";
         std::filesystem::permissions(dir / "click.wav", std::filesystem::perms::owner_read);
     },
     kExitFailure, "click.wav: the file is read-only",
     [](const auto& dir) {
         EXPECT_EQ(contentOf(dir / "click.wav"), "kept");
         EXPECT_EQ(entriesIn(dir), 1);
     }},
    {"temporaries of killed runs are removed, a fresh one is left",
     [](const auto& dir) {
         std::ofstream(dir / ".click.wav.aB3dE6") << "stale";
         std::ofstream(dir / ".click.wav.fG7hI8") << "in progress";
         std::filesystem::last_write_time(
             dir / ".click.wav.aB3dE6",
             std::filesystem::file_time_type::clock::now() - std::chrono::minutes(2));
     },
     kExitOk, "",
     [](const auto& dir) {
         EXPECT_FALSE(std::filesystem::exists(dir / ".click.wav.aB3dE6"));
         EXPECT_TRUE(std::filesystem::exists(dir / ".click.wav.fG7hI8"));
     }},
};

TEST_P(OutFileTest, WritesBesideThePathAsGiven) {
    namespace fs = std::filesystem;
    std::string dir = (fs::temp_directory_path() / "zt-cli-out-XXXXXX").string();
    ASSERT_NE(::mkdtemp(dir.data()), nullptr);
    GetParam().before(dir);
    const fs::path path = fs::path(dir) / "click.wav";
    std::ostringstream out, err;
    EXPECT_EQ(runCli({"metronome", "--seconds", "1", "--out", path.string()}, out, err),
              GetParam().code)
        << err.str();
    EXPECT_NE(err.str().find(GetParam().says), std::string::npos) << err.str();
    GetParam().after(dir);
    fs::remove_all(dir);
}

INSTANTIATE_TEST_SUITE_P(Cases, OutFileTest, ::testing::ValuesIn(kOutCases));

// Ctrl-C or a kill during a long render leaves no temporary file behind.
TEST(MetronomeCommand, InterruptedRenderRemovesItsTemporary) {
    namespace fs = std::filesystem;
    std::string dir = (fs::temp_directory_path() / "zt-cli-out-XXXXXX").string();
    ASSERT_NE(::mkdtemp(dir.data()), nullptr);
    for (const int signal : {SIGINT, SIGTERM}) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            std::ostringstream out, err;
            ::_exit(
                runCli({"metronome", "--seconds", "3600", "--out", dir + "/long.wav"}, out, err));
        }
        // Once the WAV header is in, the render is under way.
        const auto started = [&dir] {
            std::error_code ec;
            for (const auto& entry : fs::directory_iterator(dir))
                if (fs::file_size(entry.path(), ec) > 0)
                    return true;
            return false;
        };
        while (!started())
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        ::kill(child, signal);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal);
        EXPECT_EQ(entriesIn(dir), 0) << "after signal " << signal;
    }
    fs::remove_all(dir);
}

}  // namespace
}  // namespace zt::cli
