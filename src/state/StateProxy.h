#pragma once
// The saved state of all tools, "saveState.plist" in the data folder: one
// section per tool plus the last selected tab. Nothing is cached; every
// request reads the file anew and every save writes it back whole and
// atomically.
//
// On first use the default file is copied from the resources. A damaged file
// is kept aside as "saveState.plist.corrupt" and replaced by the default.
// When the data folder cannot be used, reads give the default sections and
// saves are dropped with a log line.

#include <optional>
#include <string>

#include "framework/Proxy.h"
#include "framework/Value.h"

namespace zt {

class StateProxy : public Proxy {
public:
    static constexpr const char* NAME = "StateProxy";

    StateProxy() : Proxy(NAME) {}

    // Data folder + "saveState.plist", after copying the default there when no
    // file exists; "" (and the log line "Error saveState.plist") on failure.
    std::string getStateFilePath();

    // A section, or nullopt when the file has no such dictionary.
    std::optional<Dictionary> getMetronomeData();
    std::optional<Dictionary> getChromaticTunerData();
    std::optional<Dictionary> getBrainTunerData();
    std::optional<Dictionary> getChordsLibraryData();
    std::optional<Dictionary> getCommonData();

    // Merge the given keys into a section; keys not given keep their values.
    void saveMetromoneState(const Dictionary& changes);
    void saveChromaticTunerState(const Dictionary& changes);
    void saveBrainTunerState(const Dictionary& changes);
    void saveChordsLibraryState(const Dictionary& changes);
    void saveCommonState(const Dictionary& changes);

    // The common merge. A section missing from the file is not created: the
    // file is written back unchanged and the change is lost (logged).
    void saveDictionaryToFile(const Dictionary& changes, const std::string& section);

    // The last selected tab (0 to 3) and its saving at termination.
    int getSelectedViewController();
    void saveSelectedViewController(int tabIndex);

private:
    struct StateFile {
        std::string path;  // "" when no file could be used
        Dictionary root;
    };
    StateFile readState();
    std::optional<Dictionary> section(const std::string& name);
    void writeState(const StateFile& state);
};

}  // namespace zt
