// The user's own tunings: the chords library builds their fingerings as it
// does the catalogue's, their file is replaced whole or not at all, and a
// damaged one costs no catalogue tuning.
#include "chords/ChordsScreenFixture.h"
#include "state/PlistFile.h"
#include "tunings/TuningList.h"

namespace zt::test {
namespace {

// Every fingering of the chord on the wheels, with what each string plays.
std::vector<std::string> everyFingering(ChordsLibrary& screen) {
    std::vector<std::string> out;
    for (int v = 0; v < screen.variationCount(); ++v) {
        screen.showVariation(v);
        std::string line = shown(screen) + " |";
        for (int index : screen.currentNotes().indexesOfNotes)
            line += " " + std::to_string(index);
        out.push_back(line);
    }
    return out;
}

TEST_F(ChordsScreenTest, AUsersTuningGivesTheChordsTheFingeringsOfTheSameCatalogueTuning) {
    registerScreen(screen);
    screen.viewWillAppear();
    ASSERT_EQ(settings->storeCustomTuning(-1, "My open D", "D2 A2 D3 F#3 A3 D4"), "");
    for (const auto& [root, type] : {std::pair{2, 0}, std::pair{7, 1}, std::pair{9, 2}}) {
        chooseTuning("Open D");
        pick(screen, root, type);
        const auto catalogue = everyFingering(screen);
        settings->setTuning(settings->tunings().find("my open d"));
        facade().sendNotification("ReloadChords");
        EXPECT_EQ(screen.tuningName(), "My open D");
        pick(screen, root, type);
        EXPECT_EQ(everyFingering(screen), catalogue) << screen.chordName().toStdString();
        ASSERT_FALSE(catalogue.empty());
    }
    pick(screen, 2, 0);
    EXPECT_EQ(shown(screen), "0 0 0 0 0 0") << "D major is the open strings";
}

class CustomTuningsFileTest : public DataDirTest {
protected:
    std::vector<std::string> namesOnFile() const {
        std::vector<std::string> names;
        for (const auto& tuning : tunings::loadCustomTunings(tunings::customTuningsPath()).tunings)
            names.push_back(tuning.name);
        return names;
    }
};

TEST_F(CustomTuningsFileTest, AFileThatCannotBeReplacedKeepsItsTuningsAndTheUserIsTold) {
    if (!mountSmallDisk(dataDir_, 64 * 1024))
        GTEST_SKIP() << "private mounts are not allowed here";
    auto notices = makeMediator<NoticeRecorder>();
    Facade::getInstance().registerMediator(notices);
    auto settings = makeProxy<SettingsProxy>();
    Facade::getInstance().registerProxy(settings);
    ASSERT_EQ(settings->storeCustomTuning(-1, "First", "D2 A2 D3 G3 A3 D4"), "");
    const std::string before = readBytes(tunings::customTuningsPath());
    ASSERT_TRUE(remountReadOnly(dataDir_));

    EXPECT_EQ(settings->storeCustomTuning(-1, "Second", "C2 G2 C3 G3 C4 E4"), "");
    EXPECT_EQ(readBytes(tunings::customTuningsPath()), before);
    EXPECT_EQ(namesOnFile(), std::vector<std::string>{"First"});
    EXPECT_EQ(settings->tunings().size(), 55) << "kept while the program runs";
    ASSERT_EQ(notices->messages.size(), 1u);
    EXPECT_EQ(notices->messages[0].rfind("Your tunings could not be saved", 0), 0u);
}

TEST_F(CustomTuningsFileTest, ADamagedFileIsKeptAsideAndUnusableEntriesAreLeftOut) {
    const struct {
        const char* what;
        std::string bytes;
        std::vector<std::string> names;
        bool keptAside;
    } cases[] = {
        {"not a property list", "garbage", {}, true},
        {"two tunings, one usable",
         plist::toXml(Value(Dictionary{
             {"version", "1.0"},
             {"tunings", Array{Dictionary{{"name", "Mine"}, {"notes", "D2&A2&D3&G3&A3&D4"}},
                               Dictionary{{"name", "Bad"}, {"notes", "H2&A2&D3&G3&A3&D4"}},
                               Dictionary{{"name", "standard"}, {"notes", "E2&A2&D3&G3&B3&E4"}},
                               Value("loose")}}})),
         {"Mine"},
         false},
    };
    for (const auto& c : cases) {
        std::filesystem::remove_all(dataDir_);
        writeBytes(tunings::customTuningsPath(), c.bytes);
        const auto list = tunings::userTunings();
        std::vector<std::string> names;
        for (const auto& tuning : list.custom())
            names.push_back(tuning.name);
        EXPECT_EQ(names, c.names) << c.what;
        EXPECT_EQ(list.at(52).name, "Open G Minor") << c.what;
        EXPECT_EQ(std::filesystem::exists(dataDir_ / "customTunings.plist.corrupt"), c.keptAside)
            << c.what;
    }
}

}  // namespace
}  // namespace zt::test
