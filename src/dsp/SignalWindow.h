#pragma once
// The five tapering windows, each a shared instance. getValue(n, N) is the
// weight of sample n (0 to N - 1) of an N-sample block; getZeroValue(x, N)
// the same weight for a position x counted from the block's centre.
//
//   cosine   sin(pi n / (N-1))
//   Gauss    e ^ (-0.5 ((2n - N + 1) / (sigma (N-1)))^2), sigma = 2: nearly flat,
//            0.88 at both ends
//   Hann     0.5 (1 - cos(2 pi n / (N-1)))
//   Hamming  0.54 - 0.46 cos(2 pi n / (N-1))
//   Lanczos  sinc(2n / (N-1) - 1)

#include <cstdint>

#include "dsp/TaperSettings.h"

namespace zt {

class SignalWindow {
public:
    virtual ~SignalWindow() = default;
    virtual double getValue(double n, std::uint32_t N) const { return getZeroValue(n, N); }
    virtual double getZeroValue(double, std::uint32_t) const { return 0.0; }
};

class CosineWindow final : public SignalWindow {
public:
    static const CosineWindow& getInstance();
    double getValue(double n, std::uint32_t N) const override;
    double getZeroValue(double x, std::uint32_t N) const override;
};

class GaussWindow final : public SignalWindow {
public:
    static const GaussWindow& getInstance();
    double getValue(double n, std::uint32_t N) const override;
    double getZeroValue(double x, std::uint32_t N) const override;

    const double sigma = 2.0;
};

class HannWindow final : public SignalWindow {
public:
    static const HannWindow& getInstance();
    double getValue(double n, std::uint32_t N) const override;
    double getZeroValue(double x, std::uint32_t N) const override;
};

class HammingWindow final : public SignalWindow {
public:
    static const HammingWindow& getInstance();
    double getValue(double n, std::uint32_t N) const override;
    double getZeroValue(double x, std::uint32_t N) const override;

    const double A0 = 0.54;
    const double A1 = 0.46;
};

class LanczosWindow final : public SignalWindow {
public:
    static const LanczosWindow& getInstance();
    double getValue(double n, std::uint32_t N) const override;
    double getZeroValue(double x, std::uint32_t N) const override;
};

class TaperFacade {
public:
    // The shared window of the settings' type; nullptr for an unknown type.
    static const SignalWindow* getSignalWindow(const TaperSettings& settings);
};

}  // namespace zt
