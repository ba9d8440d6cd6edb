// Files shaped to make the property-list reader recurse, expand or loop: each
// is either read in time proportional to its size or set aside as damaged.
#include <functional>
#include <string>
#include <vector>

#include "state/PlistFile.h"
#include "state/StateTestSupport.h"

using namespace zt;
namespace fs = std::filesystem;

namespace {

struct HostileFile {
    const char* what;
    std::function<std::string()> bytes;
    int items;  // of the root array once read; -1: set aside
};

void PrintTo(const HostileFile& f, std::ostream* os) {
    *os << f.what;
}

const std::string kXmlHead = "<?xml version=\"1.0\"?><plist version=\"1.0\">";

std::string repeat(std::string_view piece, int times) {
    std::string out;
    out.reserve(piece.size() * static_cast<std::size_t>(times));
    for (int i = 0; i < times; ++i)
        out += piece;
    return out;
}

// A binary array of n references to object 1, which is `item`.
std::string arrayOfOne(int n, const std::string& item) {
    const std::string top = "\xAF\x12" + test::bigEndian(n, 4) + repeat(test::bigEndian(1, 4), n);
    return test::binaryPlist({top, item}, 4);
}

// n empty arrays in an array.
std::string emptyArrays(int n) {
    std::string top = "\xAF\x12" + test::bigEndian(n, 4);
    for (int i = 1; i <= n; ++i)
        top += test::bigEndian(i, 4);
    std::vector<std::string> objects(static_cast<std::size_t>(n) + 1, "\xA0");
    objects[0] = top;
    return test::binaryPlist(objects, 4);
}

const HostileFile kFiles[] = {
    {"a '>' in a quoted attribute hiding 200,000 levels",
     [] {
         return kXmlHead + repeat("<array x=\"/>\">", 200000) + repeat("</array>", 200000) +
                "</plist>";
     },
     -1},
    {"elements in comments and CDATA are text",
     [] {
         return kXmlHead + "<array><!-- <array> --><string><![CDATA[</array>]]></string>" +
                "<?pi <array>?></array></plist>";
     },
     1},
    {"closing tags out of order", [] { return kXmlHead + "<array><dict></array></dict></plist>"; },
     -1},
    {"unterminated comment", [] { return kXmlHead + "<array><!-- </array></plist>"; }, -1},
    {"22 levels of arrays each referencing the next twice",
     [] {
         std::vector<std::string> objects;
         for (int i = 1; i < 22; ++i)
             objects.push_back("\xA2" + std::string(2, static_cast<char>(i)));
         objects.push_back("\xA0");
         return test::binaryPlist(objects, 1);
     },
     -1},
    {"an array holding itself", [] { return test::binaryPlist({std::string("\xA1\x00", 2)}, 1); },
     -1},
    {"a 200-byte string referenced 100,000 times",
     [] { return arrayOfOne(100000, "\x5F\x10\xC8" + std::string(200, 'a')); }, -1},
    {"300,000 objects in a file of fewer bytes",
     [] {
         std::vector<std::string> objects(300000, "");
         objects[0] = "\xA0";
         return test::binaryPlist(objects, 4);
     },
     -1},
    {"200,000 empty arrays", [] { return emptyArrays(200000); }, 200000},
    {"1,500,000 empty arrays, past the bound on values", [] { return emptyArrays(1500000); }, -1},
};

class HostilePlistTest : public test::DataDirTest,
                         public ::testing::WithParamInterface<HostileFile> {};

}  // namespace

TEST_P(HostilePlistTest, IsReadOrSetAside) {
    const fs::path path = dataDir_ / "presetsList.plist";
    const std::string bytes = GetParam().bytes();
    writeBytes(path, bytes);
    const auto opened = plist::openFile(path, plist::RootKind::Array);
    if (GetParam().items < 0) {
        EXPECT_EQ(opened.state, plist::Opened::State::Missing);
        EXPECT_EQ(fs::file_size(dataDir_ / "presetsList.plist.corrupt"), bytes.size());
    } else {
        ASSERT_EQ(opened.state, plist::Opened::State::Read);
        EXPECT_EQ(opened.root.array().size(), static_cast<std::size_t>(GetParam().items));
    }
}

INSTANTIATE_TEST_SUITE_P(Shapes, HostilePlistTest, ::testing::ValuesIn(kFiles));
