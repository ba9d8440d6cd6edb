// The chromatic tuner screen with its mediator, wired as at start-up to the
// saved state, the tunings, the sound bank's proxy and the frequency service
// listening to a capture source driven by the test.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <algorithm>
#include <cmath>

#include "RecordingToneOutput.h"
#include "dsp/FakeCapture.h"
#include "sound/MediaProxy.h"
#include "state/StateCommands.h"
#include "state/StateKeys.h"
#include "state/StateProxy.h"
#include "state/StateTestSupport.h"
#include "tuners/ChromaticSection.h"
#include "tuners/FrequencyCommands.h"
#include "tuners/MainFrequerncyProxy.h"
#include "tuners/ui/TunerChromatic.h"
#include "tuners/ui/TunerChromaticMediator.h"
#include "tuners/ui/TunerDial.h"
#include "tunings/SettingsProxy.h"

using namespace zt;

namespace {

struct Recorder : Mediator {
    explicit Recorder(std::vector<std::string>& sent) : Mediator("Recorder"), sent(sent) {}
    std::vector<std::string> listNotificationInterests() const override {
        return {"StopMusic",
                "StartMusic",
                "StopMetronome",
                "ShowTunerBrain",
                "ShowTunerChromaticSettings",
                "GetMainFrequerncy"};
    }
    void handleNotification(const Notification& n) override { sent.push_back(n.name()); }
    std::vector<std::string>& sent;
};

SoundEngine& silentEngine() {
    static SoundEngine engine;
    return engine;
}

// Lets timers due within `ms` fire.
void runFor(int ms) {
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < ms) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QThread::msleep(1);
    }
}

NoteDescription note(const char* name, int index, double frequency, double cents,
                     double standart = 440.0, int level = 5) {
    return {name, standart, frequency, cents, level, index};
}

class TunerChromaticTest : public test::DataDirTest {
protected:
    void SetUp() override {
        DataDirTest::SetUp();
        Facade& f = facade();
        f.registerProxy(makeProxy<StateProxy>());
        registerStateCommands(f);
        f.registerCommand("GetMainFrequerncy", commandClass<GetMainFrequerncyCommand>());
        f.registerCommand("StartAudioSession", commandClass<StartAudioSessionCommand>());
        f.registerCommand("StopAudioSession", commandClass<StopAudioSessionCommand>());
        settings = makeProxy<SettingsProxy>();
        f.registerProxy(settings);
        frequency = makeProxy<MainFrequerncyProxy>(capture);
        f.registerProxy(frequency);
        media = makeProxy<MediaProxy>("ZebTools", silentEngine());
        media->setIsBuffersLoaded(true);
        f.registerProxy(media);
        f.registerMediator(makeMediator<Recorder>(sent));
        f.registerMediator(makeMediator<TunerChromaticMediator>(&screen));
    }
    void TearDown() override {
        frequency->stopAudioSession();
        DataDirTest::TearDown();
    }

    static Facade& facade() { return Facade::getInstance(); }
    void save(const Dictionary& changes) {
        facade().sendNotification("SaveChromaticTunerState", changes);
    }
    // The screen shown with these saved settings, its poll held back so
    // that the test hands it the notes.
    void showWith(const Dictionary& changes) {
        save(changes);
        screen.viewWillAppear();
        screen.stopTimer();
        sent.clear();
    }

    std::shared_ptr<zt::testing::FakeCapture> capture =
        std::make_shared<zt::testing::FakeCapture>();
    std::shared_ptr<SettingsProxy> settings;
    std::shared_ptr<MainFrequerncyProxy> frequency;
    std::shared_ptr<MediaProxy> media;
    std::vector<std::string> sent;
    TunerChromatic screen;
};

}  // namespace

TEST(TunerDialTest, NeedleLawInBothScales) {
    const struct {
        double cents;
        double nonLinear;
        double linear;
    } rows[] = {
        {0, 0, 0},
        {100, 0.5180, 0.3472},
        {-100, -0.5180, -0.3472},
        {200, 0.6945, 0.6945},
        {-200, -0.6945, -0.6945},
    };
    for (const auto& row : rows) {
        EXPECT_NEAR(dial::convertAngle(row.cents, false), row.nonLinear, 1e-4) << row.cents;
        EXPECT_NEAR(dial::convertAngle(row.cents, true), row.linear, 1e-4) << row.cents;
    }
}

// Classic detection moves the needle by whole cents (towards zero), the fine
// detector by tenths; either way 0.01 s per cent of the target.
TEST(TunerDialTest, NeedleTargetAndSwingTime) {
    const auto angle = [](double cents) { return dial::convertAngle(cents, false); };
    const struct {
        double frequency;
        double cents;
        double classicAngle, classicSeconds;
        double fineAngle, fineSeconds;
    } rows[] = {
        {440.0, 0.0, 0.0, 0.0, 0.0, 0.0},
        {452.9, 50.9, angle(50), 0.5, angle(50.9), 0.509},
        {440.1, 0.4, 0.0, 0.0, angle(0.4), 0.004},
        {439.9, -0.4, 0.0, 0.0, angle(-0.4), 0.004},
        {435.0, -19.8, angle(-19), 0.19, angle(-19.8), 0.198},
        {900.0, 350.0, dial::kWorkAngle, 2.0, dial::kWorkAngle, 2.0},
        {200.0, -350.0, -dial::kWorkAngle, 2.0, -dial::kWorkAngle, 2.0},
        {-1.0, 30.0, 0.0, 0.3, 0.0, 0.3},
    };
    for (const auto& row : rows) {
        const NoteDescription n = note("A", 9, row.frequency, row.cents);
        const dial::NeedleMove classic = dial::needleMove(n, false, true);
        EXPECT_NEAR(classic.angle, row.classicAngle, 1e-9) << row.cents;
        EXPECT_NEAR(classic.seconds, row.classicSeconds, 1e-6) << row.cents;
        const dial::NeedleMove fine = dial::needleMove(n, false, false);
        EXPECT_NEAR(fine.angle, row.fineAngle, 1e-9) << row.cents;
        EXPECT_NEAR(fine.seconds, row.fineSeconds, 1e-6) << row.cents;
    }
}

TEST(TunerDialTest, VolumeBarGrowsAboutTheCentre) {
    const struct {
        int level;
        double x, width;
    } rows[] = {{0, 162, 0}, {1, 156, 8}, {5, 132, 56}, {10, 102, 116}};
    for (const auto& row : rows) {
        const dial::VolumeBar bar = dial::volumeBar(row.level);
        EXPECT_EQ(bar.x, row.x) << row.level;
        EXPECT_EQ(bar.width, row.width) << row.level;
        EXPECT_EQ(bar.y, 190);
        EXPECT_DOUBLE_EQ(bar.shown, row.width / 116) << row.level;
    }
}

TEST_F(TunerChromaticTest, FrequencyCentsReferencesAndAmber) {
    showWith({});
    const QStringList a4{"440.0", "466.2", "415.3", "493.9", "392.0"};
    const struct {
        NoteDescription note;
        const char* text;
        const char* cents;
        QStringList references;
        bool amber;
    } rows[] = {
        {note("E", 0, 82.406, 0.0, 82.41),
         "82.4 Hz",
         "0.0 \u00a2",
         {"82.4", "87.3", "77.8", "92.5", "73.4"},
         true},
        {note("A", 1, 440.96, 3.8), "441.0 Hz", "+3.8 \u00a2", a4, true},
        {note("A", 1, 441.27, 5.0), "441.3 Hz", "+5.0 \u00a2", a4, true},
        {note("A", 1, 438.73, -5.0), "438.7 Hz", "-5.0 \u00a2", a4, true},
        {note("A", 1, 441.3, 5.1), "441.3 Hz", "+5.1 \u00a2", a4, false},
        {note("A", 1, 111.278, 20.0, 109.99),
         "111.3 Hz",
         "+20.0 \u00a2",
         {"110.0", "116.5", "103.8", "123.5", "98.0"},
         false},
        {note("A", 1, 1000.0, -150.0), "1000.0 Hz", "-150.0 \u00a2", a4, false},
        {note("E", 0, -1.0, 12.0, 82.41), "", "", {"", "", "", "", ""}, false},
    };
    for (const auto& row : rows) {
        screen.showNoteAndFreq(row.note);
        EXPECT_EQ(screen.frequencyText(), row.text);
        EXPECT_EQ(screen.centsText(), QString::fromUtf8(row.cents)) << row.text;
        EXPECT_EQ(screen.referenceTexts(), row.references) << row.text;
        EXPECT_EQ(screen.frequencyAmber(), row.amber) << row.text;
    }
}

TEST_F(TunerChromaticTest, TuningModeLightsTheStringHeard) {
    showWith({});
    EXPECT_EQ(screen.slotLetters(), (QStringList{"E", "A", "D", "G", "B", "E"}));
    screen.showNoteAndFreq(note("A2", 1, 110.0, 0.0, 110.0));
    EXPECT_EQ(screen.activeSlot(), 1);
    EXPECT_EQ(screen.activeOctave(), "") << "a string is its own octave";
    EXPECT_NEAR(screen.needleAngle(), 0.0, 1e-12);
    screen.showNoteAndFreq(note("A", 1, -1.0, 0.0, 110.0));
    EXPECT_EQ(screen.activeSlot(), -1);
    EXPECT_NEAR(screen.needleSeconds(), 0.3, 1e-6);

    settings->setTuning(3);  // C#: the sharps show beside their letters
    facade().sendNotification("SetTuning");
    EXPECT_EQ(screen.slotLetters(), (QStringList{"C", "F", "B", "E", "G", "C"}));
    EXPECT_EQ(screen.slotSharps(), (QVariantList{true, true, false, false, true, true}));
}

// From B the window slides down one step at a time to show C in slot 1; the
// lit slot adds the octave of the note heard.
TEST_F(TunerChromaticTest, AllNotesWindowSlidesFromBToC) {
    showWith({{"AllNotes", true}});
    EXPECT_EQ(screen.slotLetters(), (QStringList{"C", "C", "D", "D", "E", "F"}));
    EXPECT_EQ(screen.activeOctave(), "");
    screen.showNoteAndFreq(note("B3", 11, 246.9, 1.0));
    runFor(30);
    EXPECT_EQ(screen.beginIndex(), 7);
    EXPECT_EQ(screen.activeSlot(), 4);
    EXPECT_EQ(screen.activeOctave(), "3");
    screen.showNoteAndFreq(note("C4", 0, 261.6, 0.0));
    runFor(30);
    EXPECT_EQ(screen.beginIndex(), -1);
    EXPECT_EQ(screen.slotLetters(), (QStringList{"B", "C", "C", "D", "D", "E"}));
    EXPECT_EQ(screen.slotSharps(), (QVariantList{false, false, true, false, true, false}));
    EXPECT_EQ(screen.activeSlot(), 1);
    EXPECT_EQ(screen.activeOctave(), "4");
    // The service names pitch classes only: the octave comes from the
    // note's reference frequency.
    screen.showNoteAndFreq(note("A", 9, 110.0, 0.0, 110.0));
    runFor(30);
    EXPECT_EQ(screen.activeOctave(), "2") << "A2 and A4 differ";
    screen.showNoteAndFreq(note("A", 9, 440.0, 0.0, 440.0));
    runFor(30);
    EXPECT_EQ(screen.activeOctave(), "4");
    screen.showNoteAndFreq(note("", 9, -1, 0.0));
    runFor(30);
    EXPECT_EQ(screen.activeOctave(), "") << "nothing heard, nothing lit";
}

TEST_F(TunerChromaticTest, NotesAreDroppedWhileThePanelChangeIsPending) {
    showWith({{"AllNotes", true}});
    screen.showNoteAndFreq(note("D", 2, 293.7, 10.0, 293.66));
    ASSERT_TRUE(screen.panelRefreshPending());
    screen.showNoteAndFreq(note("G", 7, 392.0, 40.0, 392.0));
    screen.showNoteAndFreq(note("A", 9, 440.0, -60.0));
    EXPECT_EQ(screen.frequencyText(), "293.7 Hz");
    EXPECT_NEAR(screen.needleAngle(), screen.convertAngle(10), 1e-12);
    runFor(30);
    EXPECT_FALSE(screen.panelRefreshPending());
    EXPECT_EQ(screen.activeSlot(), 2);

    // Too far from any note: needle and labels follow, the panel does not.
    screen.showNoteAndFreq(note("G", 7, 420.0, 250.0, 392.0));
    EXPECT_FALSE(screen.panelRefreshPending());
    EXPECT_EQ(screen.frequencyText(), "420.0 Hz");
    EXPECT_NEAR(screen.needleAngle(), dial::kWorkAngle, 1e-12);
    EXPECT_EQ(screen.activeSlot(), 2);
}

TEST_F(TunerChromaticTest, SavedValuesOutOfRangeFallBack) {
    const struct {
        const char* name;
        Dictionary saved;
        int taper;
        int treshold;
        double a4;
    } rows[] = {
        {"defaults", {}, 0, 10, 440.0},
        {"calibrated", {{"Taper", 3}, {"Treshold", 40}, {"baseFrequency", 442.0}}, 3, 40, 442.0},
        {"base frequency 0", {{"baseFrequency", 0.0}}, 0, 10, 440.0},
        {"negative base", {{"baseFrequency", -3.0}}, 0, 10, 440.0},
        {"10 kHz base", {{"baseFrequency", 10000.0}}, 0, 10, 660.0},
        {"taper 9", {{"Taper", 9}}, 0, 10, 440.0},
        {"treshold -5", {{"Treshold", -5}}, 0, 0, 440.0},
        {"treshold 500", {{"Treshold", 500}}, 0, 100, 440.0},
    };
    for (const auto& row : rows) {
        Dictionary section = state::defaultSavedState()["ChromaticSettings"].dictionary();
        for (const auto& [key, value] : row.saved)
            section[key] = value;
        screen.setSavedData(section);
        EXPECT_EQ(screen.taperMode(), row.taper) << row.name;
        EXPECT_EQ(screen.tresholdPercent(), row.treshold) << row.name;
        EXPECT_NEAR(chromatic::concertPitchOf(screen.baseNote()), row.a4, 1e-9) << row.name;
    }
    settings->setTuning(52);
    screen.setTuningTuner(60);
    EXPECT_EQ(screen.tuning(), 0);
}

TEST_F(TunerChromaticTest, PollsOnlyWhileShownAndHandsOnItsSettings) {
    save({{"Taper", 2}, {"Treshold", 30}, {"AllNotes", true}});
    settings->setTuning(27);
    EXPECT_FALSE(screen.polling());
    screen.viewWillAppear();
    EXPECT_TRUE(screen.polling());
    EXPECT_EQ(sent, (std::vector<std::string>{"StopMusic", "StopMetronome"}));
    EXPECT_EQ(settings->getTuningNumber(), 27);
    EXPECT_EQ(frequency->getTaperMode(), 2);
    EXPECT_EQ(frequency->getTresholdPercent(), 30);
    EXPECT_TRUE(frequency->isAllNotes());
    EXPECT_FALSE(frequency->isAudioSessionStop());
    runFor(230);
    const auto polls = std::count(sent.begin(), sent.end(), "GetMainFrequerncy");
    EXPECT_GE(polls, 2);
    EXPECT_LE(polls, 5);

    screen.viewDidDisappear();
    EXPECT_FALSE(screen.polling());
    EXPECT_TRUE(frequency->isAudioSessionStop());
    EXPECT_EQ(sent.back(), "StartMusic");
    sent.clear();
    runFor(120);
    EXPECT_TRUE(sent.empty());

    // The sound bank still loading: no reading is asked for.
    media->setIsBuffersLoaded(false);
    screen.viewWillAppear();
    runFor(120);
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "GetMainFrequerncy"), 0);
    screen.setButtonMode();
    sent.clear();
    screen.viewDidDisappear();
    EXPECT_TRUE(sent.empty());  // the music stays paused
}

// The app opening on the tuner's tab shows it before its mediator exists:
// it starts listening once the mediator is there.
TEST_F(TunerChromaticTest, ShownBeforeItsMediatorListensOnceItIsThere) {
    facade().removeMediator(TunerChromaticMediator::NAME);
    TunerChromatic opening;
    opening.viewWillAppear();
    EXPECT_FALSE(opening.polling());
    facade().registerMediator(makeMediator<TunerChromaticMediator>(&opening));
    runFor(10);
    EXPECT_TRUE(opening.polling());
    EXPECT_FALSE(frequency->isAudioSessionStop());
    EXPECT_NE(frequency->frequencyAnalyzer(), nullptr);
    opening.viewDidDisappear();
    EXPECT_EQ(frequency->frequencyAnalyzer(), nullptr);
}

// A tone through the whole pipeline: the capture, the detector, the note
// choice and the screen.
TEST_F(TunerChromaticTest, ReadsATonePolledFromTheCapture) {
    screen.viewWillAppear();
    capture->feed(zt::testing::sine(110.0, 2400));
    runFor(80);
    EXPECT_EQ(screen.frequencyText(), "110.0 Hz");
    EXPECT_EQ(screen.activeSlot(), 1);
    EXPECT_NEAR(screen.needleAngle(), 0.0, 1e-12);
    EXPECT_TRUE(screen.frequencyAmber());
    screen.viewDidDisappear();
}

// A tuning the user made after the screen was set up: its strings show, and
// a tone at its C4 (the 2nd string, a semitone above standard's B3) lights
// that string through the whole pipeline.
TEST_F(TunerChromaticTest, AUsersTuningShowsItsStringsAndLightsTheOneHeard) {
    ASSERT_EQ(settings->storeCustomTuning(-1, "My C", "C2 A2 D3 G3 C4 F4"), "");
    settings->setTuning(53);
    screen.viewWillAppear();
    EXPECT_EQ(screen.slotLetters(), (QStringList{"C", "A", "D", "G", "C", "F"}));
    capture->feed(zt::testing::sine(261.63, 2400));
    runFor(80);
    EXPECT_EQ(screen.activeSlot(), 4);
    EXPECT_EQ(screen.frequencyText(), "261.6 Hz");
    screen.viewDidDisappear();
}

// The tone stops: with the fine detector the dial holds the last reading for
// one second of silence at most, then shows no pitch (needle back in 0.3 s,
// labels blank, no string lit); with classic detection it holds on.
TEST_F(TunerChromaticTest, SilenceBlanksTheDialWithinASecondUnlessClassic) {
    for (const bool classic : {false, true}) {
        showWith({{"ClassicDetection", classic}});
        auto poll = [this](const std::vector<std::int16_t>& sound) {
            capture->feed(sound);
            facade().sendNotification("GetMainFrequerncy", static_cast<Proxy*>(frequency.get()));
        };
        // A2 20 cents sharp (the classic detector reads this short a sound
        // lower).
        poll(zt::testing::sine(111.278, 2000));
        if (!classic) {
            EXPECT_EQ(screen.frequencyText(), "111.3 Hz");
            EXPECT_EQ(screen.centsText(), QString::fromUtf8("+20.0 \u00a2"));
            EXPECT_NEAR(screen.needleAngle(), screen.convertAngle(20), 1e-3);
        }
        ASSERT_GE(screen.activeSlot(), 0) << classic;
        // 400 samples of silence a block: the 5th is all silence.
        for (int block = 1; block <= 25; ++block) {
            poll(std::vector<std::int16_t>(400, 0));
            // The last block with pitch is one of the first four.
            if (classic || block < 20) {
                EXPECT_TRUE(screen.frequencyText().endsWith(" Hz")) << classic << " " << block;
                EXPECT_GE(screen.activeSlot(), 0) << classic << " " << block;
            }
        }
        if (!classic) {
            EXPECT_EQ(screen.frequencyText(), "");
            EXPECT_EQ(screen.centsText(), "");
            EXPECT_EQ(screen.referenceTexts(), QStringList({"", "", "", "", ""}));
            EXPECT_EQ(screen.activeSlot(), -1);
            EXPECT_EQ(screen.needleAngle(), 0.0);
            EXPECT_NEAR(screen.needleSeconds(), 0.3, 1e-6);
        }
        screen.viewDidDisappear();
    }
}

// No capture device: one alert, the poll stops; its "Ok" leads to the by-ear
// tuner. Once a device is back, the next appearance listens again.
TEST_F(TunerChromaticTest, MissingMicrophoneAlertsOnceAndRecovers) {
    capture->opens = false;
    screen.viewWillAppear();
    runFor(150);
    EXPECT_TRUE(screen.microphoneAlert());
    EXPECT_FALSE(screen.polling());
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "GetMainFrequerncy"), 1);
    EXPECT_EQ(screen.needleAngle(), 0.0);
    EXPECT_EQ(screen.frequencyText(), "");
    screen.dismissMicrophoneAlert();
    EXPECT_FALSE(screen.microphoneAlert());
    EXPECT_EQ(sent.back(), "ShowTunerBrain");
    screen.viewDidDisappear();

    capture->opens = true;
    screen.viewWillAppear();
    capture->feed(zt::testing::sine(110.0, 2400));
    runFor(80);
    EXPECT_FALSE(screen.microphoneAlert());
    EXPECT_TRUE(screen.polling());
    EXPECT_EQ(screen.frequencyText(), "110.0 Hz");

    // The device goes away while listening; leaving closes the alert.
    capture->lose();
    runFor(80);
    EXPECT_TRUE(screen.microphoneAlert());
    EXPECT_FALSE(screen.polling());
    screen.viewDidDisappear();
    EXPECT_FALSE(screen.microphoneAlert());
}

// The pitch pipe: each slot's note at the saved concert pitch, from the
// nearest recorded string.
TEST_F(TunerChromaticTest, TouchingASlotPlaysItsNoteAtTheConcertPitch) {
    // Each row saves every key it depends on: saves merge into the section.
    const Dictionary a440{{"AllNotes", false}, {"baseFrequency", 0.0}};
    const Dictionary a443{{"AllNotes", false}, {"baseFrequency", 443.0}};
    const Dictionary all440{{"AllNotes", true}, {"baseFrequency", 0.0}};
    const Dictionary all443{{"AllNotes", true}, {"baseFrequency", 443.0}};
    const struct {
        Dictionary saved;
        int slot;
        const char* play;
        const char* text;
    } rows[] = {
        {a440, 0, "play 6 x1.000000 loop", "E2  82.4 Hz"},
        {a440, 4, "play 2 x1.000000 loop", "B3  246.9 Hz"},
        {a443, 5, "play 1 x1.006818 loop", "E4  331.9 Hz"},
        {a443, 1, "play 5 x1.006818 loop", "A2  110.8 Hz"},
        // All notes, nothing heard: the window C to F in octave 4.
        {all440, 3, "play 1 x0.943874 loop", "D#4  311.1 Hz"},
        {all443, 0, "play 2 x1.066687 loop", "C4  263.4 Hz"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        test::RecordingToneOutput tones;
        screen.setToneOutput(&tones);
        showWith(row.saved);
        screen.touchSlot(row.slot);
        EXPECT_EQ(screen.toneSlot(), row.slot);
        EXPECT_EQ(screen.toneText().toStdString(), row.text);
        EXPECT_EQ(tones.calls, std::vector<std::string>{row.play});
        screen.touchSlot(row.slot);
        EXPECT_EQ(screen.toneSlot(), -1);
        EXPECT_EQ(tones.calls.size(), 2u);
        screen.viewDidDisappear();
        screen.setToneOutput(nullptr);
    }
}

TEST_F(TunerChromaticTest, ListeningPausesWhileThePipeSoundsAndSpaceWorksIt) {
    test::RecordingToneOutput tones;
    screen.setToneOutput(&tones);
    screen.viewWillAppear();
    screen.showNoteAndFreq(note("A2", 1, 111.0, 15.7, 110.0));
    EXPECT_EQ(screen.activeSlot(), 1);
    EXPECT_FALSE(screen.keyPressed(Qt::Key_A));
    // Space plays the string lit, A2.
    EXPECT_TRUE(screen.keyPressed(Qt::Key_Space));
    EXPECT_EQ(screen.toneSlot(), 1);
    EXPECT_FALSE(screen.polling());
    EXPECT_TRUE(frequency->isAudioSessionStop());
    EXPECT_EQ(screen.frequencyText(), "");
    EXPECT_EQ(screen.needleAngle(), 0.0);
    // Another string cuts it and listening stays paused.
    screen.touchSlot(0);
    EXPECT_EQ(tones.calls, (std::vector<std::string>{"play 5 x1.000000 loop", "stop 5",
                                                     "play 6 x1.000000 loop"}));
    EXPECT_FALSE(screen.polling());
    EXPECT_TRUE(screen.keyPressed(Qt::Key_Space));
    EXPECT_EQ(screen.toneSlot(), -1);
    EXPECT_TRUE(screen.polling());
    EXPECT_FALSE(frequency->isAudioSessionStop());
    // Leaving the screen stops the pipe without listening again.
    screen.touchSlot(2);
    screen.viewDidDisappear();
    EXPECT_EQ(tones.calls.back(), "stop 4");
    EXPECT_FALSE(screen.polling());
    EXPECT_TRUE(frequency->isAudioSessionStop());
}

TEST_F(TunerChromaticTest, AllNotesPipeTakesTheOctaveOfTheNoteHeard) {
    showWith({{"AllNotes", true}});
    // G#2 heard: the window slides to keep it in slots 1 to 4.
    screen.showNoteAndFreq(note("G#", 8, 104.0, 2.0, 103.83));
    runFor(30);
    const int lit = screen.activeSlot();
    ASSERT_GE(lit, 1);
    EXPECT_EQ(screen.slotPosition(lit), 32);
    EXPECT_EQ(screen.slotPosition(lit + 1), 33);
    EXPECT_EQ(screen.slotPosition(lit - 1), 31);
    EXPECT_EQ(screen.slotPosition(6), -1);
}

TEST_F(TunerChromaticTest, DisplayChoicesAreOffUntilSavedAndFeedTheViews) {
    showWith({});
    EXPECT_FALSE(screen.strobeView());
    EXPECT_FALSE(screen.pitchHistory());
    showWith({{"StrobeView", true}, {"PitchHistory", true}});
    EXPECT_TRUE(screen.strobeView());
    EXPECT_TRUE(screen.pitchHistory());

    screen.showNoteAndFreq(note("A2", 1, 111.0, 15.7, 110.0));
    EXPECT_TRUE(screen.strobe().pitched());
    EXPECT_DOUBLE_EQ(screen.strobe().shownCents(screen.clockSeconds()), 15.7);
    screen.showNoteAndFreq(note("E2", 0, 82.5, 2.0, 82.41));
    screen.showNoteAndFreq(note("E2", 0, -1.0, 2.0, 82.41));
    EXPECT_FALSE(screen.strobe().pitched());
    ASSERT_EQ(screen.trace().size(), 3u);
    EXPECT_EQ(screen.trace().at(0).note, 33);
    EXPECT_EQ(screen.trace().at(1).note, 28);
    EXPECT_DOUBLE_EQ(screen.trace().at(1).cents, 2.0);
    EXPECT_EQ(screen.trace().at(2).note, PitchTrace::kNoNote);
}
