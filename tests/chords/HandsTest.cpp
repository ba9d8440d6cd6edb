// The chords screen for either hand: where the strings are drawn, what a
// finger strums or taps there, the strip, and the whole chord, which still
// sounds from the low string (on the right for a left-handed player).
#include <QtCore/qnamespace.h>

#include "ChordsScreenFixture.h"
#include "chords/ui/ChordsLibrarySettings.h"
#include "chords/ui/ChordsLibrarySettingsMediator.h"

namespace zt::test {
namespace {

enum class Hand { Right, LeftSaved, LeftFlipped };

struct HandCase {
    const char* name;
    Hand hand;
    std::vector<double> stringXs;   // strings 1 to 6
    std::vector<double> lowToHigh;  // a drag across the strings from the 6th
    std::vector<double> taps;       // the nut over the 6th, frets 3, 2, 1 on strings 5, 4, 2
    QVariantList firstDiagram;      // its frets from the left column
};
void PrintTo(const HandCase& c, std::ostream* os) {
    *os << c.name;
}

class Hands : public ChordsScreenTest, public ::testing::WithParamInterface<HandCase> {
protected:
    Dictionary commonSection() const {
        return valueFor(readDictionary(statePath()), "CommonSettings").dictionary();
    }
    ChordsLibrarySettings settingsPage{&screen};
};

TEST_P(Hands, MirrorTheNeckTheStripAndTheStrumsButNotTheSound) {
    const auto& c = GetParam();
    const bool left = c.hand != Hand::Right;
    // As read from the saved state at start-up, or flipped on the settings page.
    settings->setLeftHanded(c.hand == Hand::LeftSaved);
    registerScreen(screen);
    facade().registerMediator(makeMediator<ChordsLibrarySettingsMediator>(&settingsPage));
    settingsPage.viewWillAppear();
    EXPECT_EQ(settingsPage.leftHanded(), c.hand == Hand::LeftSaved);
    if (c.hand == Hand::LeftFlipped) {
        settingsPage.flipLeftHanded();
        EXPECT_EQ(valueFor(commonSection(), "LeftHanded"), Value(true)) << "saved at once";
        EXPECT_EQ(valueFor(commonSection(), "Tuning"), Value(0)) << "beside the tuning";
    }
    EXPECT_EQ(screen.leftHanded(), left);
    EXPECT_EQ(settingsPage.leftHanded(), left);

    QVariantList xs;
    for (double x : c.stringXs)
        xs << x;
    EXPECT_EQ(screen.stringXs(), xs);
    for (const QVariant& s : screen.neckStrings()) {
        const QVariantMap string = s.toMap();
        const int n = string["string"].toInt();
        EXPECT_DOUBLE_EQ(string["x"].toDouble(), c.stringXs[static_cast<std::size_t>(n - 1)]);
        EXPECT_EQ(screen.stringAt(string["x"].toDouble()), n) << "a tap lands where it is drawn";
    }
    EXPECT_EQ(screen.diagrams()[0].toMap()["frets"].toList(), c.firstDiagram);

    drag(screen, c.lowToHigh);
    EXPECT_EQ(output.calls,
              (std::vector<std::string>{"string 5 index 3", "string 4 index 2", "string 3 index 0",
                                        "string 2 index 1", "string 1 index 0"}));
    output.starts.clear();
    screen.keyPressed(Qt::Key_Space);
    std::vector<int> order;
    for (const auto& [string, at] : output.starts)
        order.push_back(string);
    EXPECT_EQ(order, (std::vector<int>{5, 4, 3, 2, 1})) << "the whole chord starts low";

    ChordsFinder& finder = *screen.finder();
    finder.setActive(true);
    finder.tapNut(screen.stringAt(c.taps[0]));
    finder.tapFret(screen.stringAt(c.taps[1]), 3);
    finder.tapFret(screen.stringAt(c.taps[2]), 2);
    finder.tapFret(screen.stringAt(c.taps[3]), 1);
    EXPECT_EQ(finder.heldText().toStdString(), "x 3 2 0 1 0  \u00B7  C E G C E");
    EXPECT_DOUBLE_EQ(screen.neckStrings()[0].toMap()["x"].toDouble(), c.stringXs[5])
        << "the finder's neck is mirrored too";
}

INSTANTIATE_TEST_SUITE_P(Players, Hands,
                         ::testing::Values(HandCase{"RightHanded",
                                                    Hand::Right,
                                                    {213.5, 179.5, 145.5, 111.5, 77.5, 43.5},
                                                    kAcrossAll,
                                                    {43.5, 77.5, 111.5, 179.5},
                                                    {-1, 3, 2, 0, 1, 0}},
                                           HandCase{"LeftHandedFromTheSavedState",
                                                    Hand::LeftSaved,
                                                    {43.5, 77.5, 111.5, 145.5, 179.5, 213.5},
                                                    {252, 227, 212, 177, 142, 107, 77, 42, 7},
                                                    {213.5, 179.5, 145.5, 77.5},
                                                    {0, 1, 0, 2, 3, -1}},
                                           HandCase{"LeftHandedFlippedInTheSettings",
                                                    Hand::LeftFlipped,
                                                    {43.5, 77.5, 111.5, 145.5, 179.5, 213.5},
                                                    {252, 227, 212, 177, 142, 107, 77, 42, 7},
                                                    {213.5, 179.5, 145.5, 77.5},
                                                    {0, 1, 0, 2, 3, -1}}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(ChordsScreenTest, FlippingBackDrawsTheNeckAsBeforeAndKeepsTheFingering) {
    registerScreen(screen);
    pick(screen, 9, 1);
    screen.showVariation(2);
    const QVariantList before = screen.neckStrings();
    screen.setLeftHanded(true);
    EXPECT_NE(screen.neckStrings(), before);
    EXPECT_EQ(screen.currentVariationsIndex(), 2);
    screen.setLeftHanded(false);
    EXPECT_EQ(screen.neckStrings(), before);
}

}  // namespace
}  // namespace zt::test
