#pragma once
// The tunings catalogue and the current tuning, shared by the tuners and the
// chords library. The current index comes from the common saved section
// ("Tuning") at start-up and changes on the common settings screen.

#include <string>
#include <vector>

#include "framework/Proxy.h"
#include "state/SavedDataReceiver.h"

namespace zt {

class SettingsProxy : public Proxy, public SavedDataReceiver {
public:
    static constexpr const char* NAME = "SettingsProxy";

    SettingsProxy() : Proxy(NAME) {}

    // Builds the tuning strings and names, in catalogue order.
    void initializeProxy() override;

    // An index outside the catalogue selects 0 ("Standard"), with a log line.
    void setTuning(int index);
    int getTuningNumber() const { return tuningSound_; }
    // All 53 tuning strings.
    const std::vector<std::string>& getNotesStand() const { return notesStand_; }
    // The current tuning string and its display name.
    std::string getTuning() const;
    std::string getTuningName() const;

    const std::vector<std::string>& tuningNameArray() const { return tuningNameArray_; }
    int tuningSound() const { return tuningSound_; }

    // Takes "Tuning" from the common saved section; a missing or unusable
    // value gives 0.
    void initVariables(const Dictionary& savedData) override;

private:
    std::vector<std::string> notesStand_;
    std::vector<std::string> tuningNameArray_;
    int tuningSound_ = 0;
};

}  // namespace zt
