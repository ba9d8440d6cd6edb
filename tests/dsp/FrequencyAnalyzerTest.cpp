// The analyzer: overlapping blocks from the capture, its result codes, the
// classic transform against a direct DFT, and the classic path end to end.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <memory>
#include <numbers>
#include <random>

#include "FakeCapture.h"
#include "dsp/FrequencyAnalyzer.h"
#include "dsp/OvertonePDA.h"
#include "framework/Log.h"

namespace zt {
namespace {

using testing::FakeCapture;
using testing::sine;

std::vector<std::int16_t> ramp(std::size_t first, std::size_t count) {
    std::vector<std::int16_t> samples(count);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = static_cast<std::int16_t>((first + i) % 30000);
    return samples;
}

TEST(CaptureBuffer, TheNewestTwoThousandSamplesEveryFourHundred) {
    CaptureBuffer buffer;
    std::vector<std::int16_t> block(CaptureBuffer::kBlockSamples);
    // (samples fed so far, block end expected, its first sample)
    const struct {
        std::size_t fed;
        std::int64_t end;
    } rows[] = {{1999, 0}, {2000, 2000}, {2399, 2000}, {2400, 2400}, {3000, 2800}, {9999, 9600}};
    std::size_t fed = 0;
    for (const auto& row : rows) {
        // Uneven pieces, as a capture thread delivers them.
        while (fed < row.fed) {
            const std::size_t piece = std::min<std::size_t>(137, row.fed - fed);
            const auto samples = ramp(fed, piece);
            buffer.captured(samples.data(), piece);
            fed += piece;
        }
        const CaptureBuffer::Block got = buffer.copyNewest(block.data());
        EXPECT_EQ(got.end, row.end) << row.fed;
        if (row.end == 0) {
            EXPECT_EQ(got.length, 0u);
            continue;
        }
        ASSERT_EQ(got.length, CaptureBuffer::kBlockSamples);
        EXPECT_EQ(block, ramp(static_cast<std::size_t>(row.end) - 2000, 2000)) << row.fed;
    }
    buffer.reset();
    EXPECT_EQ(buffer.copyNewest(block.data()).length, 0u);
}

TEST(CaptureBuffer, MetersTheNewestHop) {
    CaptureBuffer buffer;
    const auto samples = sine(1000.0, 800, 16384.0);
    buffer.captured(samples.data(), samples.size());
    EXPECT_NEAR(buffer.meter().peak, 0.5, 1e-3);
    EXPECT_NEAR(buffer.meter().average, 0.5 / std::sqrt(2.0), 1e-3);
}

class AnalyzerTest : public ::testing::Test {
protected:
    void SetUp() override { setLogQuiet(true); }
    void TearDown() override { setLogQuiet(false); }

    OvertonePDA detector{TaperSettings(2)};
    FrequencyAnalyzer analyzer{&detector};
    std::shared_ptr<FakeCapture> capture = std::make_shared<FakeCapture>();
};

TEST_F(AnalyzerTest, ResultCodes) {
    EXPECT_EQ(analyzer.frequency(), 0.0f);  // never listened
    analyzer.listen();
    EXPECT_EQ(analyzer.frequency(), -2.0f) << "no source";
    EXPECT_EQ(analyzer.volumeLevel(), -2);

    capture->opens = false;
    analyzer.setCapture(capture);
    analyzer.listen();
    EXPECT_EQ(analyzer.frequency(), -2.0f) << "cannot open";
    EXPECT_FALSE(analyzer.isListening());

    capture->opens = true;
    analyzer.listen();
    EXPECT_EQ(capture->rate(), 8000);
    EXPECT_TRUE(analyzer.isListening());
    capture->feed(std::vector<std::int16_t>(1999, 0));
    EXPECT_EQ(analyzer.frequency(), 0.0f) << "before the first block";
    EXPECT_EQ(analyzer.volumeLevel(), 0);
    capture->feed({0});
    EXPECT_EQ(analyzer.frequency(), -1.0f) << "silence";
    EXPECT_LE(analyzer.getPeakPower(), 3);

    capture->feed(sine(440.0, 2000));
    EXPECT_NEAR(analyzer.frequency(), 440.0f, 0.3f);
    EXPECT_EQ(analyzer.analysedBlockEnd(), 4000);
    ASSERT_TRUE(analyzer.levels());

    capture->lose();
    EXPECT_EQ(analyzer.frequency(), -2.0f) << "device gone";
    EXPECT_EQ(analyzer.volumeLevel(), -2);
    EXPECT_FALSE(analyzer.levels());

    // Listening again opens the device anew, from nothing captured.
    analyzer.listen();
    EXPECT_EQ(capture->starts, 3);
    EXPECT_EQ(analyzer.frequency(), 0.0f);
    analyzer.stop();
    EXPECT_FALSE(analyzer.isListening());
}

TEST_F(AnalyzerTest, TransformMatchesTheDirectSum) {
    std::mt19937 random(3);
    std::uniform_int_distribution<int> value(-20000, 20000);
    std::vector<std::int16_t> samples(2000);
    for (auto& s : samples)
        s = static_cast<std::int16_t>(value(random));
    analyzer.performFFT(samples);

    double largest = 0.0;
    std::vector<double> expected(2048);
    for (std::size_t k = 0; k < expected.size(); ++k) {
        std::complex<double> sum = 0.0;
        const auto step = std::polar(1.0, -2.0 * std::numbers::pi * k / 4096.0);
        std::complex<double> phasor = 1.0;
        for (std::size_t n = 0; n < samples.size(); ++n) {
            sum += samples[n] * HannWindow::getInstance().getValue(n, 2000) * phasor;
            phasor *= step;
        }
        expected[k] = std::abs(sum) / 4096.0;
        largest = std::max(largest, expected[k]);
    }
    for (std::size_t k = 0; k < expected.size(); ++k)
        ASSERT_NEAR(analyzer.magnitudes()[k], expected[k], 2e-5 * largest) << k;
}

TEST_F(AnalyzerTest, ClassicPathOnPureTones) {
    analyzer.setCapture(capture);
    analyzer.listen();
    // With a tapering window the strongest peak is the tone. The nearly flat
    // Gauss window, the default, lets its first side lobe through the 2.5 %
    // rule and 440 Hz reads as a "fifth" pair: 421.9 Hz.
    const struct {
        int window;
        double hertz, reads;
    } rows[] = {
        {2, 82.41, 82.41}, {2, 440.0, 440.0},   {3, 440.0, 440.0},
        {0, 440.0, 440.0}, {2, 1318.5, 1318.5}, {1, 440.0, 421.9},
    };
    for (const auto& row : rows) {
        detector.changeTaperSettings(TaperSettings(row.window));
        capture->feed(sine(row.hertz, 2000));
        EXPECT_NEAR(analyzer.frequency(), row.reads, 0.2) << row.window << " " << row.hertz;
    }
}

}  // namespace
}  // namespace zt
