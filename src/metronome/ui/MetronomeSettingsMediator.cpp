#include "metronome/ui/MetronomeSettingsMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "metronome/MetronomeProxy.h"
#include "metronome/ui/MetronomeControls.h"

namespace zt {

void MetronomeSettingsMediator::registered() {
    presets_ = facade().retrieveProxyAs<MetronomeProxy>(MetronomeProxy::NAME);
    if (!presets_)
        log("MetronomeSettingsMediator: MetronomeProxy is not registered");
}

int MetronomeSettingsMediator::presetsCount() const {
    return presets_ ? static_cast<int>(presets_->presetsArray().size()) - 1 : 0;
}

std::string MetronomeSettingsMediator::presetNameForIndex(int index) const {
    return presets_ ? presets_->presetNameForIndex(index) : std::string();
}

bool MetronomeSettingsMediator::containPresetWithName(const std::string& name) const {
    return presets_ && presets_->containPresetWithName(name);
}

int MetronomeSettingsMediator::presetIndexForState(const std::string& state) const {
    return presets_ ? presets_->presetIndexForState(state) : 0;
}

void MetronomeSettingsMediator::saveCurrentState(const Dictionary& preset) {
    if (presets_)
        presets_->saveCurrentState(preset);
}

void MetronomeSettingsMediator::removePresetWithIndex(int index) {
    if (presets_)
        presets_->removePresetWithIndex(index);
}

Dictionary MetronomeSettingsMediator::presetAtIndex(int index) const {
    return presets_ ? presets_->presetAtIndex(index) : Dictionary{};
}

void MetronomeSettingsMediator::insertPresetAtIndex(int index, const Dictionary& preset) {
    if (presets_)
        presets_->insertPresetAtIndex(index, preset);
}

bool MetronomeSettingsMediator::replacePresetAtIndex(int index, const Dictionary& preset) {
    return presets_ && presets_->replacePresetAtIndex(index, preset);
}

void MetronomeSettingsMediator::setMetronomePresetTo(int index) {
    MetronomeControls* metronome = screen() ? screen()->metronome() : nullptr;
    if (!presets_ || !metronome)
        return;
    metronome->setSettingsFromDictionary(presets_->presetAtIndex(index));
}

}  // namespace zt
