#pragma once
// A detector that reads out the frequencies a test scripts, one for every
// block it is given, then no pitch; its level is always 7.

#include <deque>

#include "dsp/FourierPDA.h"

namespace zt::testing {

class ScriptedPDA final : public FourierPDA {
public:
    ScriptedPDA() : FourierPDA(50.0, 200.0, TaperSettings(1)) {}
    bool readsSamples() const override { return true; }
    void loadSamples(std::span<const std::int16_t>, std::uint32_t) override {
        fundamentalFrequency = script.empty() ? NO_FREQUENCY : script.front();
        if (!script.empty())
            script.pop_front();
        volumeLevel = 7;
    }
    std::deque<double> script;
};

}  // namespace zt::testing
