#pragma once
// The saved state of all tools, "saveState.plist" in the data folder: one
// section per tool plus the last selected tab.
//
// The file is read once, on first use, and the parsed state is kept; every
// change is merged into it and the file is written back whole and atomically,
// only when something changed. When someone else (another instance, an
// editor) changed the file since this run last read or wrote it, it is read
// again before the write and only the keys this run changed are put over it,
// so neither side reverts the other. On first use the default file is copied from
// the resources. A damaged file is kept aside as "saveState.plist.corrupt"
// and replaced by the default; a section that is missing or not a dictionary
// is restored from the defaults, the other sections kept.
//
// When the file cannot be written (read-only folder, full disk, no data
// folder) or cannot be read without losing it, changes stay in memory and
// every later save, and flush() at the end of the run, tries again. The
// first failure of a run sends kSaveFailed (see SaveNotice) for the user.

#include <optional>
#include <string>

#include "framework/Proxy.h"
#include "framework/Value.h"
#include "state/SaveNotice.h"

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

    // The common merge, then a write when a value changed.
    void saveDictionaryToFile(const Dictionary& changes, const std::string& section);

    // The last selected tab (0 to 3) and its saving at termination.
    int getSelectedViewController();
    void saveSelectedViewController(int tabIndex);

    // Writes changes not yet on disk; true when none are left.
    bool flush();

private:
    void load();
    void readFromDisk();
    // tell: whether a failure is worth the user's notice (not for the copy
    // of the defaults at start-up, which loses nothing of theirs).
    bool write(bool tell);
    void apply(const Dictionary& changes);
    std::optional<Dictionary> section(const std::string& name);

    // Reads the file again when it is not the one last read or written.
    void takeOutsideChanges();
    void rememberFile();

    bool loaded_ = false;
    std::string path_;  // "" when there is no data folder
    Dictionary root_;
    // Changed since the last successful write.
    bool dirty_ = false;
    // The default file's bytes while root_ is just that file, to be copied.
    std::string copy_;
    // The file is there but could not be read: it is never written over;
    // pending_ (changes in the file's shape) is merged into it once it can
    // be read.
    bool blocked_ = false;
    std::string blockedWhy_;
    Dictionary pending_;
    // Every key this run changed, in the file's shape.
    Dictionary changed_;
    // What identifies the file as last read or written: inode, size, time.
    std::string fileStamp_;
    SaveNotice notice_;
};

}  // namespace zt
