// The "Tunings" screen and a tool's settings page that leads to it, with
// their mediators, the settings proxy and the saved state wired as at
// start-up.
#include "state/StateCommands.h"
#include "state/StateKeys.h"
#include "state/StateProxy.h"
#include "state/StateTestSupport.h"
#include "tunings/SettingsProxy.h"
#include "tunings/ui/CommonSettings.h"
#include "tunings/ui/CommonSettingsMediator.h"
#include "tunings/ui/ToolSettings.h"
#include "tunings/ui/ToolSettingsMediator.h"

using namespace zt;

namespace {

std::vector<std::string> sent;

struct Recorder : Mediator {
    Recorder() : Mediator("Recorder") {}
    std::vector<std::string> listNotificationInterests() const override {
        return {"SetChordsTuning", "ReloadChords", "SaveCommonState", "SaveTest", "ShowTestTuning"};
    }
    void handleNotification(const Notification& n) override {
        const Dictionary* body = n.bodyAs<Dictionary>();
        sent.push_back(n.name() + (body ? " " + Value(*body).describe() : std::string()));
    }
};

class CommonSettingsTest : public test::DataDirTest {
protected:
    void SetUp() override {
        DataDirTest::SetUp();
        sent.clear();
        auto& facade = Facade::getInstance();
        facade.registerProxy(makeProxy<StateProxy>());
        facade.registerProxy(makeProxy<SettingsProxy>());
        registerStateCommands(facade);
        facade.sendNotification("GetCommonState");
        facade.registerMediator(makeMediator<CommonSettingsMediator>(&screen));
        facade.registerMediator(makeMediator<Recorder>());
        settings = facade.retrieveProxyAs<SettingsProxy>(SettingsProxy::NAME);
    }

    std::vector<int> tickedRows() const {
        std::vector<int> rows;
        for (int row = 0; row < screen.rowCount(); ++row) {
            if (screen.isTicked(row))
                rows.push_back(row);
        }
        return rows;
    }

    CommonSettings screen;
    std::shared_ptr<SettingsProxy> settings;
};

}  // namespace

TEST_F(CommonSettingsTest, ShowsEveryTuningWithItsLabelAndStandardTicked) {
    screen.viewWillAppear();
    EXPECT_EQ(screen.rowCount(), 54);
    EXPECT_EQ(screen.tuningLabels().size(), 53);
    EXPECT_EQ(screen.tuningLabels()[42], "EAC#EAC#");
    EXPECT_EQ(screen.headerText(), "STANDARD");
    EXPECT_EQ(tickedRows(), std::vector<int>{1});
    const QVariantMap row = screen.rows()[0].toMap();
    EXPECT_EQ(row["name"].toString(), "Standard");
    EXPECT_EQ(row["label"].toString(), "EADGBE");
    EXPECT_TRUE(row["ticked"].toBool());
}

TEST_F(CommonSettingsTest, ChoosingDropDStoresItTellsTheChordsAndSavesOnLeaving) {
    int reloads = 0;
    QObject::connect(&screen, &CommonSettings::reloaded, [&] { ++reloads; });
    screen.viewWillAppear();
    screen.selectRow(28);

    EXPECT_EQ(settings->getTuningNumber(), 27);
    EXPECT_EQ(sent, (std::vector<std::string>{"SetChordsTuning", "ReloadChords"}));
    EXPECT_EQ(screen.currentTuning(), "Drop D");
    EXPECT_EQ(screen.headerText(), "DROP D");
    EXPECT_EQ(tickedRows(), std::vector<int>{28});
    EXPECT_EQ(reloads, 2);

    sent.clear();
    screen.viewDidDisappear();
    EXPECT_EQ(screen.tuning(), 27);
    EXPECT_EQ(sent, std::vector<std::string>{"SaveCommonState " +
                                             Value(Dictionary{{"Tuning", 27}}).describe()});
    EXPECT_EQ(state::read(*makeProxy<StateProxy>()->getCommonData(), state::common::kTuning), 27);
}

TEST_F(CommonSettingsTest, HeaderRowAndRowsOutsideTheTableDoNothing) {
    screen.viewWillAppear();
    for (int row : {0, -1, 54}) {
        screen.selectRow(row);
        EXPECT_EQ(settings->getTuningNumber(), 0) << row;
    }
    EXPECT_TRUE(sent.empty());
    EXPECT_EQ(tickedRows(), std::vector<int>{1});
}

TEST_F(CommonSettingsTest, AppearingShowsTheTuningChosenElsewhere) {
    settings->setTuning(42);
    screen.viewWillAppear();
    EXPECT_EQ(screen.tuning(), 42);
    EXPECT_EQ(screen.headerText(), "OPEN A (2)");
    EXPECT_EQ(tickedRows(), std::vector<int>{43});
}

// A tool's settings page over a value of the test's own, saved either as
// the switch flips or as the page goes.
struct SaveMomentCase {
    const char* name;
    ToolSettings::SaveMoment saved;
    // What is sent by a flip, then by leaving.
    std::vector<std::string> onFlip;
    std::vector<std::string> onLeaving;
};

class ToolSettingsTest : public CommonSettingsTest,
                         public ::testing::WithParamInterface<SaveMomentCase> {
protected:
    void SetUp() override {
        CommonSettingsTest::SetUp();
        Facade::getInstance().registerMediator(makeMediator<ToolSettingsMediator>(
            "TestSettings", &page, "SaveTest", "ShowTestTuning"));
    }

    bool held = false;
    ToolSettings page{{"Loop", "loop", "Loop", GetParam().saved, [this] { return held; },
                       [this](bool on) { held = on; }}};
};

TEST_P(ToolSettingsTest, TheToolFollowsAtOnceAndTheValueIsSavedAtItsMoment) {
    held = true;
    page.viewWillAppear();
    EXPECT_TRUE(page.isOn()) << "the value is read from the tool";
    EXPECT_EQ(page.nameOfTuning(), "Standard");
    page.switcherAction();
    EXPECT_FALSE(held);
    EXPECT_EQ(sent, GetParam().onFlip);
    sent.clear();
    page.viewWillDisappear();
    EXPECT_EQ(sent, GetParam().onLeaving);
}

TEST_P(ToolSettingsTest, OnlyTheTuningsRowLeadsAnywhere) {
    for (int row : {-1, 0, 1, 3})
        page.selectRow(row);
    EXPECT_TRUE(sent.empty());
    EXPECT_FALSE(page.isOn()) << "touching a row does not flip the switch";
    page.selectRow(2);
    EXPECT_EQ(sent, std::vector<std::string>{"ShowTestTuning"});
}

const std::string kSavedOff = "SaveTest " + Value(Dictionary{{"Loop", false}}).describe();
INSTANTIATE_TEST_SUITE_P(
    Moments, ToolSettingsTest,
    ::testing::Values(SaveMomentCase{"Flipped", ToolSettings::SaveMoment::Flipped, {kSavedOff}, {}},
                      SaveMomentCase{"Left", ToolSettings::SaveMoment::Left, {}, {kSavedOff}}),
    [](const auto& info) { return std::string(info.param.name); });
