// The presets file: its creation, lookups by name and state, changes written
// through, and damaged or odd content.
#include <functional>

#include "metronome/MetronomeProxy.h"
#include "state/PlistCodec.h"
#include "state/StateTestSupport.h"

using namespace zt;
namespace fs = std::filesystem;

namespace {

Dictionary preset(const std::string& name, const std::string& state) {
    return Dictionary{{"packNumber", 1},   {"timeSig1Value", 4},      {"timeSig2Value", 4},
                      {"notesPerBeat", 1}, {"isFirstBeatNeed", true}, {"isTempoX2", false},
                      {"BPM", 100},        {"state", state},          {"name", name}};
}

class MetronomeProxyTest : public test::DataDirTest {
protected:
    fs::path presetsPath() const { return dataDir_ / "presetsList.plist"; }

    // A proxy that has read the file, as at start-up.
    std::shared_ptr<MetronomeProxy> loaded() {
        auto proxy = makeProxy<MetronomeProxy>();
        proxy->loadPresetsArray();
        return proxy;
    }

    Value fileContent() const {
        return plist::parse(readBytes(presetsPath())).value_or(Value("unparsable"));
    }
};

}  // namespace

TEST_F(MetronomeProxyTest, FirstRunCreatesTheVersionOnlyList) {
    auto proxy = loaded();
    EXPECT_EQ(proxy->proxyName(), "MetronomeProxy");
    EXPECT_EQ(MetronomeProxy::presetsListPath(), presetsPath());
    EXPECT_EQ(fileContent(), Value(Array{"1.0"}));
    EXPECT_EQ(proxy->presetsArray(), Array{"1.0"});
    EXPECT_TRUE(logged("presetList created"));
}

TEST_F(MetronomeProxyTest, NamesAreMatchedIgnoringCase) {
    auto proxy = loaded();
    proxy->saveCurrentState(preset("Waltz", "1-3-4-1-1-0-70"));
    proxy->saveCurrentState(preset("Été", "1-3-4-1-1-0-71"));
    const struct {
        const char* name;
        bool taken;
    } cases[] = {
        {"Waltz", true},   {"waltz", true}, {"WALTZ", true}, {"Waltz 2", false},
        {"Waltz ", false}, {"Walt", false}, {"", false},     {"1.0", false},
        {"été", true},     {"ÉTÉ", true},   {"Ete", false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(proxy->containPresetWithName(c.name), c.taken) << c.name;
    }
}

TEST_F(MetronomeProxyTest, PresetsAreWrittenThroughAndReadBackInOrder) {
    auto proxy = loaded();
    proxy->saveCurrentState(preset("Slow", "1-4-4-1-1-0-40"));
    proxy->saveCurrentState(preset("Fast", "2-4-4-2-1-0-120"));
    EXPECT_EQ(fileContent(), Value(proxy->presetsArray()));

    auto again = loaded();
    EXPECT_EQ(again->presetsArray().size(), 3u);
    EXPECT_EQ(again->presetNameForIndex(1), "Slow");
    EXPECT_EQ(again->presetNameForIndex(2), "Fast");
    EXPECT_EQ(again->presetAtIndex(2), preset("Fast", "2-4-4-2-1-0-120"));

    again->removePresetWithIndex(1);
    EXPECT_EQ(fileContent(), Value(Array{"1.0", preset("Fast", "2-4-4-2-1-0-120")}));
    EXPECT_EQ(again->presetNameForIndex(1), "Fast");
}

// Two instances and an editor: each write makes only its own additions and
// removals to the file as it is then, so no one's presets are lost.
TEST_F(MetronomeProxyTest, SavesKeepThePresetsOthersMadeOrRemoved) {
    const Dictionary kept = preset("Kept", "1-4-4-1-1-0-60");
    const Dictionary gone = preset("Gone", "1-4-4-1-1-0-61");
    const Dictionary second = preset("Second", "1-4-4-1-1-0-62");
    const Dictionary edited = preset("Edited", "1-4-4-1-1-0-63");
    const Dictionary first = preset("First", "1-4-4-1-1-0-64");
    auto one = loaded();
    one->saveCurrentState(kept);
    one->saveCurrentState(gone);
    auto two = loaded();
    two->saveCurrentState(second);
    Array inEditor = fileContent().array();
    inEditor.emplace_back(edited);
    writeBytes(presetsPath(), plist::toXml(Value(inEditor)));

    one->removePresetWithIndex(2);
    one->saveCurrentState(first);
    const Array afterOne{"1.0", kept, second, edited, first};
    EXPECT_EQ(fileContent(), Value(afterOne));
    EXPECT_EQ(one->presetsArray(), afterOne);

    two->removePresetWithIndex(1);
    EXPECT_EQ(fileContent(), Value(Array{"1.0", second, edited, first}));
}

TEST_F(MetronomeProxyTest, StateFindsTheFirstExactMatch) {
    auto proxy = loaded();
    proxy->saveCurrentState(preset("A", "1-4-4-1-1-0-60"));
    proxy->saveCurrentState(preset("B", "1-4-4-1-1-0-100"));
    proxy->saveCurrentState(preset("C", "1-4-4-1-1-0-60"));
    const struct {
        const char* state;
        int index;
    } cases[] = {
        {"1-4-4-1-1-0-60", 1},
        {"1-4-4-1-1-0-100", 2},
        {"1-4-4-1-1-0-6", 0},
        {"1-4-4-1-1-0-600", 0},
        {"", 0},
        {"1.0", 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(proxy->presetIndexForState(c.state), c.index) << c.state;
    }
    proxy->removePresetWithIndex(1);
    EXPECT_EQ(proxy->presetIndexForState("1-4-4-1-1-0-60"), 2);
}

TEST_F(MetronomeProxyTest, IndicesOutsideThePresetsChangeNothing) {
    auto proxy = loaded();
    proxy->saveCurrentState(preset("Only", "1-4-4-1-1-0-60"));
    const std::string before = readBytes(presetsPath());
    for (int index : {0, -1, 2, 1000}) {
        proxy->removePresetWithIndex(index);
        EXPECT_EQ(proxy->presetAtIndex(index), Dictionary{}) << index;
        EXPECT_EQ(proxy->presetNameForIndex(index), "") << index;
    }
    EXPECT_EQ(proxy->presetsArray().size(), 2u);
    EXPECT_EQ(readBytes(presetsPath()), before);
}

TEST_F(MetronomeProxyTest, DamagedFileIsKeptAsideAndReplaced) {
    const struct {
        const char* what;
        std::string bytes;
    } cases[] = {
        {"not a property list", "presets? no"},
        {"truncated", "<?xml version=\"1.0\"?><plist><array><string>1.0</string>"},
        {"dictionary root", plist::toXml(Dictionary{{"name", "x"}})},
        {"no version", plist::toXml(Array{preset("Lost", "1-4-4-1-1-0-60")})},
        {"other version", plist::toXml(Array{"2.0", preset("Lost", "1-4-4-1-1-0-60")})},
        {"empty array", plist::toXml(Array{})},
    };
    for (const auto& c : cases) {
        fs::remove_all(dataDir_);
        writeBytes(presetsPath(), c.bytes);
        logLines_.clear();

        auto proxy = loaded();
        EXPECT_EQ(proxy->presetsArray(), Array{"1.0"}) << c.what;
        EXPECT_EQ(fileContent(), Value(Array{"1.0"})) << c.what;
        EXPECT_EQ(readBytes(dataDir_ / "presetsList.plist.corrupt"), c.bytes) << c.what;
        EXPECT_TRUE(logged("damaged")) << c.what;
        EXPECT_EQ(proxy->presetIndexForState("1-4-4-1-1-0-60"), 0) << c.what;
    }
}

TEST_F(MetronomeProxyTest, UnreadableFileIsLeftAlone) {
    // A folder where the file should be cannot be read by anyone.
    fs::create_directories(presetsPath() / "inside");
    auto proxy = loaded();
    EXPECT_EQ(proxy->presetsArray(), Array{"1.0"});
    proxy->saveCurrentState(preset("Kept in memory", "1-4-4-1-1-0-60"));
    EXPECT_EQ(proxy->presetNameForIndex(1), "Kept in memory");
    EXPECT_TRUE(fs::is_directory(presetsPath() / "inside"));
    EXPECT_TRUE(logged("presets not saved"));
}

TEST_F(MetronomeProxyTest, AnyTitleSurvivesTheFile) {
    const std::string titles[] = {
        "Say \"hi\" & 'bye'", "<b>bold</b>",         "]]><!--",
        "  spaced  ",         "tab\there\nnewline",  "Metal 🤘 200 bpm",
        "日本語のプリセット", std::string(500, 'x'), "%d %s %@ \\n",
    };
    auto proxy = loaded();
    for (const auto& title : titles) {
        proxy->saveCurrentState(preset(title, "1-4-4-1-1-0-60"));
    }
    auto again = loaded();
    for (std::size_t i = 0; i < std::size(titles); ++i) {
        const int index = static_cast<int>(i) + 1;
        EXPECT_EQ(again->presetNameForIndex(index), titles[i]) << index;
        EXPECT_TRUE(again->containPresetWithName(titles[i])) << index;
    }
}

// One "&#x0;" used to send the whole list aside.
TEST_F(MetronomeProxyTest, OnlyBadOrJunkEntriesAreLeftOut) {
    const std::string bytes =
        "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><string>1.0</string>"
        "<dict><key>name</key><string>Good</string><key>state</key><string>s1</string></dict>"
        "<dict><key>name</key><string>a&#x0;b</string><key>state</key><string>s2</string></dict>"
        "<string>junk</string>"
        "<dict><key>name</key><string> &#9; </string></dict>"
        "<dict><key>BPM</key><integer>90</integer></dict>"
        "</array></plist>";
    writeBytes(presetsPath(), bytes);

    auto proxy = loaded();
    ASSERT_EQ(proxy->presetsArray().size(), 2u);
    EXPECT_EQ(proxy->presetNameForIndex(1), "Good");
    EXPECT_FALSE(fs::exists(dataDir_ / "presetsList.plist.corrupt"));
    proxy->saveCurrentState(preset(" \t ", "z"));  // a blank name is refused
    EXPECT_EQ(proxy->presetsArray().size(), 2u);
}

TEST_F(MetronomeProxyTest, PresetsMadeWhileTheFileIsUnreadableJoinItLater) {
    fs::create_directories(presetsPath());
    auto notices = std::make_shared<test::NoticeRecorder>();
    Facade::getInstance().registerMediator(notices);
    auto proxy = loaded();
    proxy->saveCurrentState(preset("New one", "1-4-4-1-1-0-60"));
    proxy->saveCurrentState(preset("New two", "1-4-4-1-1-0-61"));
    ASSERT_EQ(notices->messages.size(), 1u);
    EXPECT_NE(
        notices->messages[0].find("Presets could not be saved: presetsList.plist cannot be read"),
        std::string::npos);

    fs::remove(presetsPath());
    writeBytes(presetsPath(), plist::toXml(Array{"1.0", preset("Old", "1-4-4-1-1-0-62")}));
    EXPECT_TRUE(proxy->flush());
    EXPECT_EQ(fileContent(), Value(Array{"1.0", preset("Old", "1-4-4-1-1-0-62"),
                                         preset("New one", "1-4-4-1-1-0-60"),
                                         preset("New two", "1-4-4-1-1-0-61")}));
    EXPECT_EQ(proxy->presetNameForIndex(1), "Old");
}

// A put back after a delete and a replacement (rename, update) are made again
// to a file another program changed, never losing a preset of either side.
TEST_F(MetronomeProxyTest, PutBacksAndReplacementsKeepOtherProgramsPresets) {
    const Dictionary a = preset("A", "1-4-4-1-1-0-60"), b = preset("B", "1-4-4-1-1-0-61");
    const Dictionary c = preset("C", "1-4-4-1-1-0-62"), d = preset("D", "1-4-4-1-1-0-63");
    const Dictionary a2 = preset("A2", "1-4-4-1-1-0-60"), c2 = preset("C", "1-3-4-1-1-0-62");
    auto one = loaded();
    for (const auto& p : {a, b, c})
        one->saveCurrentState(p);
    auto two = loaded();
    two->saveCurrentState(d);

    const struct {
        const char* what;
        std::function<void()> act;
        Array file;
    } steps[] = {
        {"a delete of the first, on the other's file", [&] { one->removePresetWithIndex(2); },
         Array{"1.0", a, c, d}},
        {"put back where it was", [&] { one->insertPresetAtIndex(2, b); },
         Array{"1.0", a, b, c, d}},
        {"a rename on a file changed since", [&] { EXPECT_TRUE(two->replacePresetAtIndex(1, a2)); },
         Array{"1.0", a2, b, c, d}},
        {"an update of a preset the other removed is kept",
         [&] {
             two->removePresetWithIndex(3);
             EXPECT_TRUE(one->replacePresetAtIndex(3, c2));
         },
         Array{"1.0", a2, b, d, c2}},
        {"a put back past the end, or at 0, appends", [&] { one->insertPresetAtIndex(0, c); },
         Array{"1.0", a2, b, d, c2, c}},
    };
    for (const auto& step : steps) {
        step.act();
        EXPECT_EQ(fileContent(), Value(step.file)) << step.what;
    }
    EXPECT_EQ(one->presetsArray(), steps[4].file);

    // Nothing to replace, or nothing to replace it with.
    const Array before = one->presetsArray();
    EXPECT_FALSE(one->replacePresetAtIndex(0, a));
    EXPECT_FALSE(one->replacePresetAtIndex(6, a));
    EXPECT_FALSE(one->replacePresetAtIndex(1, Dictionary{{"BPM", 3}}));
    one->insertPresetAtIndex(1, Dictionary{{"name", " \t"}});
    EXPECT_EQ(one->presetsArray(), before);
    EXPECT_EQ(fileContent(), Value(before));
}
