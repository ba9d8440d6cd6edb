#pragma once
// The tunings and the current tuning, shared by the tuners and the chords
// library: the catalogue followed by the user's own tunings (TuningList).
// The current index comes from the common saved section at start-up and
// changes on the common settings screen. A user's tuning is saved by name
// ("CustomTuning", with "Tuning" 0 so that a version without them opens
// Standard); when it no longer exists the choice falls back to Standard and
// a notice says so.

#include <string>
#include <vector>

#include "framework/Proxy.h"
#include "state/SaveNotice.h"
#include "state/SavedDataReceiver.h"
#include "tunings/TuningList.h"

namespace zt {

// Sent when the left-handed switch changes; SettingsProxy holds the value.
inline constexpr const char* kLeftHandedChanged = "LeftHandedChanged";

class SettingsProxy : public Proxy, public SavedDataReceiver {
public:
    static constexpr const char* NAME = "SettingsProxy";

    SettingsProxy() : Proxy(NAME) {}

    // Builds the tuning strings and names, the user's tunings from their
    // file after the catalogue's.
    void initializeProxy() override;

    // An index outside the list selects 0 ("Standard"), with a log line.
    void setTuning(int index);
    int getTuningNumber() const { return tuningSound_; }
    // Every tuning string, the catalogue's first.
    const std::vector<std::string>& getNotesStand() const { return notesStand_; }
    // The current tuning string and its display name.
    // The chosen tuning's notes; valid until the list of tunings changes.
    const std::string& getTuning() const;
    std::string getTuningName() const;

    const std::vector<std::string>& tuningNameArray() const { return tuningNameArray_; }
    int tuningSound() const { return tuningSound_; }
    const tunings::TuningList& tunings() const { return list_; }
    // Goes up whenever the user's tunings change.
    int tuningsVersion() const { return version_; }

    // Whether the tools are drawn for a left-handed player; shared by all.
    bool leftHanded() const { return leftHanded_; }
    void setLeftHanded(bool on) { leftHanded_ = on; }

    // Takes "Tuning" (and "CustomTuning") from the common saved section; a
    // missing or unusable value gives 0. "LeftHanded" too, off when absent.
    void initVariables(const Dictionary& savedData) override;
    // Adds what a save of the common section needs for the current tuning
    // to settings (which holds "Tuning").
    void completeSaved(Dictionary& settings);
    // The notice of a saved tuning that is gone, once; "" when none.
    std::string takeNotice();

    // A user's tuning made (index -1) or changed (its index) from a name and
    // typed notes; returns what is wrong, "" when it was done and saved.
    std::string storeCustomTuning(int index, const std::string& name, const std::string& typed);
    // Removes a user's tuning; the current one falls back to Standard.
    bool removeCustomTuning(int index);

private:
    void rebuild();
    void saveCustom();

    tunings::TuningList list_;
    std::vector<std::string> notesStand_;
    std::vector<std::string> tuningNameArray_;
    int tuningSound_ = 0;
    bool leftHanded_ = false;
    int version_ = 0;
    // The saved section may name a user's tuning: a save must clear it.
    bool customSaved_ = false;
    bool customBlocked_ = false;
    std::string notice_;
    SaveNotice saveNotice_;
};

}  // namespace zt
