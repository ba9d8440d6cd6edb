// The saved-state commands as the tools use them: save and get notifications,
// and the chromatic section answered according to who asks.
#include "state/SavedDataReceiver.h"
#include "state/StateCommands.h"
#include "state/StateKeys.h"
#include "state/StateProxy.h"
#include "state/StateTestSupport.h"

using namespace zt;

namespace {

struct Answer {
    std::string to;
    std::string name;
    Dictionary body;
    bool operator==(const Answer&) const = default;
};

std::vector<Answer> answers;

const char* const kAnswerNames[] = {"StateChromaticTunerData", "StateMicrophoneData",
                                    "StateOrchestraControll",  "StateChromaticSettingsData",
                                    "StateMetronomeData",      "StateBrainTunerData",
                                    "StateChordsData"};

// Listens to every answer, as each asker's real mediator would to its own.
struct RecordingMediator : Mediator {
    explicit RecordingMediator(std::string name) : Mediator(std::move(name)) {}
    std::vector<std::string> listNotificationInterests() const override {
        return {std::begin(kAnswerNames), std::end(kAnswerNames)};
    }
    void handleNotification(const Notification& n) override {
        const Dictionary* body = n.bodyAs<Dictionary>();
        answers.push_back({mediatorName(), n.name(), body ? *body : Dictionary{{"not", "dict"}}});
    }
};

struct ReceiverProxy : Proxy, SavedDataReceiver {
    explicit ReceiverProxy(std::string name) : Proxy(std::move(name)) {}
    void initVariables(const Dictionary& savedData) override {
        answers.push_back({proxyName(), "initVariables", savedData});
    }
};

class StateCommandsTest : public test::DataDirTest {
protected:
    void SetUp() override {
        DataDirTest::SetUp();
        answers.clear();
        auto& facade = Facade::getInstance();
        facade.registerProxy(makeProxy<StateProxy>());
        registerStateCommands(facade);
        for (const char* name :
             {"TunerChromaticMediator", "MicrophoneMediator", "OrchestraMediator",
              "TunerChromaticSettingsMediator", "ToolsMediator"}) {
            facade.registerMediator(makeMediator<RecordingMediator>(name));
        }
        for (const char* name : {"MainFrequerncyProxy", "SettingsProxy", "OtherProxy"}) {
            facade.registerProxy(makeProxy<ReceiverProxy>(name));
        }
    }

    static Dictionary chromatic() {
        return valueFor(state::defaultSavedState(), "ChromaticSettings").dictionary();
    }
    static Dictionary chromaticKeys(std::initializer_list<const char*> keys) {
        Dictionary out;
        for (const char* key : keys)
            out[key] = valueFor(chromatic(), key);
        return out;
    }
};

struct Asker {
    const char* name;
    bool isProxy;
    const char* answerName;                   // nullptr: no answer at all
    std::initializer_list<const char*> keys;  // empty: the whole section
};

void PrintTo(const Asker& a, std::ostream* os) {
    *os << a.name;
}

class ChromaticAskerTest : public StateCommandsTest, public ::testing::WithParamInterface<Asker> {};

const Asker kAskers[] = {
    {"TunerChromaticMediator", false, "StateChromaticTunerData", {}},
    {"MainFrequerncyProxy", true, "initVariables", {}},
    {"MicrophoneMediator", false, "StateMicrophoneData", {"Taper", "Treshold"}},
    {"OrchestraMediator", false, "StateOrchestraControll", {}},
    {"TunerChromaticSettingsMediator",
     false,
     "StateChromaticSettingsData",
     {"LinearScale", "AllNotes"}},
    {"ToolsMediator", false, nullptr, {}},
    {"OtherProxy", true, nullptr, {}},
};

}  // namespace

TEST_P(ChromaticAskerTest, OnlyTheAskerIsAnsweredOnce) {
    auto& facade = Facade::getInstance();
    const Asker& asker = GetParam();
    Notifier* body = asker.isProxy ? static_cast<Notifier*>(facade.retrieveProxy(asker.name).get())
                                   : facade.retrieveMediator(asker.name).get();
    facade.sendNotification("GetChromaticTunerSavedData", body);

    if (!asker.answerName) {
        EXPECT_TRUE(answers.empty());
        return;
    }
    const Dictionary expectedBody =
        asker.keys.size() == 0 ? chromatic() : chromaticKeys(asker.keys);
    // A notification reaches every listener of its name; here each recorder
    // listens to all answers, so exactly one name is delivered to all four.
    std::vector<Answer> expected;
    if (asker.isProxy) {
        expected.push_back({asker.name, asker.answerName, expectedBody});
    } else {
        for (const char* to : {"TunerChromaticMediator", "MicrophoneMediator", "OrchestraMediator",
                               "TunerChromaticSettingsMediator", "ToolsMediator"}) {
            expected.push_back({to, asker.answerName, expectedBody});
        }
    }
    EXPECT_EQ(answers, expected);
}

INSTANTIATE_TEST_SUITE_P(Askers, ChromaticAskerTest, ::testing::ValuesIn(kAskers));

TEST_F(StateCommandsTest, SaveThenGetRoundTripsThroughEachToolsNotifications) {
    const struct {
        const char* save;
        const char* get;
        const char* answer;
        Dictionary changes;
    } tools[] = {
        {"SaveMetronomeState", "GetMetronomeSavedData", "StateMetronomeData", {{"BPM", 120}}},
        {"SaveBrainTunerState", "GetBrainTunerSavedData", "StateBrainTunerData", {{"Loop", true}}},
        {"SaveChordsLibraryState",
         "GetChordsLibrarySavedData",
         "StateChordsData",
         {{"ChordName", "D"}}},
    };
    auto& facade = Facade::getInstance();
    for (const auto& tool : tools) {
        facade.sendNotification(tool.save, tool.changes);
        answers.clear();
        facade.sendNotification(tool.get);
        ASSERT_EQ(answers.size(), 5u) << tool.get;
        EXPECT_EQ(answers[0].name, tool.answer);
        for (const auto& [key, value] : tool.changes) {
            EXPECT_EQ(valueFor(answers[0].body, key), value) << tool.get;
        }
    }
}

TEST_F(StateCommandsTest, CommonSectionGoesStraightToTheSettingsProxy) {
    auto& facade = Facade::getInstance();
    facade.sendNotification("SaveCommonState", Dictionary{{"Tuning", 27}});
    facade.sendNotification("SaveChromaticTunerState", Dictionary{{"Treshold", 40}});
    facade.sendNotification("GetCommonState");
    EXPECT_EQ(answers, (std::vector<Answer>{{"SettingsProxy", "initVariables", {{"Tuning", 27}}}}));

    answers.clear();
    facade.sendNotification(
        "GetChromaticTunerSavedData",
        static_cast<Notifier*>(facade.retrieveProxy("MainFrequerncyProxy").get()));
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(valueFor(answers[0].body, "Treshold"), Value(40));
}

TEST_F(StateCommandsTest, SaveWithoutADictionaryBodyChangesNothing) {
    auto& facade = Facade::getInstance();
    facade.sendNotification("GetMetronomeSavedData");
    facade.sendNotification("SaveMetronomeState", 120);
    facade.sendNotification("SaveMetronomeState");
    EXPECT_EQ(readDictionary(statePath()), state::defaultSavedState());
    EXPECT_TRUE(logged("not a dictionary"));
}
