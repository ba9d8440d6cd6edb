#pragma once
// Connects the by-ear tuner's settings screen to the rest of the program:
// the tuning's name from SettingsProxy, the way to the tunings list
// ("ShowTunerBrainTuning") and the saved state ("SaveBrainTunerState").

#include <memory>

#include "screen/ScreenMediator.h"
#include "tuners/ui/TunerBrainSettings.h"
#include "tuners/ui/TunerBrainSettingsDelegate.h"

namespace zt {

class SettingsProxy;

class TunerBrainSettingsMediator
    : public ScreenMediator<TunerBrainSettings, TunerBrainSettingsDelegate> {
public:
    static constexpr const char* NAME = "TunerBrainSettingsMediator";

    explicit TunerBrainSettingsMediator(TunerBrainSettings* screen)
        : ScreenMediator(NAME, screen) {}

    void saveBrainTunerSettings(const Dictionary& settings) override;
    // Row 2: "ShowTunerBrainTuning".
    void chooseBrainOptions(int row) override;
    std::string getTuningName() const override;

protected:
    void registered() override;

private:
    std::shared_ptr<SettingsProxy> settings_;
};

}  // namespace zt
