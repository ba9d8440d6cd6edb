// The property-list codec and the file helpers shared by the saved state and
// the presets.
#include <sys/stat.h>

#include "state/AtomicFile.h"
#include "state/PlistFile.h"
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

TEST_F(PlistFileTest, LoadWithDefaultCreatesOrRepairsAnArrayFile) {
    const fs::path path = dataDir_ / "presetsList.plist";
    const std::string defaultXml = plist::toXml(Array{"1.0"});

    auto created = plist::loadWithDefault(path, plist::RootKind::Array, defaultXml);
    EXPECT_TRUE(created.fromFile);
    EXPECT_EQ(created.root, Value(Array{"1.0"}));
    EXPECT_EQ(readBytes(path), defaultXml);

    writeBytes(path, "<plist><dict/></plist>");
    auto repaired = plist::loadWithDefault(path, plist::RootKind::Array, defaultXml);
    EXPECT_TRUE(repaired.fromFile);
    EXPECT_EQ(repaired.root, Value(Array{"1.0"}));
    EXPECT_EQ(readBytes(dataDir_ / "presetsList.plist.corrupt"), "<plist><dict/></plist>");
    EXPECT_TRUE(logged("warning"));
}
