#pragma once
// A proxy that takes its saved section straight from the state commands
// instead of through a notification (the settings proxy with the common
// section, the main frequency service with the chromatic one).

#include "framework/Value.h"

namespace zt {

class SavedDataReceiver {
public:
    virtual ~SavedDataReceiver() = default;
    virtual void initVariables(const Dictionary& savedData) = 0;
};

}  // namespace zt
