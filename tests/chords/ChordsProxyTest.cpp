// The chords proxy as the chords screen will use it: picker lists, and
// tuning changes as the common settings send them.
#include <gtest/gtest.h>

#include <memory>

#include "ChordTesting.h"
#include "chords/Capo.h"
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

// A chord under a capo: its first fingering counted from the capo, and the
// notes it sounds, lowest string first.
struct CapoCase {
    const char* chord;  // root and type key, "D" or "F#m7"
    const char* tuning;
    int capo;
    const char* frets;
    const char* sounding;
    const char* shape;  // the note the shape is named by
};
void PrintTo(const CapoCase& c, std::ostream* os) {
    *os << c.chord << " in " << c.tuning << ", capo " << c.capo;
}

class CapoShift : public ChordsProxyTest, public ::testing::WithParamInterface<CapoCase> {};

TEST_P(CapoShift, FingersTheShapeBelowAndSoundsAtConcertPitch) {
    const CapoCase& c = GetParam();
    for (const auto& tuning : tunings::catalogue()) {
        if (tuning.name == c.tuning) {
            ASSERT_TRUE(proxy->updateTuning(std::string(tuning.notes)));
        }
    }
    ASSERT_TRUE(proxy->setCapo(c.capo));
    const std::string chord = c.chord;
    const std::size_t rootLength = chord.size() > 1 && chord[1] == '#' ? 2 : 1;
    const std::string root = chord.substr(0, rootLength);
    const auto set = std::make_unique<VariationSet>();
    proxy->variationsInDisplayOrder(root, chord.substr(rootLength), *set);
    ASSERT_GT(set->count, 0);
    const ChordVariation& first = set->records[0];
    EXPECT_EQ(fretsOf(first), c.frets);
    std::string sounding;
    for (int p = 0; p < first.playedStrings(); ++p)
        sounding += (sounding.empty() ? "" : " ") + chords::tokens()[first.pitches[p]];
    EXPECT_EQ(sounding, c.sounding);
    EXPECT_EQ(chords::shapeNote(root, c.capo), c.shape);
}

INSTANTIATE_TEST_SUITE_P(
    Chords, CapoShift,
    ::testing::Values(CapoCase{"C", "Standard", 0, "x 3 2 0 1 0", "C3 E3 G3 C4 E4", "C"},
                      CapoCase{"D", "Standard", 2, "x 3 2 0 1 0", "D3 F#3 A3 D4 F#4", "C"},
                      CapoCase{"A", "Standard", 2, "3 2 0 0 0 3", "A2 C#3 E3 A3 C#4 A4", "G"},
                      CapoCase{"F#m7", "Standard", 2, "0 2 0 0 0 0", "F#2 C#3 E3 A3 C#4 F#4", "E"},
                      CapoCase{"F", "Drop D", 3, "0 0 0 2 3 2", "F2 C3 F3 C4 F4 A4", "D"},
                      CapoCase{"C", "Standard", 12, "x 3 2 0 1 0", "C4 E4 G4 C5 E5", "C"},
                      CapoCase{"A#7", "Open G", 5, "3 2 1 2 1 1", "A#2 D3 G#3 D4 F4 G#4", "F"}));

// Under any capo, each chord is fingered exactly as the chord that many
// semitones lower without one, pitch for pitch that many semitones higher,
// less the fingerings that would run past the neck's last fret.
TEST_F(ChordsProxyTest, EveryChordUnderACapoIsTheShapeBelowRaised) {
    const auto capoed = std::make_unique<VariationSet>();
    const auto open = std::make_unique<VariationSet>();
    int dropped = 0;
    const auto& catalogue = tunings::catalogue();
    for (std::size_t index = 0; index < catalogue.size(); ++index) {
        const auto& tuning = catalogue[index];
        // Every fret from 1 to 12, each in a few tunings.
        const int capo = static_cast<int>(1 + index % 12);
        ASSERT_TRUE(proxy->setCapo(0));
        ASSERT_TRUE(proxy->updateTuning(std::string(tuning.notes)));
        for (auto root : chords::names()) {
            const std::string shape = chords::shapeNote(root, capo);
            for (auto type : chords::typeKeys()) {
                ASSERT_TRUE(proxy->setCapo(0));
                proxy->variationsInDisplayOrder(shape, type, *open);
                ASSERT_TRUE(proxy->setCapo(capo));
                proxy->variationsInDisplayOrder(root, type, *capoed);
                const std::string what = std::string(root) + std::string(type) + " in " +
                                         std::string(tuning.name) + ", capo " +
                                         std::to_string(capo);
                int kept = 0;
                for (const ChordVariation& v : open->variations()) {
                    int highest = 0;
                    for (int p = 0; p < v.playedStrings(); ++p)
                        highest = std::max(highest, v.frets[p]);
                    if (highest + capo > chords::kLastFret) {
                        ++dropped;
                        continue;
                    }
                    ASSERT_LT(kept, capoed->count) << what;
                    const ChordVariation& w = capoed->records[static_cast<std::size_t>(kept++)];
                    ASSERT_EQ(fretsOf(w), fretsOf(v)) << what;
                    for (int p = 0; p < v.playedStrings(); ++p)
                        ASSERT_EQ(w.pitches[p], v.pitches[p] + capo) << what;
                }
                ASSERT_EQ(kept, capoed->count) << what;
            }
        }
    }
    EXPECT_GT(dropped, 0) << "a capo high up leaves out what runs past the last fret";
}

TEST_F(ChordsProxyTest, ACapoOffTheNeckOrPastTheLastNoteIsRefused) {
    setLogQuiet(true);
    ASSERT_TRUE(proxy->setCapo(4));
    for (int bad : {-1, 13, 100})
        EXPECT_FALSE(proxy->setCapo(bad)) << bad;
    EXPECT_EQ(proxy->capo(), 4);
    EXPECT_EQ(proxy->getTuningDictionary()[5].index, 32) << "E2 sounds as G#2";
    EXPECT_EQ(chords::raisedTokens({"E2", "A#8", "B9"}, 1), std::nullopt);
    EXPECT_EQ(chords::raisedTokens({"E2", "H2"}, 0), std::nullopt);
    EXPECT_EQ(chords::raisedTokens({"E2", "A#8"}, 2), (std::vector<std::string>{"F#2", "C9"}));
    // A new tuning keeps the capo.
    ASSERT_TRUE(proxy->updateTuning("D2&A2&D3&G3&B3&E4"));
    EXPECT_EQ(proxy->tuningExpanded().front(), "D2");
    EXPECT_EQ(proxy->getTuningDictionary()[5].index, 30);
    setLogQuiet(false);
}

TEST(CapoText, SaysTheFretAsAGuitaristDoes) {
    const std::vector<std::pair<int, const char*>> cases = {
        {0, "none"},     {1, "1st fret"},   {2, "2nd fret"},   {3, "3rd fret"},
        {4, "4th fret"}, {11, "11th fret"}, {12, "12th fret"}, {-2, "none"}};
    for (const auto& [capo, text] : cases)
        EXPECT_EQ(chords::capoFretText(capo), text) << capo;
    EXPECT_EQ(chords::shapeNote("C", 1), "B");
    EXPECT_EQ(chords::shapeNote("C#", 12), "C#");
    EXPECT_EQ(chords::shapeNote("Db", 1), "");
}

}  // namespace
}  // namespace zt::test
