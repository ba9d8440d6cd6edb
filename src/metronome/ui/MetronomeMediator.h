#pragma once
// Connects the metronome screen to the rest of the program: its sample
// sounds through MediaProxy, its settings through the saved state
// ("GetMetronomeSavedData" / "StateMetronomeData", "SaveMetronomeState"),
// and the pause that other tools ask for ("StopMetronome").

#include <memory>

#include "metronome/ui/Metronome.h"
#include "metronome/ui/MetronomeDelegate.h"
#include "screen/ScreenMediator.h"

namespace zt {

class MediaProxy;
class MetronomeProxy;

class MetronomeMediator : public ScreenMediator<Metronome, MetronomeDelegate> {
public:
    static constexpr const char* NAME = "MetronomeMediator";

    explicit MetronomeMediator(Metronome* screen) : ScreenMediator(NAME, screen) {}

    // "StopMetronome", "StateMetronomeData", "ShowMetronomeFromTab",
    // "ShowMetronomeFromTools".
    std::vector<std::string> listNotificationInterests() const override;
    void handleNotification(const Notification& notification) override;
    void playSoundByID(int soundId, int group, bool loop) override;
    // "StopMusic" and "StartMusic".
    void stopMusic() override;
    void startMusic() override;
    // "ShowMetronomeSettings".
    void showMetronomeSettings() override;
    // "GetMetronomeSavedData", answered at once by "StateMetronomeData".
    void setMetronomeSavedData() override;
    // "SaveMetronomeState" with the settings.
    void saveMetronomeSettings(const Dictionary& settings) override;
    bool isBuffersLoaded() const override;
    // From MetronomeProxy's presets.
    std::string presetNameForState(const std::string& state,
                                   const std::string& preferred) const override;

protected:
    // Keeps MediaProxy and MetronomeProxy and restores the screen from the saved state.
    void registered() override;

private:
    std::shared_ptr<MediaProxy> media_;
    std::shared_ptr<MetronomeProxy> presets_;
};

}  // namespace zt
