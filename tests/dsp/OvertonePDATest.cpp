// The overtone detector on magnitude spectra made to order: which peaks it
// takes, which harmonic pair it recognises, its threshold and its levels.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>
#include <vector>

#include "dsp/OvertonePDA.h"
#include "dsp/PDAFacade.h"

namespace zt {
namespace {

constexpr double kBin = 8000.0 / 4096.0;

// 2048 magnitude bins of a 4096-point transform at 8000 Hz with smooth peaks
// (hertz, height) three bins wide.
std::vector<double> spectrum(std::initializer_list<std::pair<double, double>> peaks) {
    std::vector<double> bins(2048, 0.0);
    for (const auto& [hertz, height] : peaks) {
        const double centre = hertz / kBin;
        for (int k = static_cast<int>(centre) - 2; k <= static_cast<int>(centre) + 2; ++k) {
            const double d = (k - centre) / 1.5;
            if (k >= 0 && k < 2048)
                bins[k] += height * std::max(0.0, 1.0 - d * d);
        }
    }
    return bins;
}

OvertonePDA& detector() {
    static OvertonePDA pda(TaperSettings(2));
    pda.changeSensitivity(50);  // threshold 125
    return pda;
}

double detect(const std::vector<double>& bins) {
    detector().loadForPitch(bins.data(), 4096, 8000);
    return detector().getFundamentalFrequency();
}

TEST(OvertonePDA, HarmonicPairsAndPureTones) {
    const struct {
        const char* name;
        std::vector<double> bins;
        double fundamental;
        std::uint16_t mode;
    } rows[] = {
        {"pure tone", spectrum({{440.0, 1000.0}}), 440.0, 65535},
        {"second peak under 2.5 %", spectrum({{440.0, 1000.0}, {660.0, 20.0}}), 440.0, 65535},
        {"weaker lower peak under 2.5 %", spectrum({{440.0, 1000.0}, {220.0, 20.0}}), 440.0, 65535},
        {"octave 110 and 220", spectrum({{110.0, 1000.0}, {220.0, 900.0}}), 110.0, 0},
        {"fifth 220 and 330", spectrum({{220.0, 1000.0}, {330.0, 800.0}}), 110.0, 6},
        {"the lower peak may be the weaker", spectrum({{220.0, 300.0}, {330.0, 1000.0}}), 110.0, 6},
        {"no pair within 0.03: the lower peak", spectrum({{200.0, 1000.0}, {444.4, 900.0}}), 200.0,
         65535},
        {"a third peak never halves the (1,2) fundamental",
         spectrum({{110.0, 1000.0}, {220.0, 900.0}, {165.0, 800.0}}), 110.0, 0},
        {"below 19.5 Hz and at the top bin nothing counts",
         spectrum({{7.0, 5000.0}, {3997.0, 5000.0}, {440.0, 1000.0}}), 440.0, 65535},
    };
    for (const auto& row : rows) {
        EXPECT_NEAR(detect(row.bins), row.fundamental, 0.6) << row.name;
        if (row.mode != 65535) {
            EXPECT_EQ(detector().matchedMode(), row.mode) << row.name;
        }
    }
}

TEST(OvertonePDA, PairFundamentalAveragesTheRefinedPeaks) {
    const struct {
        std::vector<double> bins;
        double a, b;
    } rows[] = {
        {spectrum({{110.0, 1000.0}, {220.0, 900.0}}), 1, 2},
        {spectrum({{220.0, 1000.0}, {330.0, 800.0}}), 2, 3},
        {spectrum({{300.0, 1000.0}, {500.0, 800.0}}), 3, 5},
    };
    for (const auto& row : rows) {
        const double f = detect(row.bins);
        const double f1 = detector().pikeFrequency(0);
        const double f2 = detector().pikeFrequency(1);
        ASSERT_LT(f1, f2);
        EXPECT_DOUBLE_EQ(f, (f1 / row.a + f2 / row.b) / 2.0) << row.a << ":" << row.b;
    }
}

TEST(OvertonePDA, RefinedPeaksLieOnATenthOfAHertzGridFromTheBinBelow) {
    const auto bins = spectrum({{440.0, 1000.0}});
    detect(bins);
    const std::uint32_t bin = 225;  // 440 / 1.953125 = 225.28
    const double refined = detector().accuracyFrequency(bin);
    EXPECT_NEAR(refined, 440.0, 0.2);
    const double steps = (refined - (bin - 1) * kBin) / 0.1;
    EXPECT_NEAR(steps, std::round(steps), 1e-9);
}

TEST(OvertonePDA, ThresholdAndLevels) {
    // Sensitivity 50 on the 50 ... 200 scale: peaks weaker than 125 are no
    // pitch; the level is floor((peak - 125) * 10 / 150) + 4 within 0 ... 10.
    const struct {
        double peak;
        bool pitch;
        int level;
    } rows[] = {
        {0.0, false, 0},  {50.0, false, 0}, {80.0, false, 1}, {100.0, false, 2}, {124.9, false, 3},
        {125.0, true, 4}, {140.0, true, 5}, {200.0, true, 9}, {215.0, true, 10}, {5000.0, true, 10},
    };
    for (const auto& row : rows) {
        std::vector<double> bins(2048, 0.0);
        bins[225] = row.peak;
        const double f = detect(bins);
        EXPECT_EQ(f > 0, row.pitch) << row.peak;
        if (!row.pitch) {
            EXPECT_EQ(f, -1.0) << row.peak;
        }
        EXPECT_EQ(detector().getVolumeLevel(), row.level) << row.peak;
    }
    OvertonePDA& pda = detector();
    pda.changeSensitivity(0);
    EXPECT_EQ(pda.getTreshold(), 50.0);
    pda.changeSensitivity(100);
    EXPECT_EQ(pda.getTreshold(), 200.0);
}

TEST(OvertonePDA, LevelOnlyIsTheStrongestBinAsAPercentageOfTheScale) {
    const struct {
        double peak;
        int percent;
    } rows[] = {{0.0, 0}, {50.0, 0}, {125.0, 50}, {170.0, 80}, {199.0, 99}, {900.0, 100}};
    for (const auto& row : rows) {
        std::vector<double> bins(2048, 0.0);
        bins[1000] = row.peak;
        detector().loadForVolume(bins.data(), 4096);
        EXPECT_EQ(detector().getVolumeLevel(), row.percent) << row.peak;
    }
}

// The peaks by the plain rule: each the strongest bin (the lowest of equals)
// from `first` below `end` at least `gap` bins from the peaks before it;
// their refined frequencies, the lower of the two strongest first.
std::array<double, 3> referencePeaks(OvertonePDA& pda, const std::vector<double>& bins,
                                     std::uint32_t first, std::uint32_t end, std::uint32_t gap) {
    std::array<double, 3> volume{};
    std::array<std::uint32_t, 3> index{first, first, first};
    for (int peak = 0; peak < 3; ++peak) {
        for (std::uint32_t i = first; i < end; ++i) {
            bool far = true;
            for (int before = 0; before < peak; ++before) {
                const std::uint32_t d = i > index[before] ? i - index[before] : index[before] - i;
                far = far && d >= gap;
            }
            if (far && bins[i] > volume[peak]) {
                volume[peak] = bins[i];
                index[peak] = i;
            }
        }
    }
    std::array<double, 3> frequency{};
    for (int k = 0; k < 3; ++k)
        frequency[k] = pda.accuracyFrequency(index[k]);
    if (frequency[0] > frequency[1])
        std::swap(frequency[0], frequency[1]);
    return frequency;
}

TEST(OvertonePDA, PeakScansFollowThePlainRule) {
    // Random spectra with peaks in every arrangement, ties included, at the
    // live geometry (gap 8) and at coarser ones (gap 0, and none at all).
    std::mt19937 random(17);
    std::uniform_int_distribution<int> level(0, 40);
    const struct {
        std::uint32_t length, rate;
    } geometries[] = {{4096, 8000}, {1024, 8000}, {256, 8000}};
    OvertonePDA& pda = detector();
    for (const auto& g : geometries) {
        const double h = static_cast<double>(g.rate) / g.length;
        const auto first = std::max(1u, static_cast<std::uint32_t>(std::floor(20 / h)));
        const std::uint32_t gap = static_cast<std::uint32_t>(std::floor(20 / h)) - 2u;
        for (int round = 0; round < 200; ++round) {
            std::vector<double> bins(g.length / 2);
            for (auto& b : bins)
                b = level(random) * 10.0;  // coarse steps: many ties
            pda.loadForPitch(bins.data(), g.length, g.rate);
            const auto expected = referencePeaks(pda, bins, first, g.length / 2 - 1, gap);
            for (int k = 0; k < 3; ++k)
                ASSERT_EQ(pda.pikeFrequency(k), expected[k]) << g.length << " round " << round;
        }
    }
}

TEST(PDAFacade, KindsAndSharedInstances) {
    const TaperSettings hann(2);
    EXPECT_EQ(PDAFacade::getFourierPDA(2, hann), &OvertonePDA::getInstance(hann));
    EXPECT_EQ(PDAFacade::getFourierPDA(2, hann)->getMaxTreshold(), 200.0);
    for (int kind : {0, 1, 3}) {
        FourierPDA* pda = PDAFacade::getFourierPDA(kind, hann);
        ASSERT_NE(pda, nullptr) << kind;
        EXPECT_EQ(pda->getMaxTreshold(), 100.0) << kind;
        // Named only: they never find a pitch.
        const auto bins = spectrum({{440.0, 1000.0}});
        pda->loadForPitch(bins.data(), 4096, 8000);
        EXPECT_EQ(pda->getFundamentalFrequency(), -1.0) << kind;
    }
    EXPECT_EQ(PDAFacade::getFourierPDA(5, hann), nullptr);
    EXPECT_EQ(PDAFacade::getFourierPDA(-1, hann), nullptr);
    // Every request applies its window to the shared detector.
    EXPECT_EQ(PDAFacade::getFourierPDA(2, TaperSettings(3))->getTaper(),
              &HammingWindow::getInstance());
    EXPECT_EQ(PDAFacade::getFourierPDA(2, TaperSettings(9))->getTaper(), nullptr);
}

}  // namespace
}  // namespace zt
