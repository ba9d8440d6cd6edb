// The "Tunings" screen with its mediator, the settings proxy and the saved
// state wired as at start-up.
#include "state/StateCommands.h"
#include "state/StateKeys.h"
#include "state/StateProxy.h"
#include "state/StateTestSupport.h"
#include "tunings/SettingsProxy.h"
#include "tunings/ui/CommonSettings.h"
#include "tunings/ui/CommonSettingsMediator.h"

using namespace zt;

namespace {

std::vector<std::string> sent;

struct Recorder : Mediator {
    Recorder() : Mediator("Recorder") {}
    std::vector<std::string> listNotificationInterests() const override {
        return {"SetChordsTuning", "ReloadChords", "SaveCommonState"};
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
