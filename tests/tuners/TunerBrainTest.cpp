// The by-ear tuner and its settings screen with their mediators, the saved
// state, the tunings and the sound bank's proxy wired as at start-up; the
// strings play into a recording output.
#include <QCoreApplication>

#include "RecordingToneOutput.h"
#include "sound/MediaProxy.h"
#include "state/PlistCodec.h"
#include "state/StateCommands.h"
#include "state/StateProxy.h"
#include "state/StateTestSupport.h"
#include "tuners/ui/TunerBrain.h"
#include "tuners/ui/TunerBrainMediator.h"
#include "tuners/ui/TunerBrainSettings.h"
#include "tuners/ui/TunerBrainSettingsMediator.h"
#include "tunings/SettingsProxy.h"
#include "tunings/TuningList.h"

namespace zt::test {
namespace {

using Calls = std::vector<std::string>;

// The notifications the screens send that have no other listener here.
struct SentRecorder : Mediator {
    explicit SentRecorder(Calls& sent) : Mediator("SentRecorder"), sent(sent) {}
    std::vector<std::string> listNotificationInterests() const override {
        return {"StopMusic", "StartMusic", "StopMetronome"};
    }
    void handleNotification(const Notification& n) override { sent.push_back(n.name()); }
    Calls& sent;
};

SoundEngine& silentEngine() {
    static SoundEngine engine;
    return engine;
}

class TunerBrainTest : public DataDirTest {
protected:
    // Starts the program's part that the by-ear tuner sees, on a saved state
    // whose by-ear and common sections are given.
    void start(const Dictionary& brain = {}, const Dictionary& common = {}) {
        Dictionary file = defaultFile();
        for (const auto& [key, value] : brain)
            file["BrainSettings"].dictionary()[key] = value;
        for (const auto& [key, value] : common)
            file["CommonSettings"].dictionary()[key] = value;
        writeBytes(statePath(), plist::toXml(Value(file)));

        Facade& f = Facade::getInstance();
        f.registerProxy(makeProxy<StateProxy>());
        registerStateCommands(f);
        f.registerProxy(makeProxy<SettingsProxy>());
        media = makeProxy<MediaProxy>("ZebTools", silentEngine());
        media->setIsBuffersLoaded(true);
        f.registerProxy(media);
        f.sendNotification("GetCommonState");
        f.registerMediator(makeMediator<TunerBrainMediator>(&brain_));
        f.registerMediator(makeMediator<TunerBrainSettingsMediator>(&settings));
        f.registerMediator(makeMediator<SentRecorder>(sent));
        brain_.viewWillAppear();
    }

    // What the strings play when each is touched, from the 1st to the 6th.
    Calls touchEach() {
        output.calls.clear();
        for (int n = 1; n <= 6; ++n)
            brain_.pressed(n);
        return output.calls;
    }

    std::vector<int> highlights() const {
        std::vector<int> out;
        for (int n = 1; n <= 6; ++n)
            out.push_back(brain_.highlight(n));
        return out;
    }

    Dictionary savedSection() const {
        return valueFor(readDictionary(statePath()), "BrainSettings").dictionary();
    }

    RecordingToneOutput output;
    TunerBrain brain_{output};
    TunerBrainSettings settings{&brain_};
    std::shared_ptr<MediaProxy> media;
    Calls sent;
};

struct TuningCase {
    int index;
    const char* name;
    // By string 1 to 6.
    std::vector<int> offsets;
    QStringList notes;
    // The user's tuning the saved state names, if any.
    const char* custom = nullptr;
    // The capo the saved state holds, if any.
    Value capo = Value();
};

class ByEarTunings : public TunerBrainTest, public ::testing::WithParamInterface<TuningCase> {};

TEST_P(ByEarTunings, EachStringPlaysItsRecordingTransposedToTheTuningsNote) {
    const TuningCase& c = GetParam();
    // The user has a tuning of their own; it moves nothing of the catalogue.
    ASSERT_TRUE(tunings::saveCustomTunings(tunings::customTuningsPath(),
                                           {{"My C", "C2&A2&D3&G3&C4&F4", false}}));
    Dictionary common{{"Tuning", c.index}};
    if (c.custom)
        common["CustomTuning"] = c.custom;
    start(c.capo.isNull() ? Dictionary{} : Dictionary{{"Capo", c.capo}}, common);
    EXPECT_EQ(brain_.tuningName().toStdString(), c.name);
    EXPECT_EQ(brain_.noteNames(), c.notes);
    Calls expected;
    for (int n = 1; n <= 6; ++n)
        expected.push_back("play " + std::to_string(n) + " " + std::to_string(c.offsets[n - 1]) +
                           " once");
    EXPECT_EQ(touchEach(), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Catalogue, ByEarTunings,
    ::testing::Values(
        TuningCase{0, "Standard", {0, 0, 0, 0, 0, 0}, {"E", "B", "G", "D", "A", "E"}},
        TuningCase{27, "Drop D", {0, 0, 0, 0, 0, -2}, {"E", "B", "G", "D", "A", "D"}},
        TuningCase{2, "Baritone", {-5, -5, -5, -5, -5, -5}, {"B", "F#", "D", "A", "E", "B"}},
        TuningCase{1, "All Fourths", {1, 1, 0, 0, 0, 0}, {"F", "C", "G", "D", "A", "E"}},
        // A hand-edited file naming no tuning of the catalogue: Standard.
        TuningCase{99, "Standard", {0, 0, 0, 0, 0, 0}, {"E", "B", "G", "D", "A", "E"}},
        TuningCase{0, "My C", {1, 1, 0, 0, 0, -4}, {"F", "C", "G", "D", "A", "C"}, "My C"},
        // The user's tuning named by the saved state was deleted: Standard.
        TuningCase{0, "Standard", {0, 0, 0, 0, 0, 0}, {"E", "B", "G", "D", "A", "E"}, "Gone"},
        // With a capo every string sounds, and is named, that many frets up.
        TuningCase{0,
                   "Standard  \u00B7  Capo 2",
                   {2, 2, 2, 2, 2, 2},
                   {"F#", "C#", "A", "E", "B", "F#"},
                   nullptr,
                   Value(2)},
        TuningCase{27,
                   "Drop D  \u00B7  Capo 3",
                   {3, 3, 3, 3, 3, 1},
                   {"G", "D", "A#", "F", "C", "F"},
                   nullptr,
                   Value(3)},
        TuningCase{2,
                   "Baritone  \u00B7  Capo 12",
                   {7, 7, 7, 7, 7, 7},
                   {"B", "F#", "D", "A", "E", "B"},
                   nullptr,
                   Value(12)},
        TuningCase{0,
                   "My C  \u00B7  Capo 1",
                   {2, 2, 1, 1, 1, -3},
                   {"F#", "C#", "G#", "D#", "A#", "C#"},
                   "My C",
                   Value(1)},
        // A capo that cannot be read back is no capo.
        TuningCase{
            0, "Standard", {0, 0, 0, 0, 0, 0}, {"E", "B", "G", "D", "A", "E"}, nullptr, Value(13)},
        TuningCase{0,
                   "Standard",
                   {0, 0, 0, 0, 0, 0},
                   {"E", "B", "G", "D", "A", "E"},
                   nullptr,
                   Value("high")}),
    [](const auto& info) {
        const Value& capo = info.param.capo;
        return "Tuning" + std::to_string(info.param.index) + (info.param.custom ? "Own" : "") +
               (info.param.custom && *info.param.name == 'S' ? "Gone" : "") +
               (capo.isNull()     ? ""
                : capo.isNumber() ? "Capo" + std::to_string(capo.toInt(0))
                                  : "CapoText");
    });

TEST_F(TunerBrainTest, WithLoopOnlyTheLastStringTouchedSoundsAndTouchingItAgainSilencesIt) {
    start({{"Loop", true}});
    ASSERT_TRUE(brain_.loopSound());
    const Calls stopAll = {"stop 1", "stop 2", "stop 3", "stop 4", "stop 5", "stop 6"};
    auto then = [](Calls calls, std::initializer_list<const char*> more) {
        calls.insert(calls.end(), more.begin(), more.end());
        return calls;
    };
    struct Step {
        int string;
        Calls calls;
        int looping;  // 0: none
        std::vector<int> lights;
    };
    const std::vector<Step> steps = {
        {3, then(stopAll, {"play 3 0 loop"}), 3, {0, 0, 2, 0, 0, 0}},
        {5, then(stopAll, {"play 5 0 loop"}), 5, {0, 0, 0, 0, 2, 0}},
        {5, then(stopAll, {"stop 5"}), 0, {0, 0, 0, 0, 0, 0}},
        {5, then(stopAll, {"play 5 0 loop"}), 5, {0, 0, 0, 0, 2, 0}},
    };
    for (std::size_t i = 0; i < steps.size(); ++i) {
        output.calls.clear();
        brain_.pressed(steps[i].string);
        EXPECT_EQ(output.calls, steps[i].calls) << "touch " << i + 1;
        for (int n = 1; n <= 6; ++n)
            EXPECT_EQ(brain_.isLooping(n), n == steps[i].looping) << "touch " << i + 1;
        EXPECT_EQ(highlights(), steps[i].lights) << "touch " << i + 1;
    }
}

TEST_F(TunerBrainTest, WithoutLoopEachTouchRestartsTheToneAndItsFade) {
    start();
    for (int i = 1; i <= 2; ++i) {
        output.calls.clear();
        brain_.pressed(4);
        EXPECT_EQ(output.calls, Calls{"play 4 0 once"});
        EXPECT_EQ(brain_.fadeCounts()[3].toInt(), i);
    }
    brain_.pressed(2);
    EXPECT_EQ(highlights(), (std::vector<int>{0, 1, 0, 0, 0, 0}));
    EXPECT_FALSE(brain_.isLooping(2));
}

TEST_F(TunerBrainTest, TheHighlightFadesWithAnEaseInOverTwoPointTwoSeconds) {
    const std::pair<double, double> table[] = {{0.0, 1.0}, {0.55, 0.9375}, {1.1, 0.75},
                                               {2.2, 0.0}, {3.0, 0.0},     {-1.0, 1.0}};
    for (const auto& [seconds, opacity] : table)
        EXPECT_NEAR(TunerBrain::fadeOpacity(seconds), opacity, 1e-9) << seconds << " s";
}

TEST_F(TunerBrainTest, NothingSoundsBeforeTheSoundBankHasLoaded) {
    start();
    media->setIsBuffersLoaded(false);
    EXPECT_TRUE(touchEach().empty());
    EXPECT_EQ(highlights(), (std::vector<int>(6, 0)));
}

TEST_F(TunerBrainTest, AppearingPausesMusicAndMetronomeLeavingSilencesAndResumesMusic) {
    start({{"Loop", true}});
    EXPECT_EQ(sent, (Calls{"StopMusic", "StopMetronome"}));
    brain_.pressed(6);
    sent.clear();
    output.calls.clear();
    brain_.viewDidDisappear();
    EXPECT_EQ(output.calls, (Calls{"stop 1", "stop 2", "stop 3", "stop 4", "stop 5", "stop 6"}));
    EXPECT_EQ(sent, Calls{"StartMusic"});
    EXPECT_FALSE(brain_.isLooping(6)) << "back on the screen, the next touch plays";

    // Sent on its way by another tool: the music stays paused, once.
    brain_.delegate()->setButton();
    sent.clear();
    brain_.viewDidDisappear();
    brain_.viewDidDisappear();
    EXPECT_EQ(sent, Calls{"StartMusic"});
}

struct SavedLoopCase {
    const char* name;
    Value saved;
    bool loop;
};

class SavedLoop : public TunerBrainTest, public ::testing::WithParamInterface<SavedLoopCase> {};

TEST_P(SavedLoop, IsReadBackOrFallsBackToOffWhenUnreadable) {
    start({{"Loop", GetParam().saved}});
    EXPECT_EQ(brain_.loopSound(), GetParam().loop);
    settings.viewWillAppear();
    EXPECT_EQ(settings.isOn(), GetParam().loop);
}

INSTANTIATE_TEST_SUITE_P(Values, SavedLoop,
                         ::testing::Values(SavedLoopCase{"On", Value(true), true},
                                           SavedLoopCase{"Off", Value(false), false},
                                           // Numbers read as a switch does: zero or not.
                                           SavedLoopCase{"Seven", Value(7), true},
                                           SavedLoopCase{"Zero", Value(0), false},
                                           SavedLoopCase{"Text", Value("loop"), false},
                                           SavedLoopCase{"List", Value(Array{}), false}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(TunerBrainTest, TheLoopSwitchTakesEffectAtOnceAndIsSavedAtOnce) {
    start();
    settings.viewWillAppear();
    settings.switcherAction();
    EXPECT_TRUE(brain_.loopSound());
    EXPECT_TRUE(settings.isOn());
    EXPECT_EQ(valueFor(savedSection(), "Loop").toBool(false), true);
    settings.switcherAction();
    EXPECT_FALSE(brain_.loopSound());
    EXPECT_EQ(savedSection(), (Dictionary{{"Loop", false}}));
}

TEST_F(TunerBrainTest, TheCapoRowRaisesTheStringsAtOnceSilencesThemAndIsSavedAtOnce) {
    start({{"Loop", true}});
    settings.viewWillAppear();
    ASSERT_TRUE(settings.hasCapo());
    EXPECT_EQ(settings.capoText(), "none");
    brain_.pressed(6);
    output.calls.clear();
    settings.stepCapo(3);
    EXPECT_EQ(settings.capoText(), "3rd fret");
    EXPECT_EQ(brain_.capo(), 3);
    EXPECT_FALSE(brain_.isLooping(6)) << "the old pitch stops";
    EXPECT_EQ(output.calls.size(), 6u) << "every string silenced";
    EXPECT_EQ(brain_.noteNames().last(), "G");
    EXPECT_EQ(touchEach().back(), "play 6 3 loop");
    EXPECT_EQ(savedSection(), (Dictionary{{"Loop", true}, {"Capo", 3}}));

    // Kept between none and the 12th fret, whichever way and however far.
    settings.stepCapo(40);
    EXPECT_EQ(settings.capo(), 12);
    EXPECT_EQ(settings.capoText(), "12th fret");
    settings.stepCapo(-100);
    EXPECT_EQ(brain_.capo(), 0);
    EXPECT_EQ(valueFor(savedSection(), "Capo"), Value(0));
    EXPECT_EQ(brain_.tuningName(), "Standard");
}

struct HandCase {
    const char* name;
    Value saved;  // "LeftHanded" in the common section; null: absent
    bool flip;    // then flipped on the settings page
    std::vector<int> order;
};
void PrintTo(const HandCase& c, std::ostream* os) {
    *os << c.name;
}

class ByEarHands : public TunerBrainTest, public ::testing::WithParamInterface<HandCase> {};

TEST_P(ByEarHands, MirrorTheStringsOrderButNotTheirNumbers) {
    const auto& c = GetParam();
    start({}, c.saved.isNull() ? Dictionary{} : Dictionary{{"LeftHanded", c.saved}});
    settings.viewWillAppear();
    if (c.flip)
        settings.flipLeftHanded();
    QVariantList order;
    for (int n : c.order)
        order << n;
    EXPECT_EQ(brain_.stringOrder(), order);
    EXPECT_EQ(brain_.leftHanded(), c.order.front() == 1);
    EXPECT_EQ(settings.leftHanded(), brain_.leftHanded());
    output.calls.clear();
    for (int key = Qt::Key_1; key <= Qt::Key_6; ++key)
        EXPECT_TRUE(brain_.keyPressed(key));
    EXPECT_EQ(output.calls, (Calls{"play 1 0 once", "play 2 0 once", "play 3 0 once",
                                   "play 4 0 once", "play 5 0 once", "play 6 0 once"}))
        << "keys 1 to 6 are strings 1 to 6 whichever way they are drawn";
    if (c.flip) {
        const Dictionary saved = readDictionary(statePath());
        EXPECT_EQ(valueFor(valueFor(saved, "CommonSettings").dictionary(), "LeftHanded"),
                  Value(brain_.leftHanded()));
        EXPECT_EQ(savedSection(), (Dictionary{{"Loop", false}})) << "not the by-ear section";
    }
}

const std::vector<int> kSixthLeft{6, 5, 4, 3, 2, 1};
const std::vector<int> kSixthRight{1, 2, 3, 4, 5, 6};
INSTANTIATE_TEST_SUITE_P(Saved, ByEarHands,
                         ::testing::Values(HandCase{"AbsentFromAnOlderFile", Value(), false,
                                                    kSixthLeft},
                                           HandCase{"Off", Value(false), false, kSixthLeft},
                                           HandCase{"On", Value(true), false, kSixthRight},
                                           HandCase{"Unreadable", Value("left"), false, kSixthLeft},
                                           HandCase{"FlippedOn", Value(), true, kSixthRight},
                                           HandCase{"FlippedOff", Value(true), true, kSixthLeft}),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace zt::test
