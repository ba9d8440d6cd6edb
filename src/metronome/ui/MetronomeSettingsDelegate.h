#pragma once
// What the metronome settings screen asks of its mediator: the presets, by
// index 1 to n (0 means "no preset"), and applying one to the metronome.

#include <string>

#include "framework/Value.h"

namespace zt {

class MetronomeSettingsDelegate {
public:
    virtual ~MetronomeSettingsDelegate() = default;

    // n, the number of presets.
    virtual int presetsCount() const = 0;
    virtual std::string presetNameForIndex(int index) const = 0;
    // Ignores letter case.
    virtual bool containPresetWithName(const std::string& name) const = 0;
    // The first preset with exactly this state code, else 0.
    virtual int presetIndexForState(const std::string& state) const = 0;
    // Appends a preset (settings plus "name") and writes the presets file.
    virtual void saveCurrentState(const Dictionary& preset) = 0;
    virtual void removePresetWithIndex(int index) = 0;
    // The preset at index (1 to n) with every key it holds; empty otherwise.
    virtual Dictionary presetAtIndex(int index) const = 0;
    // Puts a preset back at index (1 to n + 1) and writes the presets file.
    virtual void insertPresetAtIndex(int index, const Dictionary& preset) = 0;
    // Replaces preset index and writes the presets file; false when there is
    // no such preset or the new one has no name.
    virtual bool replacePresetAtIndex(int index, const Dictionary& preset) = 0;
    // Applies preset index to the metronome (a running one takes it over).
    virtual void setMetronomePresetTo(int index) = 0;
};

}  // namespace zt
