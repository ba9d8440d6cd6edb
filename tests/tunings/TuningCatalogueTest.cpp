// The shape of the tunings catalogue that the tuner panel and the chords
// library rely on, and the current tuning kept by SettingsProxy.
#include <gtest/gtest.h>

#include <set>

#include "framework/Facade.h"
#include "framework/Log.h"
#include "tunings/SettingsProxy.h"
#include "tunings/TuningCatalogue.h"

using namespace zt;

TEST(TuningCatalogueTest, EveryStringIsSixSharpNamedTokensWithAnOctaveDigit) {
    const std::set<std::string> pitchNames = {"C",  "C#", "D",  "D#", "E",  "F",
                                              "F#", "G",  "G#", "A",  "A#", "B"};
    ASSERT_EQ(tunings::catalogue().size(), 53u);
    EXPECT_EQ(tunings::catalogue()[0].name, "Standard");
    for (const auto& tuning : tunings::catalogue()) {
        const auto tokens = tunings::tokens(tuning.notes);
        ASSERT_EQ(tokens.size(), 6u) << tuning.name;
        for (const auto& token : tokens) {
            ASSERT_GE(token.size(), 2u) << tuning.name;
            ASSERT_LE(token.size(), 3u) << tuning.name;
            EXPECT_TRUE(std::isdigit(static_cast<unsigned char>(token.back()))) << tuning.name;
            EXPECT_TRUE(pitchNames.count(token.substr(0, token.size() - 1))) << tuning.name;
        }
    }
}

TEST(TuningCatalogueTest, NamesAndCompactLabelsAtKnownPlaces) {
    const struct {
        std::size_t index;
        const char* name;
        const char* label;
    } rows[] = {
        {0, "Standard", "EADGBE"},       {2, "Baritone", "BEADF#B"},
        {14, "D modal (2)", "DADADD"},   {16, "Double Drop Bb", "A#FA#D#GA#"},
        {27, "Drop D", "DADGBE"},        {29, "E modal", "EBEEBE"},
        {40, "New Standart", "CGDAEG"},  {42, "Open A (2)", "EAC#EAC#"},
        {52, "Open G Minor", "DGDGA#D"},
    };
    for (const auto& row : rows) {
        const auto& tuning = tunings::catalogue()[row.index];
        EXPECT_EQ(tuning.name, row.name);
        EXPECT_EQ(tunings::compactLabel(tuning.notes), row.label) << row.name;
    }
}

class SettingsProxyTest : public ::testing::Test {
protected:
    void SetUp() override {
        Facade::reset();
        setLogQuiet(true);
    }
    void TearDown() override {
        setLogQuiet(false);
        Facade::reset();
    }
};

TEST_F(SettingsProxyTest, SavedTuningIsTakenWhenUsableElseStandard) {
    const struct {
        const char* what;
        Dictionary saved;
        int expected;
    } cases[] = {
        {"nothing saved", {}, 0},
        {"Drop D", {{"Tuning", 27}}, 27},
        {"last", {{"Tuning", 52}}, 52},
        {"past the end", {{"Tuning", 99}}, 0},
        {"one past the end", {{"Tuning", 53}}, 0},
        {"negative", {{"Tuning", -1}}, 0},
        {"not a number", {{"Tuning", "abc"}}, 0},
        {"number as text", {{"Tuning", "5"}}, 5},
        {"real", {{"Tuning", 3.0}}, 3},
        {"dictionary", {{"Tuning", Dictionary{}}}, 0},
    };
    for (const auto& c : cases) {
        auto proxy = makeProxy<SettingsProxy>();
        proxy->setTuning(7);
        proxy->initVariables(c.saved);
        EXPECT_EQ(proxy->getTuningNumber(), c.expected) << c.what;
        EXPECT_EQ(proxy->getTuningName(), tunings::catalogue()[c.expected].name) << c.what;
        EXPECT_EQ(proxy->getTuning(), tunings::catalogue()[c.expected].notes) << c.what;
    }
}
