// The saved-state file: first run, merging saves, damaged files and a data
// folder that cannot be written.
#include <sys/stat.h>
#include <unistd.h>

#include "state/StateKeys.h"
#include "state/StateProxy.h"
#include "state/StateTestSupport.h"

using namespace zt;
namespace fs = std::filesystem;

namespace {

class StateProxyTest : public test::DataDirTest {
protected:
    std::shared_ptr<StateProxy> proxy() {
        if (!proxy_)
            proxy_ = makeProxy<StateProxy>();
        return proxy_;
    }
    std::shared_ptr<StateProxy> proxy_;
};

struct Save {
    const char* section;
    void (StateProxy::*save)(const Dictionary&);
    Dictionary changes;
};

void PrintTo(const Save& s, std::ostream* os) {
    *os << s.section;
}

class StateSaveTest : public StateProxyTest, public ::testing::WithParamInterface<Save> {};

const Save kSaves[] = {
    {"MetronomeSettings", &StateProxy::saveMetromoneState, {{"BPM", 120}}},
    {"ChromaticSettings",
     &StateProxy::saveChromaticTunerState,
     {{"baseFrequency", 442.5}, {"Treshold", 35}}},
    {"BrainSettings", &StateProxy::saveBrainTunerState, {{"Loop", true}}},
    {"ChordsSettings",
     &StateProxy::saveChordsLibraryState,
     {{"ChordName", "Am7"}, {"lockedString3", "1"}}},
    {"CommonSettings", &StateProxy::saveCommonState, {{"Tuning", 27}}},
};

}  // namespace

TEST_F(StateProxyTest, DefaultFileHoldsExactlyTheDeclaredDefaults) {
    EXPECT_EQ(defaultFile(), state::defaultSavedState());
}

TEST_F(StateProxyTest, FirstRunCopiesTheDefaultFileIntoTheDataFolder) {
    ASSERT_FALSE(fs::exists(dataDir_));
    EXPECT_EQ(proxy()->getStateFilePath(), statePath().string());
    EXPECT_EQ(readBytes(statePath()), readBytes(paths::resource("saveState.plist")));

    const Dictionary defaults = state::defaultSavedState();
    EXPECT_EQ(proxy()->getMetronomeData(), valueFor(defaults, "MetronomeSettings").dictionary());
    EXPECT_EQ(proxy()->getCommonData(), valueFor(defaults, "CommonSettings").dictionary());
    EXPECT_EQ(proxy()->getSelectedViewController(), 0);
}

TEST_P(StateSaveTest, MergesOnlyTheGivenKeysIntoItsSection) {
    proxy()->getStateFilePath();
    Dictionary expected = readDictionary(statePath());
    for (const auto& [key, value] : GetParam().changes) {
        expected[GetParam().section].dictionary()[key] = value;
    }
    ((*proxy()).*GetParam().save)(GetParam().changes);
    EXPECT_EQ(readDictionary(statePath()), expected);
}

INSTANTIATE_TEST_SUITE_P(Sections, StateSaveTest, ::testing::ValuesIn(kSaves));

TEST_F(StateProxyTest, SavingIntoAMissingSectionWritesTheFileBackUnchanged) {
    Dictionary content = state::defaultSavedState();
    content.erase("BrainSettings");
    writeBytes(statePath(), plist::toXml(content));

    proxy()->saveBrainTunerState({{"Loop", true}});
    EXPECT_EQ(readDictionary(statePath()), content);
    EXPECT_EQ(proxy()->getBrainTunerData(), std::nullopt);
    EXPECT_TRUE(logged("no section \"BrainSettings\""));
}

TEST_F(StateProxyTest, SelectedTabIsSavedAtTheTopLevel) {
    proxy()->saveSelectedViewController(3);
    EXPECT_EQ(proxy()->getSelectedViewController(), 3);
    Dictionary expected = state::defaultSavedState();
    expected["SelectedViewController"] = 3;
    EXPECT_EQ(readDictionary(statePath()), expected);
}

TEST_F(StateProxyTest, DeletedFileIsRestoredFromTheDefaultsOnTheNextRead) {
    proxy()->saveMetromoneState({{"BPM", 120}});
    fs::remove(statePath());
    EXPECT_EQ(state::read(*proxy()->getMetronomeData(), state::metronome::kBPM), 60);
    EXPECT_EQ(readDictionary(statePath()), state::defaultSavedState());
}

TEST_F(StateProxyTest, DamagedFileIsKeptAsideAndTheDefaultsTakeItsPlace) {
    const std::string damaged[] = {
        "", "garbage", "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>BPM",
        "<plist version=\"1.0\"><array><string>1.0</string></array></plist>"};
    for (const auto& bytes : damaged) {
        for (const auto& entry : fs::directory_iterator(dataDir_.parent_path())) {
            fs::remove_all(entry.path());
        }
        writeBytes(statePath(), bytes);
        logLines_.clear();

        EXPECT_EQ(proxy()->getChordsLibraryData(),
                  valueFor(state::defaultSavedState(), "ChordsSettings").dictionary());
        EXPECT_EQ(readBytes(dataDir_ / "saveState.plist.corrupt"), bytes);
        EXPECT_EQ(readDictionary(statePath()), state::defaultSavedState());
        EXPECT_TRUE(logged("warning")) << bytes;
    }
}

TEST_F(StateProxyTest, DataFolderThatCannotBeCreatedRunsOnDefaults) {
    writeBytes(root_ / "plainfile", "x");
    setDataDir(root_ / "plainfile" / "data");

    EXPECT_EQ(proxy()->getStateFilePath(), "");
    EXPECT_TRUE(logged("Error saveState.plist"));
    EXPECT_EQ(proxy()->getChromaticTunerData(),
              valueFor(state::defaultSavedState(), "ChromaticSettings").dictionary());

    logLines_.clear();
    proxy()->saveMetromoneState({{"BPM", 120}});
    EXPECT_TRUE(logged("not saved"));
    EXPECT_EQ(state::read(*proxy()->getMetronomeData(), state::metronome::kBPM), 60);
    EXPECT_EQ(readBytes(root_ / "plainfile"), "x");
}

TEST_F(StateProxyTest, ReadOnlyFolderLeavesTheUsersFilesAsTheyAre) {
    Dictionary content = state::defaultSavedState();
    content["MetronomeSettings"].dictionary()["BPM"] = 99;
    writeBytes(statePath(), plist::toXml(content));
    writeBytes(dataDir_ / "other" / "saveState.plist", "garbage");
    ::chmod(dataDir_.c_str(), 0500);
    ::chmod((dataDir_ / "other").c_str(), 0500);
    if (::access(dataDir_.c_str(), W_OK) == 0) {
        GTEST_SKIP() << "running with rights that ignore folder permissions (root)";
    }

    proxy()->saveMetromoneState({{"BPM", 120}});
    EXPECT_TRUE(logged("not saved"));
    EXPECT_EQ(readDictionary(statePath()), content);
    EXPECT_EQ(state::read(*proxy()->getMetronomeData(), state::metronome::kBPM), 99);

    // A damaged file that cannot be moved aside is not replaced either.
    setDataDir(dataDir_ / "other");
    EXPECT_EQ(proxy()->getBrainTunerData(),
              valueFor(state::defaultSavedState(), "BrainSettings").dictionary());
    proxy()->saveBrainTunerState({{"Loop", true}});
    EXPECT_EQ(readBytes(statePath()), "garbage");
    EXPECT_FALSE(std::filesystem::exists(dataDir_ / "saveState.plist.corrupt"));
    ::chmod(dataDir_.c_str(), 0700);
}
