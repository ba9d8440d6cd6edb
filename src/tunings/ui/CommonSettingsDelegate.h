#pragma once
// What the common settings screen asks of its mediator.

#include <string>

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
    // Makes (index -1) or changes the user's tuning at index; returns what
    // is wrong, "" when done. The screen hears the new list and the current
    // index before this returns.
    virtual std::string storeCustomTuning(int index, const std::string& name,
                                          const std::string& typed) = 0;
    virtual bool removeCustomTuning(int index) = 0;
};

}  // namespace zt
