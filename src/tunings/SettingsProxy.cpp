#include "tunings/SettingsProxy.h"

#include "framework/Log.h"
#include "state/StateKeys.h"
#include "tunings/TuningCatalogue.h"

namespace zt {

void SettingsProxy::initializeProxy() {
    notesStand_.clear();
    tuningNameArray_.clear();
    for (const auto& tuning : tunings::catalogue()) {
        notesStand_.emplace_back(tuning.notes);
        tuningNameArray_.emplace_back(tuning.name);
    }
}

void SettingsProxy::setTuning(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= tunings::kCount) {
        log("SettingsProxy: no tuning " + std::to_string(index) + "; using Standard");
        index = 0;
    }
    tuningSound_ = index;
}

std::string SettingsProxy::getTuning() const {
    return std::string(tunings::catalogue()[static_cast<std::size_t>(tuningSound_)].notes);
}

std::string SettingsProxy::getTuningName() const {
    return std::string(tunings::catalogue()[static_cast<std::size_t>(tuningSound_)].name);
}

void SettingsProxy::initVariables(const Dictionary& savedData) {
    setTuning(state::read(savedData, state::common::kTuning));
}

}  // namespace zt
