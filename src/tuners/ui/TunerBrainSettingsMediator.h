#pragma once
// The by-ear tuner's settings page, registered under its own name: the
// tunings list opens on the by-ear tuner's stack ("ShowTunerBrainTuning")
// and the switch is saved with "SaveBrainTunerState".

#include "tunings/ui/ToolSettingsMediator.h"

namespace zt {

class TunerBrainSettingsMediator : public ToolSettingsMediator {
public:
    static constexpr const char* NAME = "TunerBrainSettingsMediator";

    explicit TunerBrainSettingsMediator(ToolSettings* screen)
        : ToolSettingsMediator(NAME, screen, "SaveBrainTunerState", "ShowTunerBrainTuning") {}
};

}  // namespace zt
