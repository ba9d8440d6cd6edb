#pragma once
// The chords screens with their mediators, the saved state, the chord
// catalogue, the tunings and the sound bank's proxy wired as at start-up;
// the strings play into a recording output.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ChordTesting.h"
#include "RecordingChordOutput.h"
#include "chords/ChordsProxy.h"
#include "chords/ui/ChordsLibrary.h"
#include "chords/ui/ChordsLibraryMediator.h"
#include "sound/MediaProxy.h"
#include "state/StateCommands.h"
#include "state/StateProxy.h"
#include "state/StateTestSupport.h"
#include "tunings/SettingsProxy.h"
#include "tunings/TuningCatalogue.h"

namespace zt::test {

// The notifications the screens send that have no other listener here.
struct SentRecorder : Mediator {
    explicit SentRecorder(std::vector<std::string>& sent) : Mediator("SentRecorder"), sent(sent) {}
    std::vector<std::string> listNotificationInterests() const override {
        return {"StopMusic", "StartMusic", "StopMetronome", "ShowChordsLibrarySettings",
                "ShowChordsTuning"};
    }
    void handleNotification(const Notification& n) override { sent.push_back(n.name()); }
    std::vector<std::string>& sent;
};

inline SoundEngine& silentEngine() {
    static SoundEngine engine;
    return engine;
}

class ChordsScreenTest : public DataDirTest {
protected:
    void SetUp() override {
        DataDirTest::SetUp();
        facade().registerProxy(makeProxy<StateProxy>());
        registerStateCommands(facade());
        facade().registerProxy(makeProxy<ChordsProxy>());
        settings = makeProxy<SettingsProxy>();
        facade().registerProxy(settings);
        media = makeProxy<MediaProxy>("ZebTools", silentEngine());
        media->setIsBuffersLoaded(true);
        facade().registerProxy(media);
        facade().registerMediator(makeMediator<SentRecorder>(sent));
    }

    static Facade& facade() { return Facade::getInstance(); }
    void registerScreen(ChordsLibrary& screen) {
        facade().registerMediator(makeMediator<ChordsLibraryMediator>(&screen));
    }
    Dictionary savedSection() const {
        return valueFor(readDictionary(statePath()), "ChordsSettings").dictionary();
    }
    // Makes a catalogue tuning current, as the tunings list does.
    void chooseTuning(std::string_view name) {
        const auto& catalogue = tunings::catalogue();
        for (std::size_t i = 0; i < catalogue.size(); ++i) {
            if (catalogue[i].name == name)
                settings->setTuning(static_cast<int>(i));
        }
        facade().sendNotification("ReloadChords");
    }
    // Picks a chord on the wheels as a user would: root row, then type row.
    void pick(ChordsLibrary& screen, int rootRow, int typeRow) {
        screen.selectRow(rootRow, 0);
        screen.selectRow(typeRow, 1);
    }
    // A finger dragged across the strings view through these positions.
    static void drag(ChordsLibrary& screen, const std::vector<double>& xs) {
        screen.touchBegan();
        for (double x : xs)
            screen.touchMoved(x, 1);
    }

    std::shared_ptr<SettingsProxy> settings;
    std::shared_ptr<MediaProxy> media;
    std::vector<std::string> sent;
    RecordingChordOutput output;
    ChordsLibrary screen{output};
};

// The frets of the fingering on the neck, from the 6th string: "x 3 2 0 1 0".
inline std::string shown(const ChordsLibrary& screen) {
    const VariationSet& set = screen.variations();
    return set.count == 0
               ? "none"
               : fretsOf(set.records[static_cast<std::size_t>(screen.currentVariationsIndex())]);
}

// Every string from left of the 6th to right of the 1st.
inline const std::vector<double> kAcrossAll = {5, 30, 45, 80, 115, 150, 180, 215, 250};

}  // namespace zt::test
