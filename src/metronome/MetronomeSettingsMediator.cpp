#include "metronome/MetronomeSettingsMediator.h"

#include "framework/Facade.h"
#include "framework/Log.h"
#include "metronome/MetronomeControls.h"
#include "metronome/MetronomeProxy.h"

namespace zt {

MetronomeSettingsMediator::MetronomeSettingsMediator(MetronomeSettings* screen)
    : Mediator(NAME, screen), screen_(screen) {}

void MetronomeSettingsMediator::onRegister() {
    presets_ = facade().retrieveProxyAs<MetronomeProxy>(MetronomeProxy::NAME);
    if (!presets_)
        log("MetronomeSettingsMediator: MetronomeProxy is not registered");
    if (screen_)
        screen_->setDelegate(this);
}

void MetronomeSettingsMediator::onRemove() {
    if (screen_ && screen_->delegate() == this)
        screen_->setDelegate(nullptr);
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

void MetronomeSettingsMediator::setMetronomePresetTo(int index) {
    MetronomeControls* metronome = screen_ ? screen_->metronome() : nullptr;
    if (!presets_ || !metronome)
        return;
    metronome->setSettingsFromDictionary(presets_->presetAtIndex(index));
}

}  // namespace zt
