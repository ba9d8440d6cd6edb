#pragma once
// Connects the base frequency screen to its proxy (OrchestraControlProxy),
// the frequency commands and the saved state.

#include <memory>

#include "screen/ScreenMediator.h"
#include "tuners/ui/OrchestraControl.h"
#include "tuners/ui/OrchestraControlDelegate.h"

namespace zt {

class MediaProxy;
class OrchestraControlProxy;

class OrchestraControlMediator : public ScreenMediator<OrchestraControl, OrchestraControlDelegate> {
public:
    static constexpr const char* NAME = "OrchestraMediator";

    explicit OrchestraControlMediator(OrchestraControl* screen) : ScreenMediator(NAME, screen) {}

    std::vector<std::string> listNotificationInterests() const override;
    void handleNotification(const Notification& notification) override;

    void setOrchestraSavedData() override;
    void saveChromaticTunerSettings(const Dictionary& settings) override;
    void askForBaseNote() override;
    void setBaseNoteDelegate(const Note& note) override;
    void setBaseIndexDelegate(int index) override;
    void setManualFrequencyDelegate(double frequency) override;
    void setTaperDelegate(int mode) override;
    void getFrequency() override;
    void startAudioSession() override;
    void stopAudioSession() override;

protected:
    void registered() override;

private:
    // Shows the proxy's current frequency.
    void refresh();

    std::shared_ptr<OrchestraControlProxy> proxy_;
    std::shared_ptr<MediaProxy> media_;
};

}  // namespace zt
