#include "chords/ChordsProxy.h"

#include "chords/Capo.h"
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
    if (!applyTuning(tokens, capo_)) {
        log("ChordsProxy: not a tuning: \"" + tuning + "\"; keeping " + tuningString_);
        return false;
    }
    tuningString_ = tuning;
    tuningExpanded_ = tokens;
    return true;
}

bool ChordsProxy::setCapo(int capo) {
    if (capo == capo_)
        return true;
    if (!applyTuning(tuningExpanded_, capo)) {
        log("ChordsProxy: no capo at fret " + std::to_string(capo) + " in " + tuningString_);
        return false;
    }
    capo_ = capo;
    return true;
}

bool ChordsProxy::applyTuning(const std::vector<std::string>& tokens, int capo) {
    const auto sounding = chords::raisedTokens(tokens, capo);
    return sounding && tokens.size() == kStringCount && chordLibrary_.setTuning(*sounding) &&
           chordLibrary_.setExpandedTuning(*sounding);
}

const std::array<std::string, chords::kTokenCount>& ChordsProxy::getOctaves() const {
    return chords::tokens();
}

VariationSet& ChordsProxy::variationsInDisplayOrder(std::string_view root, std::string_view typeKey,
                                                    VariationSet& out) {
    chordLibrary_.getVariations(root, typeKey, out);
    sortVariations(out);
    chords::dropPastLastFret(out, capo_);
    return out;
}

}  // namespace zt
