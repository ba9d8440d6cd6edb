#pragma once
// Connects the by-ear tuner to the rest of the program: the current tuning
// from SettingsProxy, whether the sounds have loaded from MediaProxy, its
// saved state ("GetBrainTunerSavedData" / "StateBrainTunerData",
// "SaveBrainTunerState"), and the screens and pauses it asks for.

#include <memory>

#include "screen/ScreenMediator.h"
#include "tuners/ui/TunerBrain.h"
#include "tuners/ui/TunerBrainDelegate.h"

namespace zt {

class MediaProxy;
class SettingsProxy;

class TunerBrainMediator : public ScreenMediator<TunerBrain, TunerBrainDelegate> {
public:
    static constexpr const char* NAME = "TunerBrainMediator";

    explicit TunerBrainMediator(TunerBrain* screen) : ScreenMediator(NAME, screen) {}

    // "StateBrainTunerData", "LeftHandedChanged" (the screen takes
    // SettingsProxy's hand), and the six "Play...String" names, which are
    // heard and change nothing.
    std::vector<std::string> listNotificationInterests() const override;
    void handleNotification(const Notification& notification) override;

    std::string getTuning() const override;
    std::string getTuningName() const override;
    // "GetBrainTunerSavedData", answered at once by "StateBrainTunerData".
    void setBrainTunerSavedData() override;
    // "SaveBrainTunerState" with the keys.
    void saveBrainTunerSettings(const Dictionary& settings) override;
    // "ShowTunerBrainSettings", "ShowTunerChromaticMode".
    void showTunerBrainSettings() override;
    void showChromaticTunerMode() override;
    // "StopMusic", "StartMusic", "StopMetronome".
    void stopMusic() override;
    void startMusic() override;
    void stopMetronome() override;
    void setButton() override;
    bool isBuffersLoaded() const override;

protected:
    // Keeps the proxies and gives the screen its saved state.
    void registered() override;

private:
    std::shared_ptr<SettingsProxy> settings_;
    std::shared_ptr<MediaProxy> media_;
};

}  // namespace zt
