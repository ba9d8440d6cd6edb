// The saved chromatic values as every reader takes them, the choice of the
// capture device, and the base frequency calibration's model on a scripted
// detector.
#include <gtest/gtest.h>

#include <cmath>

#include "ScriptedPDA.h"
#include "dsp/FakeCapture.h"
#include "dsp/FinePDA.h"
#include "dsp/OvertonePDA.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "tuners/ChromaticSection.h"
#include "tuners/MainFrequerncyProxy.h"
#include "tuners/MicrophoneProxy.h"
#include "tuners/OrchestraControlProxy.h"

namespace zt {
namespace {

TEST(ChromaticSectionTest, OutOfRangeValuesGiveTheFallbackOrTheNearestValidValue) {
    setLogQuiet(true);
    const double a4 = 440.0;
    const struct {
        Dictionary saved;
        int taper, treshold;
        int octave, index;
        double frequency;
    } rows[] = {
        {{}, 0, 10, 4, 9, a4},
        {{{"Taper", 9}, {"Treshold", -5}, {"baseFrequency", 0.0}}, 0, 0, 4, 9, a4},
        {{{"Taper", -1}, {"Treshold", 500}, {"baseFrequency", -3.0}}, 0, 100, 4, 9, a4},
        {{{"Taper", 3},
          {"Treshold", 35},
          {"baseOctave", 4},
          {"baseIndex", 9},
          {"baseFrequency", 10000.0}},
         3,
         35,
         4,
         9,
         660.0},
        {{{"Treshold", 35.7}, {"baseOctave", 4}, {"baseIndex", 9}, {"baseFrequency", 200.0}},
         0,
         35,
         4,
         9,
         330.0},
        {{{"Treshold", "x"}, {"baseOctave", 5}, {"baseIndex", 0}, {"baseFrequency", 525.0}},
         0,
         10,
         5,
         0,
         525.0},
        {{{"baseOctave", 9}, {"baseIndex", 9}, {"baseFrequency", 3600.0}}, 0, 10, 7, 9, 3600.0},
    };
    for (const auto& row : rows) {
        const std::string what = Value(row.saved).describe();
        EXPECT_EQ(chromatic::taperMode(row.saved), row.taper) << what;
        EXPECT_EQ(chromatic::tresholdPercent(row.saved), row.treshold) << what;
        const Note base = chromatic::baseNote(row.saved);
        EXPECT_EQ(base.getOctave(), row.octave) << what;
        EXPECT_EQ(base.getIndex(), row.index) << what;
        EXPECT_NEAR(base.getFrequency(), row.frequency, 1e-9) << what;
    }
    setLogQuiet(false);
}

TEST(InputSourceTest, AGoneDeviceFallsBackToTheDefaultAndOnlyAChosenOneIsLookedUp) {
    int lookups = 0;
    InputSource source(nullptr, [&] {
        ++lookups;
        return std::vector<std::string>{"Built-in Audio", "USB Microphone"};
    });
    const auto first = source.capture("");
    EXPECT_EQ(source.deviceName(), "");
    EXPECT_EQ(lookups, 0);
    EXPECT_EQ(source.capture(""), first) << "the same device keeps its capture";

    const auto usb = source.capture("USB Microphone");
    EXPECT_EQ(source.deviceName(), "USB Microphone");
    EXPECT_NE(usb, first);
    setLogQuiet(true);
    source.capture("Unplugged Headset");
    setLogQuiet(false);
    EXPECT_EQ(source.deviceName(), "") << "gone: the system's default";
    EXPECT_EQ(lookups, 2);

    auto fixed = std::make_shared<testing::FakeCapture>();
    InputSource file(fixed, [&] { return std::vector<std::string>{}; });
    EXPECT_EQ(file.capture("USB Microphone"), fixed) << "a given source is kept";
}

class CalibrationTest : public ::testing::Test {
protected:
    void SetUp() override {
        Facade::reset();
        setLogQuiet(true);
    }
    void TearDown() override {
        Facade::reset();
        setLogQuiet(false);
    }
};

TEST_F(CalibrationTest, MainServiceTakesTheDetectorAndDeviceFromTheSavedSection) {
    auto proxy = makeProxy<MainFrequerncyProxy>(nullptr, [] {
        return std::vector<std::string>{"USB Microphone", "Built-in Audio"};
    });
    Facade::getInstance().registerProxy(proxy);
    EXPECT_NE(dynamic_cast<FinePDA*>(proxy->pitchDetector()), nullptr) << "ours by default";

    proxy->initVariables({{"ClassicDetection", true}, {"InputDevice", "USB Microphone"}});
    EXPECT_NE(dynamic_cast<OvertonePDA*>(proxy->pitchDetector()), nullptr);
    EXPECT_EQ(proxy->inputDevice(), "USB Microphone");

    proxy->initVariables({{"Treshold", 20}, {"InputDevice", "Gone"}});
    EXPECT_NE(dynamic_cast<FinePDA*>(proxy->pitchDetector()), nullptr);
    EXPECT_EQ(proxy->inputDevice(), "");
}

TEST_F(CalibrationTest, ManualStepsAndPickedNotesDescribeAgainstTheNearestOctave) {
    OrchestraControlProxy proxy;
    proxy.setBaseNote(Note(4, 9, 440.0));
    // Tenths of a cent (whole cents with classic detection, see the
    // orchestra screen's steps).
    NoteDescription d = proxy.manualChangeFrequency(440.4);
    EXPECT_EQ(d.cents, 1.6);
    EXPECT_EQ(d.standartFrequency, 440.0);

    const struct {
        double frequency;
        int octave;
        double cents;
    } steps[] = {{439.0, 4, -3.9},
                 {330.0, 3, 702.0},
                 {329.9, 3, 701.4},
                 {660.1, 5, -497.8},
                 {660.0, 4, 702.0}};
    for (const auto& step : steps) {
        d = proxy.manualChangeFrequency(step.frequency);
        EXPECT_EQ(proxy.getNoteOctave(), step.octave) << step.frequency;
        EXPECT_EQ(d.cents, step.cents) << step.frequency;
    }
    const Note kept = proxy.getBaseNote();
    EXPECT_EQ(kept.getOctave(), 4);
    EXPECT_DOUBLE_EQ(kept.getFrequency(), 660.0);

    proxy.setNoteIndex(0, true);
    EXPECT_NEAR(proxy.getCurrentFrequency(), 523.2511, 1e-4) << "C picks C5";
    EXPECT_EQ(proxy.getNoteOctave(), 5);
    proxy.setNoteIndex(9, true);
    EXPECT_DOUBLE_EQ(proxy.getCurrentFrequency(), 440.0) << "A picks A4";
}

TEST_F(CalibrationTest, MeasurementsSmoothSmallDriftsAndHoldWithoutPitch) {
    auto capture = std::make_shared<testing::FakeCapture>();
    auto proxy = makeProxy<OrchestraControlProxy>(capture);
    Facade::getInstance().registerProxy(proxy);
    proxy->setBaseNote(Note(4, 9, 440.0));
    proxy->startAudioSession();
    testing::ScriptedPDA scripted;
    proxy->frequencyAnalyzer()->setPitchDetector(&scripted);
    scripted.script = {441.0, 441.4, 445.0, -1.0, 444.98};
    capture->feed(std::vector<std::int16_t>(1600, 0));
    const double shown[] = {441.0, 441.2, 445.0, 445.0, 444.98};
    for (double expected : shown) {
        capture->feed(std::vector<std::int16_t>(400, 0));
        EXPECT_NEAR(proxy->getNoteDesctiption().frequency, expected, 1e-3);
    }
    capture->lose();
    EXPECT_EQ(proxy->getNoteDesctiption().frequency, -2.0);
    proxy->stopAudioSession();
}

TEST_F(CalibrationTest, RealSoundMeasuresTheBaseAndTheLevel) {
    auto capture = std::make_shared<testing::FakeCapture>();
    auto orchestra = makeProxy<OrchestraControlProxy>(capture);
    Facade::getInstance().registerProxy(orchestra);
    orchestra->setBaseNote(Note(4, 9, 440.0));
    orchestra->startAudioSession();
    capture->feed(testing::sine(441.0, 2400));
    const NoteDescription& d = orchestra->getNoteDesctiption();
    EXPECT_NEAR(d.frequency, 441.0, 0.02);
    EXPECT_NEAR(d.cents, 3.9, 0.1 + 1e-9);
    EXPECT_EQ(orchestra->getBaseNote().getOctave(), 4);
    orchestra->stopAudioSession();

    auto microphone = makeProxy<MicrophoneProxy>(capture);
    Facade::getInstance().registerProxy(microphone);
    microphone->startAudioSession();
    capture->feed(std::vector<std::int16_t>(2400, 0));
    const int silence = microphone->getMainVolume();
    capture->feed(testing::sine(220.0, 2400));
    const int tone = microphone->getMainVolume();
    EXPECT_EQ(silence, 0);
    EXPECT_GT(tone, 50) << "a full-scale tone reads high";
    capture->lose();
    EXPECT_EQ(microphone->getMainVolume(), -2);
    microphone->stopAudioSession();
}

}  // namespace
}  // namespace zt
