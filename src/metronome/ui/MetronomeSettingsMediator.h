#pragma once
// Connects the metronome settings screen to the presets in MetronomeProxy.
// It listens to no notification: the screen calls it, and it answers from
// the proxy or hands a preset to the screen's metronome.

#include <memory>

#include "metronome/ui/MetronomeSettings.h"
#include "metronome/ui/MetronomeSettingsDelegate.h"
#include "screen/ScreenMediator.h"

namespace zt {

class MetronomeProxy;

class MetronomeSettingsMediator
    : public ScreenMediator<MetronomeSettings, MetronomeSettingsDelegate> {
public:
    static constexpr const char* NAME = "MetronomeSettingsMediator";

    explicit MetronomeSettingsMediator(MetronomeSettings* screen) : ScreenMediator(NAME, screen) {}

    int presetsCount() const override;
    std::string presetNameForIndex(int index) const override;
    bool containPresetWithName(const std::string& name) const override;
    int presetIndexForState(const std::string& state) const override;
    void saveCurrentState(const Dictionary& preset) override;
    void removePresetWithIndex(int index) override;
    Dictionary presetAtIndex(int index) const override;
    void insertPresetAtIndex(int index, const Dictionary& preset) override;
    bool replacePresetAtIndex(int index, const Dictionary& preset) override;
    // The preset's dictionary to the metronome's setSettingsFromDictionary.
    void setMetronomePresetTo(int index) override;

protected:
    // Keeps MetronomeProxy.
    void registered() override;

private:
    std::shared_ptr<MetronomeProxy> presets_;
};

}  // namespace zt
