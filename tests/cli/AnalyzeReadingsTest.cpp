// What zebtools-cli analyze reads: cents to a tenth of pure tones across the
// guitar's range, no pitch once a tone has been silent for a second, and
// live sound handed on block by block, each block once, however late the
// reader comes.
#include <gtest/gtest.h>
#include <sndfile.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <numbers>
#include <sstream>

#include "cli/Cli.h"
#include "cli/CliCommand.h"
#include "cli/QueuedCapture.h"
#include "dsp/CaptureBuffer.h"
#include "dsp/FakeCapture.h"

namespace zt::cli {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

// The JSON readings of a file.
std::vector<Json> readings(const std::string& file, std::vector<std::string> options) {
    options.insert(options.begin(), {"analyze", file, "--json"});
    std::ostringstream out, err;
    EXPECT_EQ(runCli(options, out, err), kExitOk) << err.str();
    std::vector<Json> lines;
    std::istringstream text(out.str());
    for (std::string line; std::getline(text, line);)
        lines.push_back(Json::parse(line));
    return lines;
}

// A sine of `hertz` at 8000 Hz for `seconds`, then `silence` seconds of
// nothing, as 16-bit sound in the test's own folder.
fs::path toneFile(double hertz, double seconds, double silence = 0.0) {
    const fs::path path = fs::temp_directory_path() /
                          ("zt-readings-" + std::to_string(::getpid()) + "-" +
                           std::to_string(hertz) + "-" + std::to_string(silence) + ".wav");
    std::vector<short> samples(static_cast<std::size_t>((seconds + silence) * 8000));
    for (std::size_t i = 0; i < static_cast<std::size_t>(seconds * 8000); ++i)
        samples[i] = static_cast<short>(
            std::lround(12000.0 * std::sin(2.0 * std::numbers::pi * hertz * i / 8000.0)));
    SF_INFO info{0, 8000, 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0, 0};
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    EXPECT_NE(file, nullptr);
    sf_write_short(file, samples.data(), static_cast<sf_count_t>(samples.size()));
    sf_close(file);
    return path;
}

// Every reading of a steady sine from E2 to E6, 45 cents either side of the
// note or anywhere between, names the note and its offset within 0.1 cent.
TEST(AnalyzeReadingsTest, PureTonesReadToATenthOfACent) {
    const double e2 = 82.4069;
    // E2, A2, D3, G3, B3, E4, B4, E5, B5, E6.
    for (const int semitones : {0, 5, 10, 15, 19, 24, 31, 36, 43, 48}) {
        for (const double offset : {-45.0, -20.0, -7.3, 0.0, 3.3, 12.5, 20.0, 45.0}) {
            const double hertz = e2 * std::pow(2.0, (semitones * 100 + offset) / 1200.0);
            const fs::path file = toneFile(hertz, 0.6);
            const std::vector<Json> lines = readings(file.string(), {"--all-notes"});
            fs::remove(file);
            ASSERT_EQ(lines.size(), 8u);
            for (const Json& line : lines) {
                EXPECT_NEAR(line["cents"].get<double>(), offset, 0.1 + 1e-9)
                    << hertz << " Hz: " << line.dump();
                EXPECT_EQ(line["octave"].get<int>(), 2 + (semitones + 4) / 12) << hertz;
            }
        }
    }
}

// A tone, then silence: held for up to a second after the last block in
// which the detector found pitch, then "-" (frequency -1); the classic
// detector holds to the end.
TEST(AnalyzeReadingsTest, SilenceEndsTheHoldAfterASecondUnlessClassic) {
    const fs::path file = toneFile(220.0, 1.0, 2.0);
    double lastPitch = 0.0;
    for (const Json& line : readings(file.string(), {"--raw"})) {
        if (line["frequency"].get<double>() > 0)
            lastPitch = line["t"].get<double>();
    }
    ASSERT_GE(lastPitch, 1.0);
    ASSERT_LT(lastPitch, 1.25) << "the block from 1.0 to 1.25 s is all silence";
    for (const bool classic : {false, true}) {
        const std::vector<Json> lines =
            readings(file.string(), classic ? std::vector<std::string>{"--detector", "overtone"}
                                            : std::vector<std::string>{});
        ASSERT_EQ(lines.size(), 56u);
        for (const Json& line : lines) {
            const double t = line["t"].get<double>();
            const bool pitch = line["frequency"].get<double>() > 0;
            const bool held = classic || t - lastPitch < 1.0 - 1e-6;
            EXPECT_EQ(pitch, held)
                << classic << " last pitch at " << lastPitch << ": " << line.dump();
            EXPECT_EQ(line["note"].is_null(), !held) << line.dump();
        }
    }
    std::ostringstream out, err;
    runCli({"analyze", file.string()}, out, err);
    EXPECT_NE(out.str().find(" - - - "), std::string::npos) << out.str();
    fs::remove(file);
}

// The capture thread may deliver a second of sound before the reader wakes:
// the reader still gets every 50 ms block once, in order, and the source's
// loss shows only once what it delivered has been read.
TEST(AnalyzeReadingsTest, QueuedLiveSoundGivesEveryBlockOnce) {
    auto source = std::make_shared<zt::testing::FakeCapture>();
    QueuedCapture queued(source, 8000);
    CaptureBuffer blocks;
    ASSERT_TRUE(queued.start(blocks, 8000));
    std::vector<std::int16_t> ramp(9000);
    for (std::size_t i = 0; i < ramp.size(); ++i)
        ramp[i] = static_cast<std::int16_t>(i % 20000);
    // Pieces of odd sizes; the last 1000 samples find the queue full.
    for (std::size_t at = 0; at < ramp.size(); at += 700)
        source->feed({ramp.begin() + at, ramp.begin() + std::min(at + 700, ramp.size())});
    EXPECT_EQ(queued.lostSamples(), 1000);

    std::array<std::int16_t, CaptureBuffer::kBlockSamples> block{};
    std::int64_t expectedEnd = CaptureBuffer::kBlockSamples;
    source->lose();
    for (int hop = 1; queued.pump(CaptureBuffer::kHopSamples); ++hop) {
        const CaptureBuffer::Block got = blocks.copyNewest(block.data());
        if (hop * CaptureBuffer::kHopSamples < CaptureBuffer::kBlockSamples)
            continue;
        ASSERT_EQ(got.end, expectedEnd);
        EXPECT_EQ(block.front(), ramp[static_cast<std::size_t>(got.end) - 2000]);
        EXPECT_EQ(block.back(), ramp[static_cast<std::size_t>(got.end) - 1]);
        EXPECT_EQ(queued.state(),
                  got.end < 8000 ? AudioCapture::State::Running : AudioCapture::State::Lost);
        expectedEnd += CaptureBuffer::kHopSamples;
    }
    EXPECT_EQ(expectedEnd, 8000 + CaptureBuffer::kHopSamples) << "every block up to 8000";
    EXPECT_FALSE(queued.waitFor(CaptureBuffer::kHopSamples, std::chrono::milliseconds(1)));
}

}  // namespace
}  // namespace zt::cli
