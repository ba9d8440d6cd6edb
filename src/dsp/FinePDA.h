#pragma once
#include "dsp/FourierPDA.h"
namespace zt {
class FinePDA final : public FourierPDA {
public:
    explicit FinePDA(const TaperSettings& settings) : FourierPDA(50.0, 200.0, settings) {}
    static FinePDA& getInstance(const TaperSettings& settings);
    bool readsSamples() const override { return true; }
    void loadSamples(std::span<const std::int16_t>, std::uint32_t) override {}
};
}  // namespace zt
