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

std::vector<std::string> namesShown(const CommonSettings& screen) {
    std::vector<std::string> names;
    for (const QVariant& row : screen.rows())
        names.push_back(row.toMap()["name"].toString().toStdString());
    return names;
}

TEST_F(CommonSettingsTest, TheFilterNarrowsTheRowsAndEscapeClearsItBeforeGoingBack) {
    int backs = 0;
    QObject::connect(&screen, &CommonSettings::backRequested, [&] { ++backs; });
    settings->setTuning(51);  // Open G
    screen.viewWillAppear();
    EXPECT_EQ(screen.currentRow(), 51);
    const struct {
        const char* filter;
        std::vector<std::string> names;
        int currentRow;
    } cases[] = {
        {"open g", {"Open G", "Open G Minor"}, 0},
        {"DADGAD", {"D modal"}, -1},
        {"drop bb", {"Double Drop Bb", "Drop Bb"}, -1},
    };
    for (const auto& c : cases) {
        screen.setFilter(c.filter);
        EXPECT_EQ(namesShown(screen), c.names) << c.filter;
        EXPECT_EQ(screen.currentRow(), c.currentRow) << c.filter;
    }
    const QVariantMap row = screen.rows()[1].toMap();
    EXPECT_EQ(row["notes"].toString(), "Bb F Bb Eb G C");
    EXPECT_EQ(row["label"].toString(), "A#FA#D#GC");
    screen.selectRow(row["index"].toInt() + 1);
    EXPECT_EQ(settings->getTuningName(), "Drop Bb");

    EXPECT_TRUE(screen.keyPressed(Qt::Key_Escape));
    EXPECT_EQ(screen.filter(), "");
    EXPECT_EQ(screen.rows().size(), 53);
    EXPECT_EQ(backs, 0);
    EXPECT_TRUE(screen.keyPressed(Qt::Key_Escape));
    EXPECT_EQ(backs, 1);
}

// Made, chosen, renamed and deleted on the list: the choice is saved by
// name, and "Tuning" stays 0 for a program that knows only the catalogue.
TEST_F(CommonSettingsTest, AUsersTuningIsSavedByNameAndFallsBackToStandardWhenDeleted) {
    screen.viewWillAppear();
    const struct {
        const char* name;
        const char* notes;
        const char* error;
    } refused[] = {
        {"Mine", "H2 A2 D3 G3 B3 E4", "String 6: \"H2\" is not a note"},
        {"Mine", "E2 A2 D3 G3 B3 F5", "String 1: F5 is more than an octave from E4"},
        {"drop d", "D2 A2 D3 G3 B3 E4", "There is a tuning called \"Drop D\" already."},
        {"  ", "D2 A2 D3 G3 B3 E4", "Give the tuning a name."},
    };
    for (const auto& r : refused) {
        const QString error = screen.storeCustom(-1, r.name, r.notes);
        EXPECT_TRUE(error.startsWith(r.error)) << error.toStdString();
    }
    EXPECT_EQ(screen.rowCount(), 54) << "nothing was stored";

    EXPECT_EQ(screen.storeCustom(-1, "Mine", "Eb2 Bb2 Eb3 G3 Bb3 Eb4"), "");
    ASSERT_EQ(screen.rowCount(), 55);
    QVariantMap row = screen.rows()[53].toMap();
    EXPECT_EQ(row["name"].toString(), "Mine");
    EXPECT_EQ(row["notes"].toString(), "Eb Bb Eb G Bb Eb") << "typed with flats, shown so";
    EXPECT_TRUE(row["custom"].toBool());
    EXPECT_EQ(screen.typedNotes(53), "Eb2 Bb2 Eb3 G3 Bb3 Eb4");
    EXPECT_EQ(screen.rows()[52].toMap()["name"].toString(), "Open G Minor");

    sent.clear();
    screen.selectRow(54);
    EXPECT_EQ(settings->getTuning(), "D#2&A#2&D#3&G3&A#3&D#4");
    EXPECT_EQ(sent, (std::vector<std::string>{"SetChordsTuning", "ReloadChords"}));
    screen.viewDidDisappear();
    auto common = [] { return *makeProxy<StateProxy>()->getCommonData(); };
    EXPECT_EQ(state::read(common(), state::common::kTuning), 0);
    EXPECT_EQ(state::read(common(), state::common::kCustomTuning), "Mine");

    EXPECT_EQ(screen.storeCustom(53, "Mine, lower", "D2 A2 D3 F#3 A3 D4"), "");
    EXPECT_EQ(state::read(common(), state::common::kCustomTuning), "Mine, lower");
    EXPECT_EQ(screen.headerText(), "MINE, LOWER");
    EXPECT_EQ(settings->getTuning(), "D2&A2&D3&F#3&A3&D4");

    // A later start finds it by its name.
    auto later = makeProxy<SettingsProxy>();
    later->initVariables(common());
    EXPECT_EQ(later->getTuningName(), "Mine, lower");
    EXPECT_EQ(later->takeNotice(), "");

    EXPECT_TRUE(screen.removeCustom(53));
    EXPECT_FALSE(screen.removeCustom(27)) << "the catalogue's stay";
    EXPECT_EQ(screen.rowCount(), 54);
    EXPECT_EQ(settings->getTuningNumber(), 0);
    EXPECT_EQ(state::read(common(), state::common::kCustomTuning), "");

    // A saved choice whose tuning has gone: Standard, and the user is told.
    auto gone = makeProxy<SettingsProxy>();
    gone->initVariables({{"Tuning", 0}, {"CustomTuning", "Mine, lower"}});
    EXPECT_EQ(gone->getTuningName(), "Standard");
    EXPECT_NE(gone->takeNotice().find("\"Mine, lower\" is no longer there"), std::string::npos);
    EXPECT_EQ(gone->takeNotice(), "") << "told once";
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

// The left-handed switch is one for all the tools: each page shows what
// the other set, it is saved beside the tuning at once, and a later start
// reads it back. A file that never had it opens right-handed.
TEST_F(CommonSettingsTest, TheLeftHandedSwitchIsSharedByEveryToolsPageAndSaved) {
    auto& facade = Facade::getInstance();
    bool unused = false;
    auto page = [&unused](const char* name) {
        return std::make_unique<ToolSettings>(ToolSettings::Switch{
            name, name, name, ToolSettings::SaveMoment::Flipped, [&unused] { return unused; },
            [&unused](bool on) { unused = on; }});
    };
    auto chords = page("Chords");
    auto byEar = page("ByEar");
    facade.registerMediator(makeMediator<ToolSettingsMediator>("ChordsPage", chords.get(),
                                                               "SaveTest", "ShowTestTuning"));
    facade.registerMediator(
        makeMediator<ToolSettingsMediator>("ByEarPage", byEar.get(), "SaveTest", "ShowTestTuning"));
    auto common = [] { return *makeProxy<StateProxy>()->getCommonData(); };
    EXPECT_FALSE(chords->leftHanded());
    EXPECT_FALSE(byEar->leftHanded());
    EXPECT_TRUE(valueFor(common(), "LeftHanded").isNull()) << "nothing is written unasked";

    const std::pair<ToolSettings*, bool> flips[] = {
        {chords.get(), true}, {byEar.get(), false}, {byEar.get(), true}};
    for (const auto& [flipped, on] : flips) {
        sent.clear();
        flipped->flipLeftHanded();
        EXPECT_EQ(chords->leftHanded(), on);
        EXPECT_EQ(byEar->leftHanded(), on);
        EXPECT_EQ(settings->leftHanded(), on);
        EXPECT_EQ(sent, std::vector<std::string>{"SaveCommonState " +
                                                 Value(Dictionary{{"LeftHanded", on}}).describe()});
        EXPECT_EQ(valueFor(common(), "LeftHanded"), Value(on));
        EXPECT_EQ(valueFor(common(), "Tuning"), Value(0));
        EXPECT_FALSE(unused) << "the tool's own switch stays";
    }
    auto later = makeProxy<SettingsProxy>();
    later->initVariables(common());
    EXPECT_TRUE(later->leftHanded());
    later->initVariables(defaultFile().at("CommonSettings").dictionary());
    EXPECT_FALSE(later->leftHanded());
}
