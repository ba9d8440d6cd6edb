#include "chords/ChordsProxy.h"

#include "chords/VariationOrder.h"
#include "framework/Log.h"
#include "tunings/TuningCatalogue.h"

namespace zt {

void ChordsProxy::initializeProxy() {
    const auto& roots = chords::rootLabels();
    chordsPart1_.assign(roots.begin(), roots.end());
    chordsPart2_.clear();
    for (auto label : chords::typeLabels())
        chordsPart2_.emplace_back(label);
    updateTuning(std::string(tunings::catalogue()[0].notes));
}

void ChordsProxy::getChordsForPicker() {
    sendNotification("ChordsForPickerReady");
}

bool ChordsProxy::updateTuning(const std::string& tuning) {
    const auto tokens = tunings::tokens(tuning);
    if (!chordLibrary_.setTuning(tokens) || !chordLibrary_.setExpandedTuning(tokens)) {
        log("ChordsProxy: not a tuning: \"" + tuning + "\"; keeping " + tuningString_);
        return false;
    }
    tuningString_ = tuning;
    tuningExpanded_ = tokens;
    return true;
}

const std::array<std::string, chords::kTokenCount>& ChordsProxy::getOctaves() const {
    return chords::tokens();
}

VariationSet& ChordsProxy::variationsInDisplayOrder(std::string_view root, std::string_view typeKey,
                                                    VariationSet& out) {
    chordLibrary_.getVariations(root, typeKey, out);
    sortVariations(out);
    return out;
}

}  // namespace zt
