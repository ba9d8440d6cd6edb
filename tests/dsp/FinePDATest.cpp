// The fine detector on signals made to order: what it reads, what it
// refuses, and that its level and gate follow the classic scale.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "FakeCapture.h"
#include "PluckedString.h"
#include "dsp/FinePDA.h"
#include "dsp/OvertonePDA.h"

namespace zt {
namespace {

using testing::sine;

double cents(double f, double truth) {
    return 1200.0 * std::log2(f / truth);
}

// A sum of harmonics of f0 with the given amplitudes (harmonic 1 first).
std::vector<std::int16_t> harmonics(double f0, std::vector<double> amplitudes,
                                    std::size_t count = 2000) {
    std::vector<std::int16_t> samples(count);
    for (std::size_t n = 0; n < count; ++n) {
        double s = 0.0;
        for (std::size_t h = 0; h < amplitudes.size(); ++h)
            s += amplitudes[h] * std::sin(2.0 * std::numbers::pi * f0 * (h + 1) * n / 8000.0 + h);
        samples[n] = static_cast<std::int16_t>(std::lround(s));
    }
    return samples;
}

std::vector<std::int16_t> pluck(double hertz, double inharmonicity, double after, unsigned seed) {
    std::mt19937 random(seed);
    testing::StringPluck p;
    p.frequency = hertz;
    p.inharmonicity = inharmonicity;
    p.fundamentalGain = 0.1;
    const auto all = testing::toSamples(testing::renderPluck(p, 0.0, after, 8000, random));
    return {all.end() - 2000, all.end()};
}

class FinePDATest : public ::testing::Test {
protected:
    double read(const std::vector<std::int16_t>& block) {
        fine.loadSamples(block, 8000);
        return fine.getFundamentalFrequency();
    }
    FinePDA fine{TaperSettings(1)};
};

TEST_F(FinePDATest, PureTonesToATenthOfACent) {
    for (double hertz : {40.0, 55.0, 82.41, 196.0, 440.0, 1046.5, 1318.5, 2000.0}) {
        const double f = read(sine(hertz, 2000, 8000.0, 777));
        EXPECT_NEAR(cents(f, hertz), 0.0, 0.1) << hertz;
        EXPECT_GT(fine.clarity(), 0.9) << hertz;
    }
}

TEST_F(FinePDATest, TheFundamentalWhereverTheEnergyIs) {
    const struct {
        const char* name;
        std::vector<std::int16_t> block;
        double truth, within;
    } rows[] = {
        {"missing fundamental", harmonics(110.0, {0, 4000, 3000, 2000}), 110.0, 0.1},
        {"weak fundamental, strong second", harmonics(98.0, {150, 6000, 500, 400}), 98.0, 0.1},
        {"only odd harmonics", harmonics(220.0, {3000, 0, 2000, 0, 1500}), 220.0, 0.1},
        {"a fifth above the octave dominates", harmonics(82.41, {300, 1000, 6000, 800}), 82.41,
         0.1},
        {"stiff low string, weak fundamental", pluck(55.0, 3e-4, 0.6, 1), 55.0, 1.0},
        {"stiff high string", pluck(659.3, 1e-4, 0.6, 2), 659.3, 1.0},
        {"string at the end of its ring", pluck(146.8, 1e-4, 2.0, 3), 146.8, 1.0},
    };
    for (const auto& row : rows)
        EXPECT_NEAR(cents(read(row.block), row.truth), 0.0, row.within) << row.name;
}

TEST_F(FinePDATest, NoPitchWhereThereIsNone) {
    std::mt19937 random(9);
    std::normal_distribution<double> noise(0.0, 3000.0);
    std::vector<std::int16_t> hiss(2000);
    for (auto& s : hiss)
        s = static_cast<std::int16_t>(std::clamp(noise(random), -32768.0, 32767.0));
    auto justBegun = std::vector<std::int16_t>(1800, 0);
    const auto tone = sine(440.0, 200);
    justBegun.insert(justBegun.end(), tone.begin(), tone.end());
    const struct {
        const char* name;
        std::vector<std::int16_t> block;
    } rows[] = {
        {"silence", std::vector<std::int16_t>(2000, 0)},
        {"DC", std::vector<std::int16_t>(2000, 12000)},
        {"white noise", hiss},
        {"a note begun 25 ms ago", justBegun},
        {"under the gate", sine(440.0, 2000, 10.0)},
        {"too short a block", sine(440.0, 1000)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(read(row.block), -1.0) << row.name;
}

TEST_F(FinePDATest, LevelAndGateOnTheClassicScale) {
    // The same tone reads the same level from both detectors, for any window.
    OvertonePDA classic{TaperSettings(1)};
    std::array<double, 2048> spectrum{};
    for (int window : {1, 2, 3}) {
        fine.changeTaperSettings(TaperSettings(window));
        classic.changeTaperSettings(TaperSettings(window));
        for (double amplitude : {300.0, 1000.0, 3000.0}) {
            const auto block = sine(440.0, 2000, amplitude);
            read(block);
            // The classic spectrum of the block, as the analyzer makes it.
            const SignalWindow* w = classic.getTaper();
            for (std::size_t k = 220; k < 232; ++k) {
                std::complex<double> sum = 0.0;
                for (std::size_t n = 0; n < 2000; ++n)
                    sum += block[n] * w->getValue(n, 2000) *
                           std::polar(1.0, -2.0 * std::numbers::pi * k * n / 4096.0);
                spectrum[k] = std::abs(sum) / 4096.0;
            }
            classic.loadForPitch(spectrum.data(), 4096, 8000);
            EXPECT_NEAR(fine.getFundamentalVolume() / classic.getFundamentalVolume(), 1.0, 0.03)
                << window << " " << amplitude;
            EXPECT_EQ(fine.getVolumeLevel(), classic.getVolumeLevel()) << amplitude;
        }
    }
    // The gate follows the sensitivity: a tone the default hears, 100 % does not.
    fine.changeTaperSettings(TaperSettings(1));
    const auto quiet = sine(440.0, 2000, 60.0);
    fine.changeSensitivity(10);
    EXPECT_GT(read(quiet), 0.0);
    fine.changeSensitivity(100);
    EXPECT_EQ(read(quiet), -1.0);
}

}  // namespace
}  // namespace zt
