// The chords proxy as the chords screen will use it: picker lists, and
// tuning changes as the common settings send them.
#include <gtest/gtest.h>

#include <memory>

#include "ChordTesting.h"
#include "chords/ChordsProxy.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "framework/Mediator.h"

namespace zt::test {
namespace {

struct Listener : Mediator {
    Listener() : Mediator("Listener") {}
    std::vector<std::string> listNotificationInterests() const override {
        return {"ChordsForPickerReady"};
    }
    void handleNotification(const Notification& n) override { heard.push_back(n.name()); }
    std::vector<std::string> heard;
};

class ChordsProxyTest : public ::testing::Test {
protected:
    void SetUp() override {
        Facade::reset();
        Facade::getInstance().registerProxy(makeProxy<ChordsProxy>());
        proxy = Facade::getInstance().retrieveProxyAs<ChordsProxy>(ChordsProxy::NAME);
    }
    void TearDown() override { Facade::reset(); }

    std::shared_ptr<ChordsProxy> proxy;
};

TEST_F(ChordsProxyTest, PickerListsAreAnnouncedAndReadBack) {
    auto listener = makeMediator<Listener>();
    Facade::getInstance().registerMediator(listener);
    proxy->getChordsForPicker();
    EXPECT_EQ(listener->heard, std::vector<std::string>{"ChordsForPickerReady"});
    ASSERT_EQ(proxy->chordsPart1().size(), 12u);
    ASSERT_EQ(proxy->chordsPart2().size(), 24u);
    EXPECT_EQ(proxy->chordsPart1()[6], "F\u266F (G\u266D)");
    EXPECT_EQ(proxy->chordsPart2()[1], "minor");
    EXPECT_EQ(proxy->getOctaves()[57], "A4");
}

TEST_F(ChordsProxyTest, TuningChangesReachTheGeneratorAndBadOnesAreRefused) {
    EXPECT_EQ(proxy->tuningString(), "E2&A2&D3&G3&B3&E4");
    ASSERT_TRUE(proxy->updateTuning("D2&A2&D3&G3&B3&E4"));
    EXPECT_EQ(proxy->tuningExpanded().front(), "D2");
    EXPECT_EQ(proxy->getTuningDictionary()[5].index, 26);

    std::vector<std::string> lines;
    setLogSink([&](const std::string& line) { lines.push_back(line); });
    setLogQuiet(true);
    for (const char* bad :
         {"", "E2&A2&D3", "E2&A2&D3&G3&B3&E4&A4", "E2&A2&D3&G3&B3&Fb4", "e2&a2&d3&g3&b3&e4"}) {
        EXPECT_FALSE(proxy->updateTuning(bad)) << bad;
    }
    setLogSink({});
    setLogQuiet(false);
    EXPECT_EQ(lines.size(), 5u);
    EXPECT_EQ(proxy->tuningString(), "D2&A2&D3&G3&B3&E4");
    EXPECT_EQ(proxy->getTuningDictionary()[5].index, 26);

    const auto set = std::make_unique<VariationSet>();
    proxy->variationsInDisplayOrder("D", "", *set);
    EXPECT_EQ(fretsOf(set->records[0]), "0 0 0 2 3 2");
}

}  // namespace
}  // namespace zt::test
