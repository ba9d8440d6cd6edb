#include "tunings/SettingsProxy.h"

#include <utility>

#include "framework/Log.h"
#include "state/StateKeys.h"
#include "tunings/TuningCatalogue.h"
#include "tunings/TuningText.h"

namespace zt {

void SettingsProxy::initializeProxy() {
    const auto loaded = tunings::loadCustomTunings(tunings::customTuningsPath());
    customBlocked_ = loaded.blocked;
    list_.setCustom(loaded.tunings);
    rebuild();
}

void SettingsProxy::rebuild() {
    notesStand_.clear();
    tuningNameArray_.clear();
    for (const auto& entry : list_.entries()) {
        notesStand_.push_back(entry.notes);
        tuningNameArray_.push_back(entry.name);
    }
    ++version_;
}

void SettingsProxy::setTuning(int index) {
    if (!list_.contains(index)) {
        log("SettingsProxy: no tuning " + std::to_string(index) + "; using Standard");
        index = 0;
    }
    tuningSound_ = index;
}

const std::string& SettingsProxy::getTuning() const {
    return list_.at(tuningSound_).notes;
}

std::string SettingsProxy::getTuningName() const {
    return list_.at(tuningSound_).name;
}

void SettingsProxy::initVariables(const Dictionary& savedData) {
    leftHanded_ = state::read(savedData, state::common::kLeftHanded);
    const std::string custom = state::read(savedData, state::common::kCustomTuning);
    customSaved_ = !custom.empty();
    if (custom.empty()) {
        setTuning(state::read(savedData, state::common::kTuning));
        return;
    }
    const int index = list_.find(custom);
    if (index >= static_cast<int>(tunings::kCount)) {
        setTuning(index);
        return;
    }
    setTuning(0);
    notice_ = "The tuning \"" + custom + "\" is no longer there; Standard is used instead.";
    log("SettingsProxy: " + notice_);
}

void SettingsProxy::completeSaved(Dictionary& settings) {
    if (list_.at(tuningSound_).custom) {
        settings[state::common::kTuning.name] = 0;
        settings[state::common::kCustomTuning.name] = getTuningName();
        customSaved_ = true;
    } else if (customSaved_ || !list_.custom().empty()) {
        settings[state::common::kCustomTuning.name] = "";
    }
}

std::string SettingsProxy::takeNotice() {
    return std::exchange(notice_, std::string());
}

std::string SettingsProxy::storeCustomTuning(int index, const std::string& name,
                                             const std::string& typed) {
    const bool adding = index < 0;
    if (!adding && !list_.at(index).custom)
        return "Only your own tunings can be changed.";
    if (auto wrong = list_.checkName(name, index); !wrong.empty())
        return wrong;
    const auto parsed = tunings::parseTyped(typed);
    if (!parsed.error.empty())
        return parsed.error;
    auto custom = list_.custom();
    const tunings::CustomTuning made{name, parsed.notes, parsed.flats};
    if (adding)
        custom.push_back(made);
    else
        custom[static_cast<std::size_t>(index) - tunings::kCount] = made;
    list_.setCustom(custom);
    rebuild();
    saveCustom();
    return {};
}

bool SettingsProxy::removeCustomTuning(int index) {
    if (!list_.at(index).custom || !list_.contains(index))
        return false;
    auto custom = list_.custom();
    custom.erase(custom.begin() + (index - static_cast<int>(tunings::kCount)));
    list_.setCustom(custom);
    if (tuningSound_ == index)
        tuningSound_ = 0;
    else if (tuningSound_ > index)
        --tuningSound_;
    rebuild();
    saveCustom();
    return true;
}

void SettingsProxy::saveCustom() {
    file::Failure why = "the file is there but cannot be read";
    if (customBlocked_ ||
        !tunings::saveCustomTunings(tunings::customTuningsPath(), list_.custom(), &why))
        saveNotice_.report(*this, "Your tunings", why);
}

}  // namespace zt
