#include "app/Screens.h"

#include "app/PlaceholderScreen.h"
#include "app/Tools.h"
#include "chords/ui/ChordsLibrary.h"
#include "chords/ui/ChordsLibraryMediator.h"
#include "chords/ui/ChordsLibrarySettings.h"
#include "chords/ui/ChordsLibrarySettingsMediator.h"
#include "metronome/ui/Metronome.h"
#include "metronome/ui/MetronomeMediator.h"
#include "metronome/ui/MetronomeSettings.h"
#include "metronome/ui/MetronomeSettingsMediator.h"
#include "screen/ScreenEngines.h"
#include "tuners/ui/MicrophoneCalibrating.h"
#include "tuners/ui/MicrophoneCalibratingMediator.h"
#include "tuners/ui/OrchestraControl.h"
#include "tuners/ui/OrchestraControlMediator.h"
#include "tuners/ui/TunerBrain.h"
#include "tuners/ui/TunerBrainMediator.h"
#include "tuners/ui/TunerBrainSettings.h"
#include "tuners/ui/TunerBrainSettingsMediator.h"
#include "tuners/ui/TunerChromatic.h"
#include "tuners/ui/TunerChromaticMediator.h"
#include "tuners/ui/TunerChromaticSettings.h"
#include "tuners/ui/TunerChromaticSettingsMediator.h"
#include "tuners/ui/TunerChromaticTaper.h"
#include "tuners/ui/TunerChromaticTaperMediator.h"
#include "tunings/ui/CommonSettings.h"
#include "tunings/ui/CommonSettingsMediator.h"

namespace zt {

namespace {

template <class S>
Screen* make(const Tools&, const ScreenEngines&) {
    return new S();
}

template <class M>
std::shared_ptr<Mediator> mediate(Screen* screen) {
    return makeMediator<M>(qobject_cast<typename M::ScreenType*>(screen));
}

Screen* makeMetronome(const Tools&, const ScreenEngines& engines) {
    return new Metronome(engines.metronome, engines.clock);
}

Screen* makeMetronomeSettings(const Tools& shell, const ScreenEngines&) {
    return new MetronomeSettings(shell.screenAs<Metronome>("metronome"));
}

Screen* makeChordsLibrary(const Tools&, const ScreenEngines& engines) {
    return new ChordsLibrary(engines.chords);
}

Screen* makeChordsLibrarySettings(const Tools& shell, const ScreenEngines&) {
    return new ChordsLibrarySettings(shell.screenAs<ChordsLibrary>("chordsLibrary"));
}

// The chromatic tuner's pitch pipe plays the by-ear tuner's strings.
Screen* makeTunerChromatic(const Tools&, const ScreenEngines& engines) {
    auto* tuner = new TunerChromatic();
    tuner->setToneOutput(&engines.brain);
    return tuner;
}

Screen* makeTunerBrain(const Tools&, const ScreenEngines& engines) {
    return new TunerBrain(engines.brain);
}

Screen* makeTunerBrainSettings(const Tools& shell, const ScreenEngines&) {
    return new TunerBrainSettings(shell.screenAs<TunerBrain>("tunerBrain"));
}

// A screen opened by one notification.
std::vector<ScreenRoute> opened(const char* notification) {
    return {{notification}};
}

constexpr const char* kPlaceholder = "app/PlaceholderView.qml";

}  // namespace

const std::vector<ScreenRow>& screenTable() {
    static const std::vector<ScreenRow> rows = {
        {"metronome", "Metronome", MetronomeTab, makeMetronome, mediate<MetronomeMediator>,
         "metronome/ui/MetronomeView.qml"},
        {"metronomeSettings", "Settings", MetronomeTab, makeMetronomeSettings,
         mediate<MetronomeSettingsMediator>, "metronome/ui/MetronomeSettingsView.qml",
         opened("ShowMetronomeSettings")},
        {"chordsLibrary", "Chords Library", ChordsTab, makeChordsLibrary,
         mediate<ChordsLibraryMediator>, "chords/ui/ChordsLibraryView.qml"},
        {"chordsLibrarySettings", "Settings", ChordsTab, makeChordsLibrarySettings,
         mediate<ChordsLibrarySettingsMediator>, "tunings/ui/ToolSettingsView.qml",
         opened("ShowChordsLibrarySettings")},
        {"commonSettings",
         "Tunings",
         kAnyTab,
         make<CommonSettings>,
         mediate<CommonSettingsMediator>,
         "tunings/ui/CommonSettingsView.qml",
         // One tunings list serves three settings screens, on their stacks.
         {{"ShowTunerChromaticTuning", ChromaticTab},
          {"ShowTunerBrainTuning", BrainTab},
          {"ShowChordsTuning", ChordsTab}}},
        {"tunerChromatic", "Chromatic Tuner", ChromaticTab, makeTunerChromatic,
         mediate<TunerChromaticMediator>, "tuners/ui/TunerChromaticView.qml"},
        {"tunerBrain", "Brain Tuner", BrainTab, makeTunerBrain, mediate<TunerBrainMediator>,
         "tuners/ui/TunerBrainView.qml"},
        {"tunerBrainSettings", "Settings", BrainTab, makeTunerBrainSettings,
         mediate<TunerBrainSettingsMediator>, "tunings/ui/ToolSettingsView.qml",
         opened("ShowTunerBrainSettings")},
        {"tunerChromaticSettings", "Settings", ChromaticTab, make<TunerChromaticSettings>,
         mediate<TunerChromaticSettingsMediator>, "tuners/ui/TunerChromaticSettingsView.qml",
         opened("ShowTunerChromaticSettings")},
        {"tunerChromaticTaper", "Settings", ChromaticTab, make<TunerChromaticTaper>,
         mediate<TunerChromaticTaperMediator>, "tuners/ui/TunerChromaticTaperView.qml",
         opened("ShowTunerChromaticTaper")},
        {"orchestraControl", "Orchestra Tuning", ChromaticTab, make<OrchestraControl>,
         mediate<OrchestraControlMediator>, "tuners/ui/OrchestraControlView.qml",
         opened("ShowOrchestra")},
        {"microphoneCalibrating", "Microphone sensitivity", ChromaticTab,
         make<MicrophoneCalibrating>, mediate<MicrophoneCalibratingMediator>,
         "tuners/ui/MicrophoneCalibratingView.qml", opened("ShowMicrophoneCalibrating")},
        // "ShowHowToEnter" names its address; the shell only logs it for now.
        {"howToEnter", "How to enter", kAnyTab, make<PlaceholderScreen>, nullptr, kPlaceholder},
    };
    return rows;
}

const ScreenRow* screenRow(std::string_view key) {
    for (const ScreenRow& row : screenTable()) {
        if (key == row.key)
            return &row;
    }
    return nullptr;
}

RouteTarget routeOf(std::string_view notification) {
    for (const ScreenRow& row : screenTable()) {
        for (const ScreenRoute& route : row.routes) {
            if (notification == route.notification)
                return {&row, &route};
        }
    }
    return {};
}

const std::vector<ToolTab>& toolTabs() {
    static const std::vector<ToolTab> tabs = {
        {"METRONOME", "Metronome", "\u2669", "metronome", "Open_Metronome",
         "Error analitics - Metronome"},
        {"CHROMATIC", "Chromatic Tuner", "\u266F", "tunerChromatic", "Open_ChromaticTuner",
         "Error analitics - TunerChomatic"},
        {"BRAIN", "Brain Tuner", "\u266A", "tunerBrain", "Open_BrainTuner",
         "Error analitics - TunerBrain"},
        {"CHORDS", "Chords", "\u266B", "chordsLibrary", "Open_ChordsLibrary",
         "Error analitics - ChordsLibrary"},
    };
    return tabs;
}

}  // namespace zt
