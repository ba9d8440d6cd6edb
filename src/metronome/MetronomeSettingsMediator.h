#pragma once
// Connects the metronome settings screen to the presets in MetronomeProxy.
// It listens to no notification: the screen calls it, and it answers from
// the proxy or hands a preset to the screen's metronome.

#include <QPointer>
#include <memory>

#include "framework/Mediator.h"
#include "metronome/MetronomeSettings.h"
#include "metronome/MetronomeSettingsDelegate.h"

namespace zt {

class MetronomeProxy;

class MetronomeSettingsMediator : public Mediator, public MetronomeSettingsDelegate {
public:
    static constexpr const char* NAME = "MetronomeSettingsMediator";

    explicit MetronomeSettingsMediator(MetronomeSettings* screen);

    // Becomes the screen's delegate and keeps MetronomeProxy.
    void onRegister() override;
    void onRemove() override;

    int presetsCount() const override;
    std::string presetNameForIndex(int index) const override;
    bool containPresetWithName(const std::string& name) const override;
    int presetIndexForState(const std::string& state) const override;
    void saveCurrentState(const Dictionary& preset) override;
    void removePresetWithIndex(int index) override;
    // The preset's dictionary to the metronome's setSettingsFromDictionary.
    void setMetronomePresetTo(int index) override;

private:
    QPointer<MetronomeSettings> screen_;
    std::shared_ptr<MetronomeProxy> presets_;
};

}  // namespace zt
