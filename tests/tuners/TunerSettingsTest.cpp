// The chromatic tuner's settings screens with their mediators, the saved
// state, the frequency commands and the calibration proxies wired as at
// start-up, listening to captures the tests feed.
#include <gtest/gtest.h>

#include "ScriptedPDA.h"
#include "dsp/FakeCapture.h"
#include "sound/MediaProxy.h"
#include "sound/SoundEngine.h"
#include "state/StateCommands.h"
#include "state/StateProxy.h"
#include "state/StateTestSupport.h"
#include "tuners/FrequencyCommands.h"
#include "tuners/MainFrequerncyProxy.h"
#include "tuners/MicrophoneProxy.h"
#include "tuners/OrchestraControlProxy.h"
#include "tuners/ui/MicrophoneCalibrating.h"
#include "tuners/ui/MicrophoneCalibratingMediator.h"
#include "tuners/ui/OrchestraControl.h"
#include "tuners/ui/OrchestraControlMediator.h"
#include "tuners/ui/TunerChromaticSettings.h"
#include "tuners/ui/TunerChromaticSettingsMediator.h"
#include "tuners/ui/TunerChromaticTaper.h"
#include "tuners/ui/TunerChromaticTaperMediator.h"
#include "tunings/SettingsProxy.h"

namespace zt::test {
namespace {

using testing::FakeCapture;

// The names of the screens' notifications that nothing else here hears.
struct Recorder : Mediator {
    explicit Recorder(std::vector<std::string>& heard) : Mediator("Recorder"), heard(heard) {}
    std::vector<std::string> listNotificationInterests() const override {
        return {"ShowTunerChromaticTuning", "ShowTunerChromaticTaper", "ShowMicrophoneCalibrating",
                "ShowOrchestra", "SaveChromaticTunerState"};
    }
    void handleNotification(const Notification& n) override { heard.push_back(n.name()); }
    std::vector<std::string>& heard;
};

std::vector<std::string> gDevices;

class TunerSettingsTest : public DataDirTest {
protected:
    void SetUp() override {
        DataDirTest::SetUp();
        Facade& f = Facade::getInstance();
        registerStateCommands(f);
        f.registerCommand("GetMainFrequerncy", commandClass<GetMainFrequerncyCommand>());
        f.registerCommand("StartAudioSession", commandClass<StartAudioSessionCommand>());
        f.registerCommand("StopAudioSession", commandClass<StopAudioSessionCommand>());
        f.registerProxy(makeProxy<StateProxy>());
        f.registerProxy(makeProxy<SettingsProxy>());
        main = makeProxy<MainFrequerncyProxy>(capture);
        f.registerProxy(main);
        orchestra = makeProxy<OrchestraControlProxy>(capture);
        f.registerProxy(orchestra);
        f.registerProxy(makeProxy<MicrophoneProxy>(capture));
        static SoundEngine silent;
        auto media = makeProxy<MediaProxy>("ZebTools", silent);
        media->setIsBuffersLoaded(true);
        f.registerProxy(media);
        f.registerMediator(
            makeMediator<TunerChromaticSettingsMediator>(&settings, [] { return gDevices; }));
        f.registerMediator(makeMediator<TunerChromaticTaperMediator>(&taper));
        f.registerMediator(makeMediator<OrchestraControlMediator>(&orchestraScreen));
        f.registerMediator(makeMediator<MicrophoneCalibratingMediator>(&microphone));
        f.registerMediator(makeMediator<Recorder>(heard));
    }

    void save(const Dictionary& keys) {
        Facade::getInstance().sendNotification("SaveChromaticTunerState", keys);
        heard.clear();
    }
    Dictionary section() const {
        return valueFor(readDictionary(statePath()), "ChromaticSettings").dictionary();
    }
    int saves() const {
        return static_cast<int>(std::count(heard.begin(), heard.end(), "SaveChromaticTunerState"));
    }

    std::shared_ptr<FakeCapture> capture = std::make_shared<FakeCapture>();
    std::shared_ptr<MainFrequerncyProxy> main;
    std::shared_ptr<OrchestraControlProxy> orchestra;
    std::vector<std::string> heard;
    TunerChromaticSettings settings;
    TunerChromaticTaper taper;
    OrchestraControl orchestraScreen;
    MicrophoneCalibrating microphone;
};

TEST_F(TunerSettingsTest, EachSwitchSavesAtOnceKeepingTheOtherKeys) {
    save({{"LinearScale", true}, {"Treshold", 35}});
    settings.viewWillAppear();
    EXPECT_TRUE(settings.linearScale());
    EXPECT_FALSE(settings.allNotes());
    EXPECT_FALSE(settings.classicDetection());
    EXPECT_FALSE(settings.strobeView());
    EXPECT_FALSE(settings.pitchHistory());

    const struct {
        void (TunerChromaticSettings::*flip)();
        const char* key;
        bool value;
    } flips[] = {
        {&TunerChromaticSettings::switcherLSAction, "LinearScale", false},
        {&TunerChromaticSettings::switcherANAction, "AllNotes", true},
        {&TunerChromaticSettings::toggleClassicDetection, "ClassicDetection", true},
        {&TunerChromaticSettings::togglePitchHistory, "PitchHistory", true},
        {&TunerChromaticSettings::switcherLSAction, "LinearScale", true},
    };
    for (const auto& f : flips) {
        (settings.*f.flip)();
        EXPECT_EQ(valueFor(section(), f.key), Value(f.value)) << f.key;
    }
    EXPECT_EQ(saves(), 5);
    // The display is a choice of two: choosing the one on show saves nothing.
    settings.chooseStrobeView(false);
    EXPECT_EQ(saves(), 5);
    settings.chooseStrobeView(true);
    EXPECT_EQ(valueFor(section(), "StrobeView"), Value(true));
    settings.viewWillAppear();
    EXPECT_TRUE(settings.strobeView());
    EXPECT_TRUE(settings.pitchHistory());
    EXPECT_EQ(valueFor(section(), "Treshold"), Value(35));
    EXPECT_EQ(valueFor(section(), "AllNotes"), Value(true));

    // The main service takes the detector when its next session starts.
    main->startAudioSession();
    EXPECT_TRUE(main->isClassicDetection());
    main->stopAudioSession();
}

TEST_F(TunerSettingsTest, RowsThreeToSixOpenTheirScreensAndTheOthersNothing) {
    settings.viewWillAppear();
    EXPECT_EQ(settings.tuningName(), "Standard");
    const struct {
        int row;
        const char* shows;
    } rows[] = {{0, nullptr},
                {1, nullptr},
                {2, nullptr},
                {3, "ShowTunerChromaticTuning"},
                {4, "ShowTunerChromaticTaper"},
                {5, "ShowMicrophoneCalibrating"},
                {6, "ShowOrchestra"},
                {7, nullptr}};
    for (const auto& r : rows) {
        heard.clear();
        settings.selectRow(r.row);
        EXPECT_EQ(heard, r.shows ? std::vector<std::string>{r.shows} : std::vector<std::string>{})
            << r.row;
    }
    EXPECT_FALSE(settings.allNotes()) << "touching the row is not touching its switch";
}

// Each entry's value as saved, read again when the screen comes back from
// the entry's own screen. A reference on another note shows as its A4.
TEST_F(TunerSettingsTest, EntriesShowTheirSavedValues) {
    const struct {
        Dictionary saved;
        QStringList shown;
    } rows[] = {
        {{}, {"Standard", "Gauss", "10 %", "A4 = 440.0 Hz"}},
        {{{"baseOctave", 4},
          {"baseIndex", 9},
          {"baseFrequency", 443.0},
          {"Treshold", 65},
          {"Taper", 3}},
         {"Standard", "Hann", "65 %", "A4 = 443.0 Hz"}},
        {{{"baseOctave", 5}, {"baseIndex", 0}, {"baseFrequency", 523.25}, {"Taper", 7}},
         {"Standard", "Gauss", "65 %", "A4 = 440.0 Hz"}},
        {{{"baseFrequency", 0.0}, {"Treshold", 250}},
         {"Standard", "Gauss", "100 %", "A4 = 440.0 Hz"}},
    };
    for (const auto& r : rows) {
        save(r.saved);
        settings.viewWillAppear();
        EXPECT_EQ(settings.entryValues(), r.shown) << r.shown.join(", ").toStdString();
    }
    taper.viewWillAppear();
    taper.selectRow(2);
    taper.viewWillDisappear();
    auto tunings = Facade::getInstance().retrieveProxyAs<SettingsProxy>(SettingsProxy::NAME);
    tunings->setTuning(1);
    settings.viewWillAppear();
    EXPECT_EQ(settings.taperName(), "Cosine");
    EXPECT_EQ(settings.tuningName().toStdString(), tunings->getTuningName());
    EXPECT_NE(settings.tuningName(), "Standard");
}

TEST_F(TunerSettingsTest, InputDeviceIsOfferedWithTwoDevicesAndAGoneOneReadsAsDefault) {
    gDevices = {"Built-in Audio"};
    settings.viewWillAppear();
    EXPECT_FALSE(settings.offersInputChoice());

    gDevices = {"Built-in Audio", "USB Microphone"};
    settings.viewWillAppear();
    EXPECT_TRUE(settings.offersInputChoice());
    EXPECT_EQ(settings.inputChoices(),
              QStringList({"System default", "Built-in Audio", "USB Microphone"}));
    EXPECT_EQ(settings.inputChoice(), 0);
    settings.chooseInput(2);
    EXPECT_EQ(valueFor(section(), "InputDevice"), Value("USB Microphone"));

    gDevices = {"Built-in Audio", "Webcam"};
    settings.viewWillAppear();
    EXPECT_EQ(settings.inputChoice(), 0) << "the saved device has gone";
    settings.chooseInput(0);
    EXPECT_EQ(valueFor(section(), "InputDevice"), Value(""));
    gDevices.clear();
}

TEST_F(TunerSettingsTest, TouchingHannSetsTheWindowAtOnceAndSavesItOnLeaving) {
    save({{"Taper", 9}});
    main->initVariables(section());
    taper.viewWillAppear();
    EXPECT_EQ(taper.taperMode(), 0) << "an unknown window reads as Gauss";
    taper.selectRow(4);
    EXPECT_EQ(main->getTaperMode(), 3);
    EXPECT_EQ(taper.taperMode(), 3);
    EXPECT_EQ(valueFor(section(), "Taper"), Value(9)) << "saved only on leaving";
    for (int row : {0, 6})
        taper.selectRow(row);
    EXPECT_EQ(taper.taperMode(), 3);
    taper.viewWillDisappear();
    EXPECT_EQ(valueFor(section(), "Taper"), Value(3));
}

// The distance in tenths of a cent, or in whole cents on tenths of a hertz
// with classic detection.
TEST_F(TunerSettingsTest, OrchestraStepsOfATenthAndOneHertzThenOkSavesTheNote) {
    for (const bool classic : {false, true}) {
        save({{"baseFrequency", 0.0}, {"ClassicDetection", classic}});
        orchestraScreen.viewWillAppear();
        EXPECT_EQ(orchestraScreen.customValueText(), "440.0");
        EXPECT_EQ(orchestraScreen.noteIndex(), 9);
        const struct {
            int tag;
            const char *shown, *fine, *classic;
        } steps[] = {
            {1, "440.1", "0.4", "0"},   {1, "440.2", "0.8", "1"},     {1, "440.3", "1.2", "1"},
            {1, "440.4", "1.6", "2"},   {-1, "440.3", "1.2", "1"},    {10, "441.3", "5.1", "5"},
            {-10, "440.3", "1.2", "1"}, {-10, "439.3", "-2.8", "-3"},
        };
        for (const auto& s : steps) {
            orchestraScreen.manualIncrementor(s.tag);
            EXPECT_EQ(orchestraScreen.customValueText(), s.shown) << s.tag;
            EXPECT_EQ(orchestraScreen.centsValueText(), classic ? s.classic : s.fine) << s.shown;
            EXPECT_EQ(orchestraScreen.defaultValueText(), "440.0");
        }
        orchestraScreen.cancel();
        EXPECT_EQ(saves(), 0) << "Cancel saves nothing";
    }

    orchestraScreen.ok();
    const Dictionary saved = section();
    EXPECT_EQ(valueFor(saved, "baseOctave"), Value(4));
    EXPECT_EQ(valueFor(saved, "baseIndex"), Value(9));
    EXPECT_EQ(valueFor(saved, "baseFrequency"), Value(439.3));
}

TEST_F(TunerSettingsTest, PickingCStartsFromC5AndTheMicrophoneAlertEndsMeasuring) {
    orchestraScreen.viewWillAppear();
    orchestraScreen.showNoteIndexPicker();
    EXPECT_TRUE(orchestraScreen.pickerOpen());
    orchestraScreen.pickNote(0);
    orchestraScreen.hideNoteIndexPicker();
    EXPECT_EQ(orchestraScreen.customValueText(), "523.3");
    EXPECT_EQ(orchestraScreen.defaultValueText(), "523.3");
    orchestraScreen.ok();
    EXPECT_EQ(valueFor(section(), "baseOctave"), Value(5));
    EXPECT_EQ(valueFor(section(), "baseIndex"), Value(0));

    capture->opens = false;
    orchestraScreen.startMeasuring();
    EXPECT_TRUE(orchestraScreen.measuring());
    orchestraScreen.delegate()->getFrequency();
    EXPECT_TRUE(orchestraScreen.alertShown());
    EXPECT_FALSE(orchestraScreen.measuring());
    EXPECT_EQ(orchestraScreen.alertTitle(), "Microphone Required");
    orchestraScreen.dismissAlert();
    EXPECT_FALSE(orchestraScreen.alertShown());
    orchestraScreen.manualIncrementor(1);
    EXPECT_EQ(orchestraScreen.customValueText(), "523.4") << "manual steps stay";
}

TEST_F(TunerSettingsTest, ThresholdSavesTheSliderInWholePercent) {
    const struct {
        Value saved;
        double slider;
        double moved;
        int kept;
    } rows[] = {{Value(35), 0.35, -1, 35},
                {Value(35), 0.35, 0.999, 99},
                {Value(35), 0.35, 0.3499999999, 35},
                {Value(-5), 0.0, -1, 0},
                {Value(500), 1.0, -1, 100}};
    for (const auto& r : rows) {
        save({{"Treshold", r.saved}});
        microphone.viewWillAppear();
        EXPECT_DOUBLE_EQ(microphone.sliderValue(), r.slider) << r.saved.describe();
        if (r.moved >= 0)
            microphone.setSliderValue(r.moved);
        microphone.cancel();
        EXPECT_EQ(valueFor(section(), "Treshold"), r.saved) << "Cancel saves nothing";
        microphone.ok();
        EXPECT_EQ(valueFor(section(), "Treshold"), Value(r.kept)) << r.saved.describe();
    }
}

TEST_F(TunerSettingsTest, LevelsFillTheBarAndNoMicrophoneShowsTheAlert) {
    microphone.viewWillAppear();
    microphone.startMeasuring();
    microphone.delegate()->getVolumeLevel();
    EXPECT_EQ(microphone.progress(), 0.0) << "nothing captured yet";
    microphone.showIntensity(100);
    EXPECT_EQ(microphone.progress(), 1.0);
    capture->lose();
    microphone.delegate()->getVolumeLevel();
    EXPECT_TRUE(microphone.alertShown());
    EXPECT_FALSE(microphone.measuring());
    microphone.dismissAlert();
    EXPECT_FALSE(microphone.alertShown());
}

}  // namespace
}  // namespace zt::test
