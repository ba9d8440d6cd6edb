// The radix-2 transform against a direct DFT, spectra of sample blocks, and
// the Newton interpolator.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "dsp/FourierUtils.h"
#include "dsp/Interpolator.h"
#include "dsp/SignalWindow.h"

namespace zt {
namespace {

ComplexBuffer directDft(const ComplexBuffer& x, int sign) {
    const std::size_t n = x.size();
    ComplexBuffer out(n);
    for (std::size_t k = 0; k < n; ++k) {
        for (std::size_t j = 0; j < n; ++j)
            out[k] += x[j] * std::polar(1.0, sign * 2.0 * std::numbers::pi * j * k / n);
    }
    return out;
}

TEST(FourierUtils, TransformsMatchTheDirectSums) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> value(-1000.0, 1000.0);
    for (std::size_t n : {1u, 2u, 8u, 64u, 512u}) {
        ComplexBuffer x(n);
        for (auto& v : x)
            v = {value(random), value(random)};
        const ComplexBuffer forward = FourierUtils::straightFourierTransform(x);
        const ComplexBuffer inverse = FourierUtils::inverseFourierTransform(x);
        const ComplexBuffer expectedForward = directDft(x, -1);
        const ComplexBuffer expectedInverse = directDft(x, +1);
        for (std::size_t k = 0; k < n; ++k) {
            EXPECT_NEAR(std::abs(forward[k] - expectedForward[k] / static_cast<double>(n)), 0.0,
                        1e-9)
                << n << " bin " << k;
            EXPECT_NEAR(std::abs(inverse[k] - expectedInverse[k]), 0.0, 1e-7) << n << " " << k;
        }
    }
}

TEST(FourierUtils, ConstantGoesToBinZeroAndBack) {
    const ComplexBuffer constant(16, {3.5, 0.0});
    const ComplexBuffer spectrum = FourierUtils::straightFourierTransform(constant);
    EXPECT_NEAR(spectrum[0].real(), 3.5, 1e-12);
    for (std::size_t k = 1; k < spectrum.size(); ++k)
        EXPECT_NEAR(std::abs(spectrum[k]), 0.0, 1e-12) << k;
    for (const auto& v : FourierUtils::inverseFourierTransform(spectrum))
        EXPECT_NEAR(std::abs(v - std::complex<double>(3.5, 0.0)), 0.0, 1e-12);
}

TEST(FourierUtils, SilentBlocksHaveNoSpectrum) {
    const struct {
        const char* name;
        std::vector<std::int16_t> samples;
        bool silent;
    } rows[] = {
        {"zeros", std::vector<std::int16_t>(64, 0), true},
        {"all negative", std::vector<std::int16_t>(64, -3000), true},
        {"never above 1", {1, 0, -1, 1, -20000, 1}, true},
        {"one sample of 2", {0, 0, 2, 0}, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(!FourierUtils::calculateSpectrum(row.samples, 64).has_value(), row.silent)
            << row.name;
        EXPECT_EQ(
            !FourierUtils::calculateSpectrumWithTaper(row.samples, 64, HannWindow::getInstance())
                 .has_value(),
            row.silent)
            << row.name;
    }
}

TEST(FourierUtils, WindowedSpectrumOfACosineAndItsMagnitudes) {
    // 48 samples of a cosine on bin 8 of a 64-point transform, Hann over the
    // 48 samples only; the padding stays zero.
    std::vector<std::int16_t> samples(48);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] =
            static_cast<std::int16_t>(std::lround(1000 * std::cos(std::numbers::pi * i / 4)));
    const auto spectrum =
        FourierUtils::calculateSpectrumWithTaper(samples, 64, HannWindow::getInstance());
    ASSERT_TRUE(spectrum);
    ComplexBuffer expected(64);
    for (std::size_t i = 0; i < samples.size(); ++i)
        expected[i] = samples[i] * HannWindow::getInstance().getValue(i, 48);
    expected = directDft(expected, -1);
    for (std::size_t k = 0; k < 64; ++k)
        EXPECT_NEAR(std::abs((*spectrum)[k] - expected[k] / 64.0), 0.0, 1e-9) << k;

    const auto half = FourierUtils::calculateVolume(*spectrum, false);
    const auto quarter = FourierUtils::calculateVolume(*spectrum, true);
    ASSERT_EQ(half.size(), 32u);
    ASSERT_EQ(quarter.size(), 16u);
    EXPECT_EQ(std::max_element(half.begin(), half.end()) - half.begin(), 8);
    EXPECT_DOUBLE_EQ(quarter[8], std::abs((*spectrum)[8]));
}

TEST(Interpolator, ThreePointsFollowAParabolaForwardAndBackward) {
    // y = 2 + 3x - x^2 at x = 0, 1, 2 (and a value outside the table).
    const double values[] = {99.0, 2.0, 4.0, 4.0, 99.0};
    Interpolator interpolator(3);
    interpolator.prepareMatrix(values, 2);
    for (double x : {0.0, 0.25, 0.9, 1.0, 1.5, 2.0}) {
        const double y = 2 + 3 * x - x * x;
        EXPECT_NEAR(interpolator.straightInterpolation(x, 0.0, 2.0, 1.0), y, 1e-12) << x;
        EXPECT_NEAR(interpolator.inverseInterpolation(x, 0.0, 2.0, 1.0), y, 1e-12) << x;
        EXPECT_NEAR(interpolator.interpolation(x, 0.0, 2.0, 1.0), y, 1e-12) << x;
    }
    // On a grid of step 2 Hz starting at 100 Hz the same table is stretched.
    EXPECT_NEAR(interpolator.interpolation(103.0, 100.0, 104.0, 2.0), 4.25, 1e-12);
}

}  // namespace
}  // namespace zt
