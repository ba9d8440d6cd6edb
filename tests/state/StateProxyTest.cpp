// The saved-state file: first run, merging saves, damaged files and a data
// folder that cannot be written.
#include <pwd.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

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

// Such a file used to be taken as valid and every save of that tool dropped.
TEST_F(StateProxyTest, MissingOrWrongSectionsAreRestoredAndTheGoodOnesKept) {
    const struct {
        const char* what;
        Value brainSection;  // null: no section
    } cases[] = {{"missing", Value()}, {"a string", Value("junk")}, {"empty", Dictionary{}}};
    for (const auto& c : cases) {
        Dictionary content = state::defaultSavedState();
        content["MetronomeSettings"].dictionary()["BPM"] = 99;
        content["Extra"] = "kept";
        if (c.brainSection.isNull())
            content.erase("BrainSettings");
        else
            content["BrainSettings"] = c.brainSection;
        writeBytes(statePath(), plist::toXml(content));
        proxy_.reset();

        EXPECT_EQ(proxy()->getBrainTunerData(), (Dictionary{{"Loop", false}})) << c.what;
        proxy()->saveBrainTunerState({{"Loop", true}});
        const Dictionary saved = readDictionary(statePath());
        EXPECT_EQ(valueFor(saved, "BrainSettings"), Value(Dictionary{{"Loop", true}})) << c.what;
        EXPECT_EQ(
            state::read(valueFor(saved, "MetronomeSettings").dictionary(), state::metronome::kBPM),
            99);
        EXPECT_EQ(valueFor(saved, "Extra"), Value("kept"));
    }
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
    proxy_.reset();  // the next run
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
        proxy_.reset();

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
    // Kept for the rest of the run.
    EXPECT_EQ(state::read(*proxy()->getMetronomeData(), state::metronome::kBPM), 120);
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
    EXPECT_EQ(state::read(*proxy()->getMetronomeData(), state::metronome::kBPM), 120);
    proxy_.reset();

    // A damaged file that cannot be moved aside is not replaced either.
    setDataDir(dataDir_ / "other");
    EXPECT_EQ(proxy()->getBrainTunerData(),
              valueFor(state::defaultSavedState(), "BrainSettings").dictionary());
    proxy()->saveBrainTunerState({{"Loop", true}});
    EXPECT_EQ(readBytes(statePath()), "garbage");
    EXPECT_FALSE(std::filesystem::exists(dataDir_ / "saveState.plist.corrupt"));
    ::chmod(dataDir_.c_str(), 0700);
}

// Start-up used to read the file 8 times and write it 5 times.
TEST_F(StateProxyTest, ReadsOnceAndWritesOnlyWhatChanged) {
    proxy()->getStateFilePath();
    struct stat before {};
    ASSERT_EQ(::stat(statePath().c_str(), &before), 0);
    proxy_.reset();
    for (int i = 0; i < 8; ++i)
        proxy()->getChromaticTunerData(), proxy()->getSelectedViewController();
    proxy()->saveMetromoneState({{"BPM", 60}});
    proxy()->saveSelectedViewController(0);
    struct stat after {};
    ASSERT_EQ(::stat(statePath().c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);  // a write renames a new file in

    // Later changes of the file by others are not seen: the state is read once.
    Dictionary other = state::defaultSavedState();
    other["CommonSettings"].dictionary()["Tuning"] = 5;
    writeBytes(statePath(), plist::toXml(other));
    EXPECT_EQ(proxy()->getCommonData(), (Dictionary{{"Tuning", 0}}));
}

// Two instances and an editor: each save puts only the keys its run changed
// over the file as it is now, so no one's change is reverted.
TEST_F(StateProxyTest, SavesKeepWhatOthersChangedMeanwhile) {
    proxy()->saveCommonState({{"Tuning", 3}});
    // Another instance: it reads the file, waits for a byte on `go`, saves
    // its changes and ends.
    int ready[2], go[2];
    ASSERT_EQ(::pipe(ready), 0);
    ASSERT_EQ(::pipe(go), 0);
    const auto otherInstance = [&](const Dictionary& changes) {
        const pid_t child = ::fork();
        if (child == 0) {
            StateProxy other;
            other.getCommonData();
            char byte = 0;
            const bool synced = ::write(ready[1], "r", 1) == 1 && ::read(go[0], &byte, 1) == 1;
            other.saveChordsLibraryState(changes);
            ::_exit(synced && other.flush() ? 0 : 1);
        }
        char byte = 0;
        EXPECT_EQ(::read(ready[0], &byte, 1), 1);
        return child;
    };
    const auto finish = [&](pid_t child) {
        EXPECT_EQ(::write(go[1], "g", 1), 1);
        int status = 1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    };
    finish(otherInstance({{"ChordName", "Am"}, {"notes", true}}));
    Dictionary edited = readDictionary(statePath());
    edited["BrainSettings"].dictionary()["Loop"] = true;
    edited["CommonSettings"].dictionary()["Tuning"] = 9;  // also changed by this run
    writeBytes(statePath(), plist::toXml(edited));

    const pid_t later = otherInstance({{"ChordName", "G"}});
    proxy()->saveMetromoneState({{"BPM", 100}});
    const auto in = [](const Dictionary& saved, const char* section, const char* key) {
        return valueFor(valueFor(saved, section).dictionary(), key);
    };
    Dictionary saved = readDictionary(statePath());
    EXPECT_EQ(in(saved, "ChordsSettings", "ChordName"), Value("Am"));
    EXPECT_EQ(in(saved, "ChordsSettings", "notes"), Value(true));
    EXPECT_EQ(in(saved, "BrainSettings", "Loop"), Value(true));
    EXPECT_EQ(in(saved, "CommonSettings", "Tuning"), Value(3));
    EXPECT_EQ(valueFor(*proxy()->getChordsLibraryData(), "ChordName"), Value("Am"));

    // The instance that read the file before that save saves after it.
    finish(later);
    saved = readDictionary(statePath());
    EXPECT_EQ(in(saved, "ChordsSettings", "ChordName"), Value("G"));
    EXPECT_EQ(in(saved, "MetronomeSettings", "BPM"), Value(100));
    EXPECT_EQ(in(saved, "CommonSettings", "Tuning"), Value(3));
    for (int fd : {ready[0], ready[1], go[0], go[1]})
        ::close(fd);
}

TEST_F(StateProxyTest, FailedSavesAreKeptRetriedAndToldOnce) {
    const struct {
        const char* what;
        bool readOnly;
        const char* why;
    } cases[] = {{"full disk", false, "the disk is full"},
                 {"read-only disk", true, "the disk is read-only"}};
    for (const auto& c : cases) {
        ::umount2(dataDir_.c_str(), MNT_DETACH);
        if (!test::mountSmallDisk(dataDir_, 64 * 1024))
            GTEST_SKIP() << "cannot mount a small file system here";
        Facade::reset();
        proxy_.reset();
        auto notices = std::make_shared<test::NoticeRecorder>();
        Facade::getInstance().registerMediator(notices);
        Facade::getInstance().registerProxy(proxy());
        proxy()->getStateFilePath();
        const std::string original = readBytes(statePath());
        const fs::path filler = dataDir_ / "filler";
        if (c.readOnly) {
            ASSERT_TRUE(test::remountReadOnly(dataDir_));
        } else {
            writeBytes(filler, std::string(64 * 1024, 'x'));  // fills the disk
        }

        proxy()->saveMetromoneState({{"BPM", 100}});
        proxy()->saveCommonState({{"Tuning", 3}});
        EXPECT_EQ(readBytes(statePath()), original) << c.what;
        EXPECT_EQ(state::read(*proxy()->getMetronomeData(), state::metronome::kBPM), 100);
        ASSERT_EQ(notices->messages.size(), 1u) << c.what;
        EXPECT_NE(notices->messages[0].find(std::string("Settings could not be saved: ") + c.why),
                  std::string::npos)
            << notices->messages[0];
        EXPECT_EQ(std::distance(fs::directory_iterator(dataDir_), fs::directory_iterator()),
                  c.readOnly ? 1 : 2);  // no temporary left behind

        // Room again: the next save writes every change kept meanwhile.
        if (c.readOnly)
            ASSERT_EQ(::mount(nullptr, dataDir_.c_str(), nullptr, MS_REMOUNT, nullptr), 0);
        else
            fs::remove(filler);
        proxy()->saveSelectedViewController(2);
        const Dictionary saved = readDictionary(statePath());
        EXPECT_EQ(
            state::read(valueFor(saved, "MetronomeSettings").dictionary(), state::metronome::kBPM),
            100);
        EXPECT_EQ(valueFor(valueFor(saved, "CommonSettings").dictionary(), "Tuning"), Value(3));
        EXPECT_EQ(valueFor(saved, "SelectedViewController"), Value(2));
        EXPECT_EQ(notices->messages.size(), 1u);
    }
}

TEST_F(StateProxyTest, UnreadableOrOversizeFilesAreNeverWrittenOver) {
    // Over 16 MB: kept aside, and saving works again.
    writeBytes(statePath(), std::string(17u << 20, ' '));
    proxy()->saveMetromoneState({{"BPM", 100}});
    EXPECT_EQ(fs::file_size(dataDir_ / "saveState.plist.corrupt"), 17u << 20);
    EXPECT_EQ(state::read(valueFor(readDictionary(statePath()), "MetronomeSettings").dictionary(),
                          state::metronome::kBPM),
              100);

    // Cannot be read (here: not a file): left alone, the changes kept and
    // merged into it once it can be read.
    fs::remove(statePath());
    fs::create_directory(statePath());
    proxy_.reset();
    proxy()->saveMetromoneState({{"BPM", 110}});
    EXPECT_TRUE(fs::is_directory(statePath()));
    fs::remove(statePath());
    Dictionary theirs = state::defaultSavedState();
    theirs["CommonSettings"].dictionary()["Tuning"] = 7;
    writeBytes(statePath(), plist::toXml(theirs));
    proxy()->saveBrainTunerState({{"Loop", true}});
    const Dictionary saved = readDictionary(statePath());
    EXPECT_EQ(valueFor(valueFor(saved, "CommonSettings").dictionary(), "Tuning"), Value(7));
    EXPECT_EQ(valueFor(valueFor(saved, "MetronomeSettings").dictionary(), "BPM"), Value(110));
    EXPECT_EQ(valueFor(valueFor(saved, "BrainSettings").dictionary(), "Loop"), Value(true));
}

// A run killed at any moment of a save leaves the old file or the new one,
// never a torn one; the next run clears its temporary files.
TEST_F(StateProxyTest, KillDuringSavesNeverLeavesABrokenFile) {
    proxy()->getStateFilePath();
    for (int round = 0; round < 40; ++round) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            Facade::reset();
            auto saver = makeProxy<StateProxy>();
            for (int bpm = 0;; bpm = (bpm + 1) % 200)
                saver->saveMetromoneState({{"BPM", bpm}, {"pad", std::string(4000, 'p')}});
        }
        ::usleep(static_cast<useconds_t>(2000 + (round * 7919) % 20000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const auto parsed = plist::parse(readBytes(statePath()));
        ASSERT_TRUE(parsed && parsed->isDictionary()) << "round " << round;
        EXPECT_TRUE(valueFor(parsed->dictionary(), "MetronomeSettings").isDictionary());
    }
    // Interrupted saves may leave temporaries; a new run removes the old ones.
    for (const auto& entry : fs::directory_iterator(dataDir_)) {
        if (entry.path().filename() != "saveState.plist")
            fs::last_write_time(entry.path(),
                                fs::file_time_type::clock::now() - std::chrono::hours(1));
    }
    proxy_.reset();
    proxy()->getMetronomeData();
    EXPECT_EQ(std::distance(fs::directory_iterator(dataDir_), fs::directory_iterator()), 1);
}

// With no HOME and no XDG_DATA_HOME the folder used to be "/.local/share".
// The XDG rules: only an absolute XDG_DATA_HOME counts, the root of the file
// system never does, and without HOME the account's home gives the same
// folder as with it.
TEST_F(StateProxyTest, DataFolderFollowsTheXdgRulesNeverTheRoot) {
    const std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
    const passwd* account = ::getpwuid(::getuid());
    const fs::path own = account && account->pw_dir ? account->pw_dir : "/";
    const fs::path ownDir = own == "/" ? fs::path() : own / ".local/share/zebtools";
    const std::string tmp = root_.string();
    const std::string xdg = (root_ / "xdg").string();
    ::unsetenv("ZEBTOOLS_DATA_DIR");
    const struct {
        const char* home;  // nullptr: unset
        const char* xdg;
        fs::path dir;
    } cases[] = {
        {nullptr, nullptr, ownDir},
        {own.c_str(), nullptr, ownDir},
        {"/", nullptr, ownDir},
        {"", "relative/dir", ownDir},
        {tmp.c_str(), "relative/dir", root_ / ".local/share/zebtools"},
        {tmp.c_str(), "/", root_ / ".local/share/zebtools"},
        {tmp.c_str(), xdg.c_str(), root_ / "xdg/zebtools"},
    };
    for (const auto& c : cases) {
        c.home ? ::setenv("HOME", c.home, 1) : ::unsetenv("HOME");
        c.xdg ? ::setenv("XDG_DATA_HOME", c.xdg, 1) : ::unsetenv("XDG_DATA_HOME");
        EXPECT_EQ(paths::dataDir(), c.dir)
            << (c.home ? c.home : "(no HOME)") << " " << (c.xdg ? c.xdg : "(no XDG_DATA_HOME)");
    }
    ::setenv("HOME", home.c_str(), 1);
    ::unsetenv("XDG_DATA_HOME");
}
