#pragma once
// Connects the chromatic tuner screen to the frequency service
// (MainFrequerncyProxy: the session, the readings, the analysis settings),
// the tunings (SettingsProxy), the sound bank's readiness (MediaProxy) and
// the saved chromatic settings ("GetChromaticTunerSavedData" answered by
// "StateChromaticTunerData").

#include <memory>

#include "screen/ScreenMediator.h"
#include "tuners/ui/TunerChromatic.h"
#include "tuners/ui/TunerChromaticDelegate.h"

namespace zt {

class MainFrequerncyProxy;
class MediaProxy;
class SettingsProxy;

class TunerChromaticMediator : public ScreenMediator<TunerChromatic, TunerChromaticDelegate> {
public:
    static constexpr const char* NAME = "TunerChromaticMediator";

    explicit TunerChromaticMediator(TunerChromatic* screen) : ScreenMediator(NAME, screen) {}

    // "ChangeAllNotes", "StateChromaticTunerData", "ShowNoteAndFrequernsy",
    // "ShowMicrophoneError", "SetTuning".
    std::vector<std::string> listNotificationInterests() const override;
    void handleNotification(const Notification& notification) override;

    // "GetMainFrequerncy", only once the sound bank has loaded and while the
    // session runs.
    void getFrequerncy() override;
    // "StartAudioSession" / "StopAudioSession" for the frequency service.
    void startAudioSession() override;
    void stopAudioSession() override;
    // "GetChromaticTunerSavedData" with this mediator as the asker.
    void setChromaticTunerSavedData() override;
    void setTuningDelegate(int tuning) override;
    void setTaperDelegate(int taperMode) override;
    void setBaseNoteDelegate(const Note& baseNote) override;
    void setTresholdPercentDelegate(int percent) override;
    void setIsAllNotes(bool allNotes) override;
    bool getAllNotes() const override;
    // "SetTuning".
    void getTuningChromaticTuner() override;
    // "ShowTunerBrain", "ShowTunerBrainMode", "ShowTunerChromaticSettings".
    void showBrainTuner() override;
    void showBrainTunerMode() override;
    void showTunerChromaticSettings() override;
    // "StopMusic", "StartMusic", "StopMetronome".
    void stopMusic() override;
    void startMusic() override;
    void stopMetronome() override;
    void setButton() override;

protected:
    // Keeps the proxies and gives the screen the tunings catalogue.
    void registered() override;

private:
    std::shared_ptr<MediaProxy> mediaProxy_;
    std::shared_ptr<MainFrequerncyProxy> mainFrequerncyProxy_;
    std::shared_ptr<SettingsProxy> settingsProxy_;
    int tuningsVersion_ = -1;
};

}  // namespace zt
