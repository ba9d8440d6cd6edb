#pragma once
// Connects the chords settings screen to the rest of the program: the
// tuning's name from SettingsProxy, the way to the tunings list
// ("ShowChordsTuning") and the saved state ("SaveChordsLibraryState").

#include <memory>

#include "chords/ui/ChordsLibrarySettings.h"
#include "chords/ui/ChordsLibrarySettingsDelegate.h"
#include "screen/ScreenMediator.h"

namespace zt {

class SettingsProxy;

class ChordsLibrarySettingsMediator
    : public ScreenMediator<ChordsLibrarySettings, ChordsLibrarySettingsDelegate> {
public:
    static constexpr const char* NAME = "ChordsLibrarySettingsMediator";

    explicit ChordsLibrarySettingsMediator(ChordsLibrarySettings* screen)
        : ScreenMediator(NAME, screen) {}

    void saveChordsLibrarySettings(const Dictionary& settings) override;
    // Row 2: "ShowChordsTuning".
    void chooseChordsOptions(int row) override;
    std::string getTuningName() const override;

protected:
    void registered() override;

private:
    std::shared_ptr<SettingsProxy> settings_;
};

}  // namespace zt
