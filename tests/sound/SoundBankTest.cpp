// The bank's table: ids, files and the open-string notes they hold.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "sound/SoundBank.h"

using zt::SoundBank;

namespace {

struct StringRow {
    int string;
    const char* file;
    double hertz;
};

void PrintTo(const StringRow& row, std::ostream* os) {
    *os << row.file;
}

class SoundBankStrings : public ::testing::TestWithParam<StringRow> {};

}  // namespace

TEST_P(SoundBankStrings, StringMapsToItsNoteFileAndFrequency) {
    const auto& row = GetParam();
    EXPECT_EQ(SoundBank::fileName(SoundBank::stringSoundId(row.string)), row.file);
    EXPECT_NEAR(SoundBank::openStringFrequency(row.string), row.hertz, 5e-4);
}

INSTANTIATE_TEST_SUITE_P(
    Standard, SoundBankStrings,
    ::testing::Values(StringRow{0, "E4_.caf", 329.628}, StringRow{1, "B3_.caf", 246.942},
                      StringRow{2, "G3_.caf", 195.998}, StringRow{3, "D3_.caf", 146.832},
                      StringRow{4, "A2_.caf", 110.000}, StringRow{5, "E2_.caf", 82.407}));

TEST(SoundBank, ClickIdsNameTheirPackAndKind) {
    const char* kinds[] = {"tick", "tock", "subtick"};
    for (int pack = 1; pack <= SoundBank::kPackCount; ++pack) {
        for (int kind = 0; kind < 3; ++kind) {
            const int id = SoundBank::clickSoundId(pack, static_cast<SoundBank::Click>(kind));
            EXPECT_EQ(SoundBank::fileName(id), std::to_string(pack) + "_" + kinds[kind] + ".caf")
                << "id " << id;
        }
    }
    EXPECT_EQ(SoundBank::clickSoundId(1, SoundBank::Click::Tick), 51);
    EXPECT_EQ(SoundBank::clickSoundId(5, SoundBank::Click::Subtick), SoundBank::kLastId);
}

TEST(SoundBank, EveryFileShipsAndUnknownIdsHaveNone) {
    for (const auto& entry : SoundBank::kEntries) {
        EXPECT_TRUE(std::filesystem::is_regular_file(SoundBank::path(entry.file))) << entry.file;
    }
    for (int id : {0, 7, 50, 66, -1})
        EXPECT_TRUE(SoundBank::fileName(id).empty()) << id;
    EXPECT_EQ(SoundBank::openStringFrequency(6), 0.0);
}
