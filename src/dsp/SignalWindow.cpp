#include "dsp/SignalWindow.h"

#include <cmath>
#include <numbers>

#include "dsp/DSPUtils.h"

namespace zt {

namespace {
constexpr double kPi = std::numbers::pi;

// N - 1 in the block's own unsigned arithmetic.
double span(std::uint32_t N) {
    return static_cast<double>(N - 1u);
}
}  // namespace

const CosineWindow& CosineWindow::getInstance() {
    static const CosineWindow instance;
    return instance;
}
double CosineWindow::getValue(double n, std::uint32_t N) const {
    return std::sin(kPi * n / span(N));
}
double CosineWindow::getZeroValue(double x, std::uint32_t N) const {
    return std::sin(kPi * (static_cast<double>((N - 1u) / 2u) + x) / span(N));
}

const GaussWindow& GaussWindow::getInstance() {
    static const GaussWindow instance;
    return instance;
}
double GaussWindow::getValue(double n, std::uint32_t N) const {
    const double r = ((n + n) - N + 1.0) / (sigma * span(N));
    return std::pow(std::numbers::e, -0.5 * r * r);
}
double GaussWindow::getZeroValue(double x, std::uint32_t N) const {
    const double r = 2.0 * x / (sigma * span(N));
    return std::pow(std::numbers::e, -0.5 * r * r);
}

const HannWindow& HannWindow::getInstance() {
    static const HannWindow instance;
    return instance;
}
double HannWindow::getValue(double n, std::uint32_t N) const {
    return 0.5 * (1.0 - std::cos(2.0 * kPi * n / span(N)));
}
double HannWindow::getZeroValue(double x, std::uint32_t N) const {
    return 0.5 * (1.0 + std::cos(2.0 * kPi * x / span(N)));
}

const HammingWindow& HammingWindow::getInstance() {
    static const HammingWindow instance;
    return instance;
}
double HammingWindow::getValue(double n, std::uint32_t N) const {
    return A0 - A1 * std::cos(2.0 * kPi * n / span(N));
}
double HammingWindow::getZeroValue(double x, std::uint32_t N) const {
    return A0 + A1 * std::cos(2.0 * kPi * x / span(N));
}

const LanczosWindow& LanczosWindow::getInstance() {
    static const LanczosWindow instance;
    return instance;
}
double LanczosWindow::getValue(double n, std::uint32_t N) const {
    return DSPUtils::sinc(2.0 * n / span(N) - 1.0);
}
double LanczosWindow::getZeroValue(double x, std::uint32_t N) const {
    return DSPUtils::sinc(2.0 * x / span(N));
}

const SignalWindow* TaperFacade::getSignalWindow(const TaperSettings& settings) {
    switch (settings.getType()) {
        case 0:
            return &CosineWindow::getInstance();
        case 1:
            return &GaussWindow::getInstance();
        case 2:
            return &HannWindow::getInstance();
        case 3:
            return &HammingWindow::getInstance();
        case 4:
            return &LanczosWindow::getInstance();
        default:
            return nullptr;
    }
}

}  // namespace zt
