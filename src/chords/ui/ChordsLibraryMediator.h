#pragma once
// Connects the chords screen to the rest of the program: the picker lists,
// the tuning and the fingerings through ChordsProxy (told the tuning from
// SettingsProxy when the screen first asks and on "ReloadChords"), whether
// the sounds have loaded through MediaProxy, its state through the saved
// state ("GetChordsLibrarySavedData" / "StateChordsData",
// "SaveChordsLibraryState"), and the screens and pauses it asks for.

#include <memory>

#include "chords/ui/ChordsLibrary.h"
#include "chords/ui/ChordsLibraryDelegate.h"
#include "screen/ScreenMediator.h"

namespace zt {

class ChordsProxy;
class MediaProxy;
class SettingsProxy;

class ChordsLibraryMediator : public ScreenMediator<ChordsLibrary, ChordsLibraryDelegate> {
public:
    static constexpr const char* NAME = "ChordsLibraryMediator";

    explicit ChordsLibraryMediator(ChordsLibrary* screen) : ScreenMediator(NAME, screen) {}

    // "StateChordsData", "ReloadChords", "ChordsForPickerReady",
    // "LoadChordVariationsComplete" (heard, nothing to do), and
    // "LeftHandedChanged" (the screen takes SettingsProxy's hand).
    std::vector<std::string> listNotificationInterests() const override;
    void handleNotification(const Notification& notification) override;

    void getChordVariationsByName(const std::string& root, const std::string& typeKey,
                                  VariationSet& set) override;
    // "ShowChordsLibrarySettings".
    void showChordsLibrarySettings() override;
    // "GetChordsLibrarySavedData", answered at once by "StateChordsData".
    void setChordsLibrarySavedData() override;
    // "SaveChordsLibraryState" with the keys.
    void saveChordsLibrarySettings(const Dictionary& settings) override;
    // "StopMusic", "StartMusic", "StopMetronome".
    void stopMusic() override;
    void startMusic() override;
    void stopMetronome() override;
    bool isBuffersLoaded() const override;
    std::string getTuningName() const override;
    std::array<int, kStringCount> openNotes() const override;
    bool setCapo(int fret) override;

protected:
    // Keeps the proxies, gives ChordsProxy the current tuning, and fills the
    // screen: the picker lists, then the saved state.
    void registered() override;

private:
    void updateTuning();

    std::shared_ptr<ChordsProxy> chords_;
    std::shared_ptr<SettingsProxy> settings_;
    std::shared_ptr<MediaProxy> media_;
};

}  // namespace zt
