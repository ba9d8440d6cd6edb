#pragma once
// What the tapering function screen asks of its mediator.

#include "framework/Value.h"

namespace zt {

class TunerChromaticTaperDelegate {
public:
    virtual ~TunerChromaticTaperDelegate() = default;
    // Makes mode the main frequency service's window at once.
    virtual void setTaperMode(int mode) = 0;
    // Asks for the service's window; it arrives, before this returns, as the
    // screen's setTaperMode.
    virtual void getTaperMode() = 0;
    virtual void saveChromaticTunerSettings(const Dictionary& settings) = 0;
};

}  // namespace zt
