// zebtools-cli analyze on sound files made here: arguments, the lines it
// prints, and files that are odd or not sound at all.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <numbers>
#include <random>
#include <sstream>
#include <vector>

#include "cli/Cli.h"
#include "cli/CliCommand.h"

namespace zt::cli {
namespace {

namespace fs = std::filesystem;

struct Outcome {
    int code;
    std::vector<std::string> lines;
    std::string err;
};

Outcome analyze(std::vector<std::string> args) {
    args.insert(args.begin(), "analyze");
    std::ostringstream out, err;
    Outcome outcome{runCli(args, out, err), {}, err.str()};
    std::istringstream lines(out.str());
    for (std::string line; std::getline(lines, line);)
        outcome.lines.push_back(line);
    return outcome;
}

std::vector<std::string> fields(const std::string& line) {
    std::istringstream in(line);
    std::vector<std::string> out;
    for (std::string field; in >> field;)
        out.push_back(field);
    return out;
}

class AnalyzeCommandTest : public ::testing::Test {
protected:
    void SetUp() override {
        folder_ = fs::temp_directory_path() / ("zt-analyze-" + std::to_string(::getpid()));
        fs::create_directories(folder_);
    }
    void TearDown() override { fs::remove_all(folder_); }

    // Writes frames (interleaved, full scale 1) to a file; returns its path.
    std::string write(const std::string& name, const std::vector<float>& frames, int rate,
                      int channels = 1, int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT) {
        const fs::path path = folder_ / name;
        SF_INFO info{0, rate, channels, format, 0, 0};
        SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
        EXPECT_NE(file, nullptr) << name << ": " << sf_strerror(nullptr);
        if (file) {
            sf_writef_float(file, frames.data(), static_cast<sf_count_t>(frames.size() / channels));
            sf_close(file);
        }
        return path.string();
    }
    std::string tone(const std::string& name, double hertz, int rate = 44100, int channels = 1,
                     int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT, double seconds = 1.5) {
        std::vector<float> frames;
        for (int i = 0; i < static_cast<int>(seconds * rate); ++i) {
            const auto s =
                static_cast<float>(0.4 * std::sin(2.0 * std::numbers::pi * hertz * i / rate));
            frames.insert(frames.end(), static_cast<std::size_t>(channels), s);
        }
        return write(name, frames, rate, channels, format);
    }

    fs::path folder_;
};

TEST_F(AnalyzeCommandTest, BadArgumentsAndUnreadableFilesExitWithTwo) {
    std::ofstream(folder_ / "notes.txt") << "not a sound\n";
    const std::string sound = tone("a.wav", 440.0);
    const struct {
        std::vector<std::string> args;
        const char* says;
    } rows[] = {
        {{}, "give a sound FILE or --mic"},
        {{(folder_ / "missing.wav").string()}, "no such file"},
        {{(folder_ / "notes.txt").string()}, "notes.txt: "},
        {{folder_.string()}, folder_.c_str()},
        {{sound, "--mic"}, "--mic"},
        {{sound, "--seconds", "3"}, "--seconds"},
        {{"--mic", "--seconds", "0"}, "--seconds"},
        {{sound, "--tuning", "53"}, "no tuning"},
        {{sound, "--tuning", "Drop E"}, "no tuning"},
        {{sound, "--taper", "5"}, "no window"},
        {{sound, "--threshold", "101"}, "--threshold"},
        {{sound, "--base", "nan"}, "--base"},
        {{sound, "--detector", "yin"}, "--detector"},
        {{write("1hz.wav", std::vector<float>(20000), 1)}, "a sample rate of 1 Hz is outside"},
        {{write("999hz.wav", std::vector<float>(2000), 999)}, "999 Hz is outside 1000 to"},
        {{write("1001khz.wav", std::vector<float>(2000), 1000001)}, "1000001 Hz is outside"},
        {{write("empty.wav", {}, 44100)}, "empty.wav: the file holds no sound (no samples)"},
        {{write("one.wav", {0.5f}, 44100)}, "one.wav: the file holds no sound (a single sample)"},
    };
    for (const auto& row : rows) {
        const Outcome run = analyze(row.args);
        EXPECT_EQ(run.code, kExitUsage) << row.says;
        EXPECT_NE(run.err.find(row.says), std::string::npos) << run.err;
        EXPECT_TRUE(run.lines.empty()) << row.says;
    }
}

TEST_F(AnalyzeCommandTest, ReadingsEveryFiftyMillisecondsFromTheFirstBlock) {
    // 1.5 s: the first block is full at 0.25 s, then one every 0.05 s.
    const Outcome run = analyze({tone("a3.wav", 220.0), "--all-notes"});
    ASSERT_EQ(run.code, kExitOk) << run.err;
    ASSERT_EQ(run.lines.size(), 26u);
    for (std::size_t i = 0; i < run.lines.size(); ++i) {
        const auto f = fields(run.lines[i]);
        ASSERT_EQ(f.size(), 5u) << run.lines[i];
        EXPECT_NEAR(std::stod(f[0]), 0.25 + 0.05 * i, 1e-9);
        EXPECT_EQ(f[1], "220.0");
        EXPECT_EQ(f[2], "A3");
        EXPECT_EQ(f[3], "+0.0");
    }
}

TEST_F(AnalyzeCommandTest, NoteChoiceOptions) {
    const std::string a3 = tone("a3.wav", 220.0);
    const struct {
        std::vector<std::string> args;
        const char* line;  // the fields after the time
    } rows[] = {
        {{a3}, "220.0 G3 +200.0"},  // Standard's strings: G3 is nearer than B3
        {{a3, "--all-notes"}, "220.0 A3 +0.0"},
        {{a3, "--all-notes", "--base", "442"}, "220.0 A3 -7.9"},
        {{tone("d2.wav", 73.42), "--tuning", "drop d"}, "73.4 D2 +0.1"},
        {{tone("d2b.wav", 73.42), "--tuning", "27"}, "73.4 D2 +0.1"},
        {{tone("e2.wav", 73.42)}, "73.4 E2 -199.9"},
        {{a3, "--all-notes", "--detector", "overtone", "--taper", "hann"}, "220.1 A3 +0.0"},
    };
    for (const auto& row : rows) {
        const Outcome run = analyze(row.args);
        ASSERT_EQ(run.code, kExitOk) << run.err;
        ASSERT_FALSE(run.lines.empty());
        const std::string& last = run.lines.back();
        EXPECT_EQ(last.substr(last.find(' ') + 1, last.rfind(' ') - last.find(' ') - 1), row.line)
            << row.args[1 % row.args.size()];
    }
}

TEST_F(AnalyzeCommandTest, JsonAndRawLines) {
    std::vector<float> frames(8000, 0.0f);  // 1 s of silence at 8 kHz, then a tone
    for (int i = 0; i < 8000; ++i)
        frames.push_back(
            static_cast<float>(0.4 * std::sin(2.0 * std::numbers::pi * 330.0 * i / 8000)));
    const std::string file = write("late.wav", frames, 8000);

    const Outcome json = analyze({file, "--json", "--all-notes"});
    ASSERT_EQ(json.code, kExitOk);
    ASSERT_EQ(json.lines.size(), 36u);
    const auto first = nlohmann::ordered_json::parse(json.lines.front());
    EXPECT_EQ(first.dump(),
              R"({"t":0.25,"frequency":-1.0,"note":null,"octave":null,"cents":null,"level":0})");
    const auto last = nlohmann::ordered_json::parse(json.lines.back());
    EXPECT_EQ(last["note"], "E");
    EXPECT_EQ(last["octave"], 4);
    EXPECT_NEAR(last["frequency"].get<double>(), 330.0, 0.01);

    const Outcome raw = analyze({file, "--raw"});
    ASSERT_EQ(raw.lines.size(), 36u);
    EXPECT_EQ(raw.lines.front(), "0.250 -1");
    EXPECT_EQ(fields(raw.lines.back())[1].substr(0, 6), "330.00");
    const Outcome rawJson = analyze({file, "--raw", "--json"});
    EXPECT_EQ(rawJson.lines.front(), R"({"t":0.25,"frequency":-1.0})");
}

TEST_F(AnalyzeCommandTest, AnyRateChannelsAndFormat) {
    const struct {
        const char* name;
        int rate, channels, format;
    } rows[] = {
        {"8k.wav", 8000, 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16},
        {"11k.wav", 11025, 2, SF_FORMAT_WAV | SF_FORMAT_PCM_16},
        {"48k.flac", 48000, 1, SF_FORMAT_FLAC | SF_FORMAT_PCM_24},
        {"96k.caf", 96000, 4, SF_FORMAT_CAF | SF_FORMAT_FLOAT},
        {"192k.wav", 192000, 1, SF_FORMAT_WAV | SF_FORMAT_PCM_32},
        {"44k.ogg", 44100, 2, SF_FORMAT_OGG | SF_FORMAT_VORBIS},
        {"lowest.wav", 1000, 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16},
        {"highest.wav", 1000000, 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16},
    };
    for (const auto& row : rows) {
        const Outcome run =
            analyze({tone(row.name, 196.0, row.rate, row.channels, row.format), "--all-notes"});
        ASSERT_EQ(run.code, kExitOk) << row.name << ": " << run.err;
        ASSERT_EQ(run.lines.size(), 26u) << row.name;
        const auto f = fields(run.lines.back());
        EXPECT_EQ(f[1], "196.0") << row.name;
        EXPECT_EQ(f[2], "G3") << row.name;
    }
}

TEST_F(AnalyzeCommandTest, OddSoundGivesNoPitchOrSenseNeverNan) {
    std::mt19937 random(5);
    std::uniform_real_distribution<float> noise(-1.0f, 1.0f);
    std::vector<float> loud(44100), dc(44100, 0.5f), clipped(44100), broken(44100);
    for (std::size_t i = 0; i < loud.size(); ++i) {
        loud[i] = noise(random);
        const double s = 4.0 * std::sin(2.0 * std::numbers::pi * 110.0 * i / 44100);
        clipped[i] = static_cast<float>(std::clamp(s, -1.0, 1.0));
        broken[i] = i % 7 == 0 ? NAN : (i % 11 == 0 ? INFINITY : 0.3f);
    }
    const struct {
        const char* name;
        std::vector<float> frames;
        const char* note;  // of the last reading; nullptr: no pitch throughout
    } rows[] = {
        {"short.wav", std::vector<float>(1000, 0.1f), nullptr},
        {"silence.wav", std::vector<float>(44100, 0.0f), nullptr},
        {"dc.wav", dc, nullptr},
        {"noise.wav", loud, ""},
        {"clipped.wav", clipped, "A2"},
        {"broken.wav", broken, ""},
    };
    for (const auto& row : rows) {
        const Outcome run = analyze({write(row.name, row.frames, 44100), "--all-notes"});
        EXPECT_EQ(run.code, kExitOk) << row.name << ": " << run.err;
        for (const auto& line : run.lines) {
            EXPECT_EQ(line.find("nan"), std::string::npos) << row.name << ": " << line;
            EXPECT_EQ(line.find("inf"), std::string::npos) << row.name << ": " << line;
        }
        if (!row.note) {
            for (const auto& line : run.lines)
                EXPECT_EQ(fields(line)[1], "-") << row.name;
        } else if (*row.note) {
            ASSERT_FALSE(run.lines.empty()) << row.name;
            EXPECT_EQ(fields(run.lines.back())[2], row.note) << row.name;
        }
    }
}

}  // namespace
}  // namespace zt::cli
