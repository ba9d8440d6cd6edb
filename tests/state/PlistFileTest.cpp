// The property-list codec and the file helpers shared by the saved state and
// the presets.
#include <sys/stat.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "state/AtomicFile.h"
#include "state/PlistFile.h"
#include "state/PlistText.h"
#include "state/StateTestSupport.h"

using namespace zt;
namespace fs = std::filesystem;

namespace {

class PlistFileTest : public test::DataDirTest {};

struct RoundTrip {
    const char* what;
    Value value;
};

void PrintTo(const RoundTrip& r, std::ostream* os) {
    *os << r.what;
}

class PlistRoundTripTest : public ::testing::TestWithParam<RoundTrip> {};

const RoundTrip kRoundTrips[] = {
    {"integer", Dictionary{{"k", 42}}},
    {"negative integer", Dictionary{{"k", -7}}},
    {"whole real stays real", Dictionary{{"k", 440.0}}},
    {"fractional real", Dictionary{{"k", 0.1}}},
    {"booleans", Dictionary{{"t", true}, {"f", false}}},
    {"markup and non-ASCII text", Dictionary{{"k", "a<&>\"é"}}},
    {"empty string", Dictionary{{"k", ""}}},
    {"nested", Dictionary{{"a", Array{1, "x", Dictionary{{"b", 2.5}}}}, {"d", Dictionary{}}}},
    {"array root", Array{"1.0", Dictionary{{"BPM", 60}, {"name", "Slow"}}}},
};

}  // namespace

TEST_P(PlistRoundTripTest, KeepsValuesAndKinds) {
    const auto parsed = plist::parse(plist::toXml(GetParam().value));
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ(*parsed, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Kinds, PlistRoundTripTest, ::testing::ValuesIn(kRoundTrips));

TEST_F(PlistFileTest, ReadTellsMissingCorruptAndWrongRootApart) {
    const fs::path path = dataDir_ / "f.plist";
    const struct {
        const char* bytes;  // nullptr: no file
        plist::RootKind kind;
        plist::FileStatus expected;
    } cases[] = {
        {nullptr, plist::RootKind::Dictionary, plist::FileStatus::Missing},
        {"", plist::RootKind::Dictionary, plist::FileStatus::Corrupt},
        {"not a plist", plist::RootKind::Dictionary, plist::FileStatus::Corrupt},
        {"<?xml version=\"1.0\"?><plist><dict><key>a</key>", plist::RootKind::Dictionary,
         plist::FileStatus::Corrupt},
        {"<plist version=\"1.0\"><array/></plist>", plist::RootKind::Dictionary,
         plist::FileStatus::Corrupt},
        {"<plist version=\"1.0\"><array/></plist>", plist::RootKind::Array, plist::FileStatus::Ok},
        {"<plist version=\"1.0\"><dict/></plist>", plist::RootKind::Dictionary,
         plist::FileStatus::Ok},
    };
    for (const auto& c : cases) {
        fs::remove(path);
        if (c.bytes)
            writeBytes(path, c.bytes);
        EXPECT_EQ(plist::readFile(path, c.kind).status, c.expected) << (c.bytes ? c.bytes : "none");
    }
    fs::remove(path);
    fs::create_directories(path);
    EXPECT_EQ(plist::readFile(path, plist::RootKind::Dictionary).status,
              plist::FileStatus::Unreadable);
}

TEST_F(PlistFileTest, AtomicWriteReplacesWholeFileKeepsModeAndLeavesNoTemporary) {
    fs::create_directories(dataDir_);
    const fs::path path = dataDir_ / "f.plist";
    writeBytes(path, std::string(10000, 'x'));
    ::chmod(path.c_str(), 0600);

    ASSERT_TRUE(file::writeAtomically(path, "new"));
    EXPECT_EQ(readBytes(path), "new");
    struct stat st {};
    ASSERT_EQ(::stat(path.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);
    EXPECT_EQ(std::distance(fs::directory_iterator(dataDir_), fs::directory_iterator()), 1);

    EXPECT_FALSE(file::writeAtomically(dataDir_ / "missing" / "f.plist", "x"));
    EXPECT_TRUE(logged("cannot write"));
}

TEST_F(PlistFileTest, KeepAsideNeverOverwritesAnEarlierCopy) {
    const fs::path path = dataDir_ / "f.plist";
    const char* expectedNames[] = {"f.plist.corrupt", "f.plist.corrupt.1", "f.plist.corrupt.2"};
    for (int i = 0; i < 3; ++i) {
        writeBytes(path, "copy " + std::to_string(i));
        const auto aside = file::keepAside(path);
        ASSERT_TRUE(aside.has_value());
        EXPECT_EQ(aside->filename(), expectedNames[i]);
        EXPECT_FALSE(fs::exists(path));
    }
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(readBytes(dataDir_ / expectedNames[i]), "copy " + std::to_string(i));
    }
    EXPECT_FALSE(file::keepAside(dataDir_ / "none.plist").has_value());
}

TEST_F(PlistFileTest, OpenKeepsDamagedOrOversizeFilesAsideAndLeavesUnreadableOnesAlone) {
    const fs::path path = dataDir_ / "presetsList.plist";
    EXPECT_EQ(plist::openFile(path, plist::RootKind::Array).state, plist::Opened::State::Missing);

    writeBytes(path, "<plist><dict/></plist>");
    EXPECT_EQ(plist::openFile(path, plist::RootKind::Array).state, plist::Opened::State::Missing);
    EXPECT_EQ(readBytes(dataDir_ / "presetsList.plist.corrupt"), "<plist><dict/></plist>");
    EXPECT_TRUE(logged("warning"));

    // Larger than any file of ours can be: set aside like a damaged one.
    writeBytes(path, std::string(17u << 20, ' '));
    EXPECT_EQ(plist::openFile(path, plist::RootKind::Array).state, plist::Opened::State::Missing);
    EXPECT_EQ(fs::file_size(dataDir_ / "presetsList.plist.corrupt.1"), 17u << 20);

    fs::create_directories(path);
    const auto blocked = plist::openFile(path, plist::RootKind::Array);
    EXPECT_EQ(blocked.state, plist::Opened::State::Blocked);
    EXPECT_EQ(blocked.why, "presetsList.plist cannot be read");
    EXPECT_TRUE(fs::is_directory(path));
}

// Nesting of 50,000 levels overflowed the stack of the parser.
TEST_F(PlistFileTest, DeeplyNestedListsAreRefusedNotParsed) {
    const std::string head = "<?xml version=\"1.0\"?><plist version=\"1.0\">";
    const auto nested = [&](int depth) {
        std::string xml = head;
        for (int i = 0; i < depth; ++i)
            xml += i % 2 ? "<dict><key>k</key>" : "<array>";
        for (int i = depth - 1; i >= 0; --i)
            xml += i % 2 ? "</dict>" : "</array>";
        return xml + "</plist>";
    };
    EXPECT_TRUE(plist::parse(nested(plist::kMaxDepth)).has_value());
    EXPECT_FALSE(plist::parse(nested(plist::kMaxDepth + 1)).has_value());
    EXPECT_FALSE(plist::parse(nested(50000)).has_value());

    // The same in the binary form: object i is an array holding object i+1.
    const int depth = 200000;
    std::vector<std::string> chain;
    for (int i = 0; i + 1 < depth; ++i)
        chain.push_back("\xA1" + test::bigEndian(i + 1, 4));
    chain.push_back("\xA0");
    const std::string bin = test::binaryPlist(chain, 4);
    EXPECT_FALSE(plist::parse(bin).has_value());

    const fs::path path = dataDir_ / "saveState.plist";
    writeBytes(path, nested(50000));
    EXPECT_EQ(plist::readFile(path, plist::RootKind::Dictionary).status,
              plist::FileStatus::Corrupt);
}

TEST_F(PlistFileTest, TextIsCleanedOnWriteAndOnlyDamagedValuesAreDroppedOnRead) {
    // Pasted text: a NUL, a bell, a lone continuation byte, a noncharacter.
    const std::string pasted = std::string("a\0b\x07", 4) + "c\x80" + "d\xEF\xB7\x90" + "e\tf";
    EXPECT_EQ(plist::sanitizeText(pasted),
              "abc\xEF\xBF\xBD"
              "de\tf");
    EXPECT_EQ(plist::sanitizeName("  \t Slow\nblues \xC2\xA0 "), "Slowblues");
    EXPECT_EQ(plist::sanitizeName(" \xE3\x80\x80 "), "");
    // U+202E, U+2067, U+200F: the bidirectional controls.
    EXPECT_EQ(plist::sanitizeName("\xE2\x80\xAEslow\xE2\x81\xA7 blues\xE2\x80\x8F"), "slow blues");

    const std::string xml = plist::toXml(Dictionary{{"k\x01", pasted}});
    EXPECT_TRUE(plist::isCleanText(xml));
    EXPECT_EQ(plist::parse(xml), Value(Dictionary{{"k",
                                                   "abc\xEF\xBF\xBD"
                                                   "de\tf"}}));

    // Written by another program: only the strings that carry a character
    // XML forbids, and the entries holding them, are lost.
    const std::string head = "<?xml version=\"1.0\"?><plist version=\"1.0\"><array>";
    const struct {
        const char* bad;
    } cases[] = {{"&#x0;"}, {"&#1;"}, {"&#xFFFE;"}, {"\x01"}, {"\xFF"}, {"\xED\xA0\x80"}};
    for (const auto& c : cases) {
        const auto parsed =
            plist::parse(head + "<string>1.0</string><dict><key>name</key><string>a" + c.bad +
                         "b</string><key>BPM</key><integer>7</integer>" +
                         "</dict><string>ok &#x41;&#10;</string></array></plist>");
        ASSERT_TRUE(parsed.has_value()) << c.bad;
        EXPECT_EQ(*parsed, Value(Array{"1.0", Dictionary{{"BPM", 7}}, "ok A\n"})) << c.bad;
    }
}

TEST_F(PlistFileTest, DatesAndDataOfOtherProgramsSurviveARoundTrip) {
    const std::string xml =
        "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>when</key>"
        "<date>2020-01-02T03:04:05Z</date><key>blob</key><data>AAEC/w==</data></dict></plist>";
    const auto first = plist::parse(xml);
    ASSERT_TRUE(first.has_value());
    const std::string rewritten = plist::toXml(*first);
    EXPECT_NE(rewritten.find("<date>2020-01-02T03:04:05Z</date>"), std::string::npos);
    EXPECT_NE(rewritten.find("AAEC/w=="), std::string::npos);
    EXPECT_EQ(plist::parse(rewritten), first);
}

TEST_F(PlistFileTest, WritesGoThroughSymbolicLinksAndStaleTemporariesAreCleared) {
    const fs::path real = root_ / "elsewhere" / "state.plist";
    writeBytes(real, "old");
    fs::create_directories(dataDir_);
    const fs::path link = dataDir_ / "saveState.plist";
    fs::create_symlink(real, link);
    ASSERT_TRUE(file::writeAtomically(link, "new"));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(readBytes(real), "new");

    const fs::path stale = dataDir_ / ".f.plist.AbC123";
    const fs::path fresh = dataDir_ / ".f.plist.XyZ789";
    writeBytes(stale, "half");
    writeBytes(fresh, "half");
    fs::last_write_time(stale, fs::file_time_type::clock::now() - std::chrono::hours(1));
    writeBytes(dataDir_ / ".f.plist.other-name", "kept");
    file::removeStaleTemporaries(dataDir_ / "f.plist", std::chrono::minutes(1));
    EXPECT_FALSE(fs::exists(stale));
    EXPECT_TRUE(fs::exists(fresh));
    EXPECT_TRUE(fs::exists(dataDir_ / ".f.plist.other-name"));
}

// Files the fuzzers made: a string or key with a NUL byte inside. Reading
// them once aborted the program at every start. In XML only the damaged
// value is dropped; a binary list (never written by the app) is refused
// whole, so the file is set aside.
TEST_F(PlistFileTest, TextWithANulByteIsDroppedOrRefusedNeverFatal) {
    for (const auto& entry : std::filesystem::directory_iterator(ZEBTOOLS_FUZZ_FINDINGS)) {
        std::ifstream in(entry.path(), std::ios::binary);
        std::stringstream bytes;
        bytes << in.rdbuf();
        const bool binary = entry.path().extension() == ".bplist";
        EXPECT_EQ(plist::parse(bytes.str()).has_value(), !binary) << entry.path();
    }
}
