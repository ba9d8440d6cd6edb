// The tapering windows, sinc, and the window choice by type.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "dsp/DSPUtils.h"
#include "dsp/SignalWindow.h"

namespace zt {
namespace {

TEST(Windows, ValuesAtTheEndsAndTheCentre) {
    constexpr std::uint32_t N = 2001;  // odd: sample 1000 is the centre
    const double gaussEnd = std::exp(-0.125);
    const struct {
        int type;
        double start, centre, end;
    } rows[] = {
        {0, 0.0, 1.0, 0.0},            // cosine
        {1, gaussEnd, 1.0, gaussEnd},  // Gauss, sigma 2: nearly flat
        {2, 0.0, 1.0, 0.0},            // Hann
        {3, 0.08, 1.0, 0.08},          // Hamming
        {4, 0.0, 1.0, 0.0},            // Lanczos: sinc(-1), sinc(0), sinc(1)
    };
    for (const auto& row : rows) {
        const SignalWindow* window = TaperFacade::getSignalWindow(TaperSettings(row.type));
        ASSERT_NE(window, nullptr);
        EXPECT_NEAR(window->getValue(0, N), row.start, 1e-12) << row.type;
        EXPECT_NEAR(window->getValue(1000, N), row.centre, 1e-12) << row.type;
        EXPECT_NEAR(window->getValue(2000, N), row.end, 1e-12) << row.type;
        // Counted from the centre the same weights come out.
        EXPECT_NEAR(window->getZeroValue(0, N), row.centre, 1e-12) << row.type;
        EXPECT_NEAR(window->getZeroValue(500, N), window->getValue(1500, N), 1e-12) << row.type;
    }
    EXPECT_EQ(TaperFacade::getSignalWindow(TaperSettings(5)), nullptr);
    EXPECT_EQ(TaperFacade::getSignalWindow(TaperSettings(-1)), nullptr);
}

TEST(Windows, Sinc) {
    const struct {
        double x, value;
    } rows[] = {{0.0, 1.0}, {5e-7, 1.0}, {0.5, 2.0 / std::numbers::pi}, {1.0, 0.0}, {-2.0, 0.0}};
    for (const auto& row : rows)
        EXPECT_NEAR(DSPUtils::sinc(row.x), row.value, 1e-15) << row.x;
    EXPECT_EQ(DSPUtils::sinc(5e-7), 1.0);
}

TEST(Windows, SettingsKeepTheirParameterApart) {
    TaperSettings settings(3);
    EXPECT_TRUE(settings.isParamNull());
    settings.setParam(0.5);
    EXPECT_FALSE(settings.isParamNull());
    EXPECT_EQ(settings.getParam(), 0.5);
    settings.nullifyParam();
    EXPECT_TRUE(settings.isParamNull());
    EXPECT_FALSE(TaperSettings(1, 2.0).isParamNull());
}

}  // namespace
}  // namespace zt
