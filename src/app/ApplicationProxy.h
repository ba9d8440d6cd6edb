#pragma once
// Knows which tab to open at start: the last one chosen, read from the saved
// state.

#include <string>

#include "framework/Proxy.h"

namespace zt {

class ApplicationProxy : public Proxy {
public:
    static constexpr const char* NAME = "ApplicationProxy";

    ApplicationProxy() : Proxy(NAME) {}

    // Sets the name, resets the tab index to -1 and sends "ShowContest".
    void initializeProxy() override;

    // Reads "SelectedViewController" (0 when the file or key is missing or
    // unreadable) and sends "ActiveTabIndexReady".
    void readActiveTabIndex();
    // The saved-state file, created from the default when missing; "" when it
    // cannot be had.
    std::string getSettingsPath() const;
    int activeTabIndex() const { return activeTabIndex_; }
    // Writes the tab into the saved state (at termination).
    void saveActiveTabIndex(int index);

private:
    int activeTabIndex_ = -1;
};

}  // namespace zt
