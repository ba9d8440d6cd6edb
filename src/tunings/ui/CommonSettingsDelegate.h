#pragma once
// What the common settings screen asks of its mediator.

#include "framework/Value.h"

namespace zt {

class CommonSettingsDelegate {
public:
    virtual ~CommonSettingsDelegate() = default;
    // Re-reads the current tuning; the answer arrives, before this returns,
    // as the screen's setTuningSetting.
    virtual void getTuning() = 0;
    // Makes index the current tuning and tells the chords library.
    virtual void setTuning(int index) = 0;
    // Stores the common settings ({"Tuning": index}).
    virtual void saveCommonSettings(const Dictionary& settings) = 0;
};

}  // namespace zt
