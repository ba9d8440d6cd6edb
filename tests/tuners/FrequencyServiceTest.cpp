// The main frequency service and its commands, on a capture fed by the test
// and on a detector that reads out frequencies the test scripts.
#include <gtest/gtest.h>

#include <deque>
#include <memory>

#include "ScriptedPDA.h"
#include "dsp/FakeCapture.h"
#include "dsp/FinePDA.h"
#include "dsp/OvertonePDA.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "tuners/FrequencyCommands.h"
#include "tuners/MainFrequerncyProxy.h"
#include "tunings/SettingsProxy.h"

namespace zt {
namespace {

using testing::FakeCapture;
using testing::ScriptedPDA;
using testing::sine;

// Records the notifications the tuner screens listen to.
class Listener final : public Mediator {
public:
    Listener() : Mediator("Listener") {}
    std::vector<std::string> listNotificationInterests() const override {
        return {"ShowNoteAndFrequernsy", "ShowMicrophoneError",     "ShowOrchestraFrequency",
                "ShowOrchestraError",    "ShowMicrophoneIntensity", "ShowCalibratingError"};
    }
    void handleNotification(const Notification& n) override { heard.push_back(n); }
    std::vector<Notification> heard;
};

class FrequencyServiceTest : public ::testing::Test {
protected:
    void SetUp() override {
        Facade::reset();
        setLogQuiet(true);
        Facade& f = Facade::getInstance();
        f.registerCommand("GetMainFrequerncy", commandClass<GetMainFrequerncyCommand>());
        f.registerCommand("StartAudioSession", commandClass<StartAudioSessionCommand>());
        f.registerCommand("StopAudioSession", commandClass<StopAudioSessionCommand>());
        settings = makeProxy<SettingsProxy>();
        f.registerProxy(settings);
        proxy = makeProxy<MainFrequerncyProxy>(capture);
        f.registerProxy(proxy);
        listener = makeMediator<Listener>();
        f.registerMediator(listener);
    }
    void TearDown() override {
        proxy->stopAudioSession();
        Facade::reset();
        setLogQuiet(false);
    }

    // Starts a session with the saved section given, then reads from the
    // script from the first block on.
    void startScripted(const Dictionary& saved, std::deque<double> frequencies) {
        proxy->initVariables(saved);
        proxy->startAudioSession();
        proxy->frequencyAnalyzer()->setPitchDetector(&scripted);
        scripted.script = std::move(frequencies);
        capture->feed(std::vector<std::int16_t>(2000, 0));
    }
    const NoteDescription& next() {
        capture->feed(std::vector<std::int16_t>(400, 0));
        return proxy->getNoteDesctiption();
    }
    void poll() {
        Facade::getInstance().sendNotification("GetMainFrequerncy",
                                               static_cast<Proxy*>(proxy.get()));
    }

    std::shared_ptr<FakeCapture> capture = std::make_shared<FakeCapture>();
    std::shared_ptr<SettingsProxy> settings;
    std::shared_ptr<MainFrequerncyProxy> proxy;
    std::shared_ptr<Listener> listener;
    ScriptedPDA scripted;
};

TEST_F(FrequencyServiceTest, AllNotesNameTheNearestOfNinetySix) {
    startScripted({{"AllNotes", true}}, {440.0, 445.0, 453.0, 453.2, 10.0, 5000.0});
    ASSERT_EQ(proxy->noteObjects().size(), 96u);
    const struct {
        const char* name;
        double standard, cents;
        int index, octave;
    } rows[] = {
        {"A", 440.0, 0.0, 9, 4},        {"A", 440.0, 19.6, 9, 4},     {"A", 440.0, 50.4, 9, 4},
        {"A#", 466.1638, -49.2, 10, 4}, {"C", 16.3516, -851.3, 0, 0}, {"B", 3951.066, 407.6, 11, 7},
    };
    for (const auto& row : rows) {
        const NoteDescription& d = next();
        EXPECT_EQ(d.fullName, row.name);
        EXPECT_NEAR(d.standartFrequency, row.standard, 1e-3) << row.name;
        EXPECT_NEAR(d.cents, row.cents, 0.05) << row.name << " " << d.frequency;
        EXPECT_EQ(d.index, row.index);
        EXPECT_EQ(proxy->octaveOf(d), row.octave);
        EXPECT_EQ(d.volumeLevel, 7);
    }
}

TEST_F(FrequencyServiceTest, ReportedFrequenciesSmoothAndHold) {
    startScripted({{"AllNotes", true}}, {-1.0, 440.0, 440.3, 440.6, -1.0, 441.0});
    const NoteDescription& first = next();
    EXPECT_EQ(first.frequency, -1.0) << "no pitch yet: -1 with the first candidate";
    EXPECT_EQ(first.fullName, "C");
    EXPECT_FLOAT_EQ(next().frequency, 440.0f);
    EXPECT_FLOAT_EQ(next().frequency, 440.15f);
    // The next step compares with what was shown, 440.15.
    EXPECT_FLOAT_EQ(next().frequency, 440.375f);
    EXPECT_FLOAT_EQ(next().frequency, 440.375f) << "no pitch holds the last";
    EXPECT_FLOAT_EQ(next().frequency, 441.0f);
}

// Without pitch the fine detector's reading is held for one second of sound
// (20 blocks of 400 samples), then the tuner shows no pitch on the note last
// named; classic detection holds for as long as the silence lasts.
TEST_F(FrequencyServiceTest, SilenceEndsTheHoldAfterOneSecondUnlessClassic) {
    for (const bool classic : {false, true}) {
        std::deque<double> script{440.0, 445.0};
        script.insert(script.end(), 25, -1.0);
        script.push_back(441.0);
        startScripted({{"AllNotes", true}, {"ClassicDetection", classic}}, script);
        next();
        EXPECT_FLOAT_EQ(next().frequency, 445.0f);
        for (int silent = 1; silent <= 25; ++silent) {
            const NoteDescription& d = next();
            const bool held = classic || silent < 20;
            EXPECT_EQ(d.frequency, held ? 445.0 : -1.0) << classic << " block " << silent;
            EXPECT_EQ(d.fullName, "A") << "the note stays the one named, unlit";
            EXPECT_EQ(d.index, 9);
        }
        // A pitch after the silence is reported as it is, not averaged.
        const NoteDescription& after = next();
        EXPECT_FLOAT_EQ(after.frequency, 441.0f) << classic;
        EXPECT_DOUBLE_EQ(after.cents, 3.9);
        proxy->stopAudioSession();
    }
}

// The cents of a reading: from the frequency as measured with the fine
// detector, from whole tenths of a hertz with classic detection.
TEST_F(FrequencyServiceTest, CentsFromTheMeasuredFrequencyUnlessClassic) {
    for (const bool classic : {false, true}) {
        // A steady A2 that wavers about 0.05 cent reads one value.
        startScripted({{"AllNotes", true}, {"ClassicDetection", classic}},
                      {111.278, 107.1776, 109.999, 82.5, 110.0055, 110.005, 110.002, 110.0055});
        const double expected[][2] = {{20.0, 18.8}, {-45.0, -46.3}, {0.0, -1.6}, {2.0, 2.1},
                                      {0.1, 0.0},   {0.1, 0.0},     {0.1, 0.0},  {0.1, 0.0}};
        for (const auto& cents : expected)
            EXPECT_DOUBLE_EQ(next().cents, cents[classic ? 1 : 0]) << classic;
        proxy->stopAudioSession();
    }
}

TEST_F(FrequencyServiceTest, StringsOfTheCurrentTuning) {
    // Standard, then Drop D and E modal (E3 twice) as the settings change.
    startScripted({}, {110.0, 80.0, 150.0, 73.4, 164.0});
    const NoteDescription* d = &next();
    EXPECT_EQ(d->fullName, "A");
    EXPECT_EQ(d->index, 1) << "the fifth string";
    d = &next();
    EXPECT_EQ(d->fullName, "E");
    EXPECT_EQ(d->index, 0);
    EXPECT_EQ(proxy->octaveOf(*d), 2);
    d = &next();
    EXPECT_EQ(d->fullName, "D");
    EXPECT_EQ(d->index, 2);
    settings->setTuning(27);
    d = &next();
    EXPECT_EQ(d->fullName, "D");
    EXPECT_EQ(d->index, 0);
    EXPECT_EQ(proxy->octaveOf(*d), 2);
    settings->setTuning(29);
    d = &next();
    EXPECT_EQ(d->fullName, "E");
    EXPECT_EQ(proxy->octaveOf(*d), 3);
    EXPECT_EQ(d->index, 3) << "one record for both E3 strings carries the later number";
}

TEST_F(FrequencyServiceTest, SavedBaseNoteAndWindow) {
    const struct {
        const char* name;
        Dictionary saved;
        double a4;
        const SignalWindow* window;
    } rows[] = {
        {"nothing saved", {}, 440.0, &GaussWindow::getInstance()},
        {"frequency 0",
         {{"baseFrequency", 0.0}, {"Taper", 2}},
         440.0,
         &HammingWindow::getInstance()},
        {"calibrated",
         {{"baseOctave", 4}, {"baseIndex", 9}, {"baseFrequency", 442.0}, {"Taper", 3}},
         442.0,
         &HannWindow::getInstance()},
        {"base on C5",
         {{"baseOctave", 5}, {"baseIndex", 0}, {"baseFrequency", 523.2511}},
         440.0,
         &GaussWindow::getInstance()},
        {"taper out of range", {{"Taper", 9}}, 440.0, &GaussWindow::getInstance()},
        {"base far off", {{"baseFrequency", 10000.0}}, 660.0, &GaussWindow::getInstance()},
        {"negative base", {{"baseFrequency", -5.0}}, 440.0, &GaussWindow::getInstance()},
        {"cosine, Lanczos", {{"Taper", 1}}, 440.0, &CosineWindow::getInstance()},
    };
    for (const auto& row : rows) {
        proxy->initVariables(row.saved);
        EXPECT_NEAR(proxy->noteObjects()[4 * 12 + 9].standartFrequency, row.a4, 1e-3) << row.name;
        EXPECT_EQ(proxy->pitchDetector()->getTaper(), row.window) << row.name;
    }
}

TEST_F(FrequencyServiceTest, ClassicDetectionSwapsTheDetectorKeepingItsSettings) {
    proxy->initVariables({{"Taper", 3}});
    proxy->setTresholdPercent(30);
    EXPECT_NE(dynamic_cast<FinePDA*>(proxy->pitchDetector()), nullptr);
    proxy->setClassicDetection(true);
    auto* classic = dynamic_cast<OvertonePDA*>(proxy->pitchDetector());
    ASSERT_NE(classic, nullptr);
    EXPECT_EQ(classic->getTaper(), &HannWindow::getInstance());
    EXPECT_DOUBLE_EQ(classic->getTreshold(), 50.0 + 30 * 150.0 / 100.0);
    proxy->setClassicDetection(false);
    EXPECT_NE(dynamic_cast<FinePDA*>(proxy->pitchDetector()), nullptr);
}

TEST_F(FrequencyServiceTest, RealSoundThroughTheFineDetector) {
    proxy->initVariables({{"AllNotes", true}});
    proxy->startAudioSession();
    capture->feed(sine(440.0, 2400));
    const NoteDescription& d = proxy->getNoteDesctiption();
    EXPECT_EQ(d.fullName, "A");
    EXPECT_NEAR(d.frequency, 440.0, 0.01);
    EXPECT_EQ(d.cents, 0.0);
    EXPECT_EQ(d.index, 9);
}

TEST_F(FrequencyServiceTest, CommandsAnswerTheTunerAndTheMicrophoneError) {
    proxy->initVariables({{"AllNotes", true}});
    Facade::getInstance().sendNotification("StartAudioSession", static_cast<Proxy*>(proxy.get()));
    ASSERT_NE(proxy->frequencyAnalyzer(), nullptr);
    EXPECT_TRUE(proxy->frequencyAnalyzer()->isListening());
    capture->feed(sine(220.0, 2400));
    poll();
    ASSERT_EQ(listener->heard.size(), 1u);
    EXPECT_EQ(listener->heard[0].name(), "ShowNoteAndFrequernsy");
    ASSERT_NE(listener->heard[0].bodyAs<NoteDescription>(), nullptr);
    EXPECT_NEAR(listener->heard[0].bodyAs<NoteDescription>()->frequency, 220.0, 0.01);

    capture->lose();
    poll();
    ASSERT_EQ(listener->heard.size(), 2u);
    EXPECT_EQ(listener->heard[1].name(), "ShowMicrophoneError");
    EXPECT_FALSE(listener->heard[1].body().has_value());

    Facade::getInstance().sendNotification("StopAudioSession", static_cast<Proxy*>(proxy.get()));
    EXPECT_EQ(proxy->frequencyAnalyzer(), nullptr);
    capture->opens = false;
    Facade::getInstance().sendNotification("StartAudioSession", static_cast<Proxy*>(proxy.get()));
    poll();
    EXPECT_EQ(listener->heard.back().name(), "ShowMicrophoneError") << "no device to open";
}

// Stand-ins for the calibration screens' proxies.
class OrchestraStandIn final : public Proxy, public NoteReader, public AudioSessionOwner {
public:
    OrchestraStandIn() : Proxy("OrchestraControlProxy") {}
    const NoteDescription& getNoteDesctiption() override { return reading; }
    void startAudioSession() override { ++starts; }
    void stopAudioSession() override { ++stops; }
    NoteDescription reading;
    int starts = 0, stops = 0;
};

class MicrophoneStandIn final : public Proxy, public VolumeReader {
public:
    MicrophoneStandIn() : Proxy("MicrophoneProxy") {}
    int getMainVolume() override { return level; }
    int level = 0;
};

TEST_F(FrequencyServiceTest, CommandsServeTheCalibrationsByTheAskersName) {
    auto orchestra = makeProxy<OrchestraStandIn>();
    auto microphone = makeProxy<MicrophoneStandIn>();
    Facade& f = Facade::getInstance();
    f.registerProxy(orchestra);
    f.registerProxy(microphone);
    const struct {
        Proxy* asker;
        double frequency;
        int level;
        const char* answer;
    } rows[] = {
        {orchestra.get(), 441.0, 0, "ShowOrchestraFrequency"},
        {orchestra.get(), -2.0, 0, "ShowOrchestraError"},
        {orchestra.get(), -1.0, 0, "ShowOrchestraFrequency"},
        {microphone.get(), 0.0, 35, "ShowMicrophoneIntensity"},
        {microphone.get(), 0.0, 0, "ShowMicrophoneIntensity"},
        {microphone.get(), 0.0, -2, "ShowCalibratingError"},
        {nullptr, 0.0, 12, "ShowMicrophoneIntensity"},
    };
    for (const auto& row : rows) {
        orchestra->reading.frequency = row.frequency;
        microphone->level = row.level;
        listener->heard.clear();
        f.sendNotification("GetMainFrequerncy", row.asker);
        ASSERT_EQ(listener->heard.size(), 1u) << row.answer;
        EXPECT_EQ(listener->heard[0].name(), row.answer);
        if (const int* level = listener->heard[0].bodyAs<int>()) {
            EXPECT_EQ(*level, row.level);
        }
    }
    f.sendNotification("StartAudioSession", static_cast<Proxy*>(orchestra.get()));
    f.sendNotification("StopAudioSession", static_cast<Proxy*>(orchestra.get()));
    EXPECT_EQ(orchestra->starts, 1);
    EXPECT_EQ(orchestra->stops, 1);
    EXPECT_EQ(proxy->frequencyAnalyzer(), nullptr) << "the main session was not touched";
}

}  // namespace
}  // namespace zt
