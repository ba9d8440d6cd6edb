// The strings' touch area and the strip's arrows, as a finger and an eye
// meet them: which string a position plays, what a drag across the strings
// sounds, and how the arrows show whether the strip scrolls further.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "chords/ui/StripArrows.h"
#include "chords/ui/TouchView.h"

namespace zt::test {
namespace {

template <class Case>
requires requires(const Case& c) {
    c.name;
}
void PrintTo(const Case& c, std::ostream* os) {
    *os << c.name;
}

struct BandCase {
    const char* name;
    double x;  // already shifted
    int string;
};

class Bands : public ::testing::TestWithParam<BandCase> {};

TEST_P(Bands, APositionBelongsToOneString) {
    EXPECT_EQ(TouchView::bandAt(GetParam().x), GetParam().string);
}

INSTANTIATE_TEST_SUITE_P(
    Strings, Bands,
    ::testing::Values(BandCase{"LeftOfTheSixth", 14.9, 0}, BandCase{"SixthFrom15", 15, 6},
                      BandCase{"SixthTo58", 58, 6}, BandCase{"HalfPointsBelongBelow", 58.9, 6},
                      BandCase{"FifthFrom59", 59, 5}, BandCase{"FifthTo92", 92, 5},
                      BandCase{"Fourth", 93, 4}, BandCase{"FourthTo126", 126.5, 4},
                      BandCase{"Third", 127, 3}, BandCase{"ThirdTo160", 160, 3},
                      BandCase{"Second", 161, 2}, BandCase{"SecondTo194", 194, 2},
                      BandCase{"FirstFrom195", 195, 1}, BandCase{"FirstTo238", 238.7, 1},
                      BandCase{"RightOfTheFirst", 239, 0}, BandCase{"Negative", -40, 0},
                      BandCase{"NotANumber", std::numeric_limits<double>::quiet_NaN(), 0}),
    [](const auto& info) { return std::string(info.param.name); });

using Playable = std::array<bool, kStringCount>;
constexpr Playable kAll{true, true, true, true, true, true};

TEST(TouchView, EachDrawnStringLiesInItsOwnBand) {
    for (int n = 1; n <= 6; ++n)
        EXPECT_EQ(TouchView::bandAt(TouchView::stringX(n) - TouchView::kShift), n) << n;
    EXPECT_EQ(TouchView::bandAt(TouchView::kWidth - TouchView::kShift), 0);
    // Either hand: a finger on a string as drawn plays it, a tap lands on it.
    for (const bool left : {false, true}) {
        for (int n = 1; n <= 6; ++n) {
            TouchView view;
            view.setLeftHanded(left);
            const double x = TouchView::stringX(n, left);
            EXPECT_EQ(view.touchesMoved(x, 1, kAll), n) << n << (left ? " left" : " right");
            EXPECT_EQ(TouchView::stringNear(x, left), n) << n << (left ? " left" : " right");
        }
    }
}

struct TapCase {
    const char* name;
    double x;
    bool leftHanded;
    int string;
};

class Taps : public ::testing::TestWithParam<TapCase> {};

TEST_P(Taps, LandOnTheStringDrawnUnderThem) {
    EXPECT_EQ(TouchView::stringNear(GetParam().x, GetParam().leftHanded), GetParam().string);
}

// Right-handed the 6th is drawn at 43.5 and the 1st at 213.5; left-handed
// the other way round. Each string reaches 17 points either side.
INSTANTIATE_TEST_SUITE_P(
    BothHands, Taps,
    ::testing::Values(TapCase{"RightSixthOnTheLeft", 43.5, false, 6},
                      TapCase{"LeftSixthOnTheRight", 213.5, true, 6},
                      TapCase{"RightFirstOnTheRight", 213.5, false, 1},
                      TapCase{"LeftFirstOnTheLeft", 43.5, true, 1},
                      TapCase{"RightThirdLeftFourth", 145.5, false, 3},
                      TapCase{"LeftFourthRightThird", 145.5, true, 4},
                      TapCase{"RightMidwayGoesToTheLower", 60.5, false, 6},
                      TapCase{"LeftMidwayGoesToTheLower", 196.5, true, 6},
                      TapCase{"RightEdgeOfTheSixth", 26.5, false, 6},
                      TapCase{"RightPastTheSixth", 26.4, false, 0},
                      TapCase{"LeftEdgeOfTheSixth", 230.5, true, 6},
                      TapCase{"LeftPastTheSixth", 230.6, true, 0},
                      TapCase{"LeftPastTheFirst", 26.4, true, 0},
                      TapCase{"NotANumber", std::numeric_limits<double>::quiet_NaN(), true, 0}),
    [](const auto& info) { return std::string(info.param.name); });
// A minor: the 6th string is muted.
constexpr Playable kAMinor{true, true, true, true, true, false};

struct DragCase {
    const char* name;
    Playable canPlay;
    std::vector<double> xs;  // positions in the view, one move each
    int touches;
    std::vector<int> played;
    bool leftHanded = false;
};

class Drags : public ::testing::TestWithParam<DragCase> {};

TEST_P(Drags, PlayEachStringOnceAsItIsCrossed) {
    const auto& c = GetParam();
    TouchView view;
    view.setLeftHanded(c.leftHanded);
    std::vector<int> played;
    for (double x : c.xs) {
        if (const int string = view.touchesMoved(x, c.touches, c.canPlay))
            played.push_back(string);
    }
    EXPECT_EQ(played, c.played);
}

INSTANTIATE_TEST_SUITE_P(
    Strokes, Drags,
    ::testing::Values(
        DragCase{"DownAcrossAll",
                 kAll,
                 {5, 30, 45, 60, 80, 100, 115, 130, 150, 170, 190, 200, 215, 235, 250},
                 1,
                 {6, 5, 4, 3, 2, 1}},
        DragCase{"TheMutedStringStaysSilent",
                 kAMinor,
                 {5, 30, 45, 80, 115, 150, 180, 215, 250},
                 1,
                 {5, 4, 3, 2, 1}},
        DragCase{"UpAcrossAll", kAll, {250, 215, 180, 150, 115, 80, 45, 5}, 1, {1, 2, 3, 4, 5, 6}},
        DragCase{"WobblingOnAStringPlaysItOnce", kAll, {80, 82, 78, 85, 80}, 1, {5}},
        DragCase{"BackOverTheStringBeforePlaysItAgain", kAll, {80, 115, 80, 115}, 1, {5, 4, 5, 4}},
        DragCase{"LeavingTheStringsUnlocksThem", kAll, {215, 250, 215, 5, 45}, 1, {1, 1, 6}},
        DragCase{"TheShiftMovesTheBandsRight", kAll, {16.9, 17, 60.9, 61}, 1, {6, 5}},
        DragCase{"TwoFingersDoNotStrum", kAll, {45, 80, 115}, 2, {}},
        // Left-handed the low string is on the right: a strum down goes
        // right to left, and the bands and their shift are mirrored.
        DragCase{"LeftHandedDownFromTheRight",
                 kAll,
                 {252, 227, 212, 197, 177, 157, 142, 127, 107, 87, 67, 57, 42, 22, 7},
                 1,
                 {6, 5, 4, 3, 2, 1},
                 true},
        DragCase{"LeftHandedUpFromTheLeft",
                 kAll,
                 {7, 42, 77, 107, 142, 177, 212, 252},
                 1,
                 {1, 2, 3, 4, 5, 6},
                 true},
        DragCase{"LeftHandedMutedSixthOnTheRight", kAMinor, {252, 212, 177}, 1, {5}, true},
        DragCase{
            "LeftHandedShiftMovesTheBandsLeft", kAll, {240.1, 240, 196.1, 196}, 1, {6, 5}, true}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(TouchView, AMutedBandNeitherPlaysNorUnlocks) {
    TouchView view;
    EXPECT_EQ(view.touchesMoved(80, 1, kAMinor), 5);
    EXPECT_EQ(view.touchesMoved(45, 1, kAMinor), 0);
    EXPECT_TRUE(view.isLocked(5));
    EXPECT_EQ(view.touchesMoved(80, 1, kAMinor), 0) << "still the last string played";
}

struct ArrowCase {
    const char* name;
    double y, contentHeight, viewHeight;
    double upper, lower;
};

class Arrows : public ::testing::TestWithParam<ArrowCase> {};

TEST_P(Arrows, ShowWhetherTheStripScrollsFurther) {
    const auto& c = GetParam();
    const StripArrows arrows = StripArrows::forScroll(c.y, c.contentHeight, c.viewHeight);
    EXPECT_DOUBLE_EQ(arrows.upper, c.upper);
    EXPECT_DOUBLE_EQ(arrows.lower, c.lower);
}

INSTANTIATE_TEST_SUITE_P(Scroll, Arrows,
                         ::testing::Values(ArrowCase{"EverythingFits", 0, 200, 360, 0.2, 0.2},
                                           ArrowCase{"ExactlyFits", 0, 360, 360, 0.2, 0.2},
                                           ArrowCase{"Empty", 0, 0, 360, 0.2, 0.2},
                                           ArrowCase{"AtTheTop", 0, 1000, 360, 0.3, 1.0},
                                           ArrowCase{"InTheMiddle", 100, 1000, 360, 1.0, 1.0},
                                           ArrowCase{"AtTheBottom", 640, 1000, 360, 1.0, 0.3},
                                           ArrowCase{"PastTheBottom", 700, 1000, 360, 1.0, 0.3},
                                           ArrowCase{"BouncedAboveTheTop", -20, 1000, 360, 0.3,
                                                     1.0}),
                         [](const auto& info) { return std::string(info.param.name); });

struct PageCase {
    const char* name;
    int direction;
    double y, contentHeight, viewHeight, item;
    double target;
};

class Pages : public ::testing::TestWithParam<PageCase> {};

TEST_P(Pages, TurnByWholeDiagramsWithinTheStrip) {
    const auto& c = GetParam();
    EXPECT_DOUBLE_EQ(
        StripArrows::pageTarget(c.direction, c.y, c.contentHeight, c.viewHeight, c.item), c.target);
}

// 20 diagrams of 85 in a strip showing three.
INSTANTIATE_TEST_SUITE_P(
    Strip, Pages,
    ::testing::Values(PageCase{"FirstPageDown", 1, 0, 1700, 255, 85, 255},
                      PageCase{"NextPageDown", 1, 255, 1700, 255, 85, 510},
                      PageCase{"LastPageEndsOnTheLastDiagram", 1, 1360, 1700, 255, 85, 1445},
                      PageCase{"UpFromTheEnd", -1, 1445, 1700, 255, 85, 1190},
                      PageCase{"FromADragThatStoppedMidway", 1, 120, 1700, 255, 85, 340},
                      PageCase{"UpPastTheTop", -1, 100, 1700, 255, 85, 0},
                      PageCase{"AViewAHairShortStillHoldsThree", 1, 0, 1700, 254.9999999, 85, 255},
                      PageCase{"NothingToScroll", 1, 0, 170, 255, 85, 0},
                      PageCase{"ShorterThanADiagram", 1, 0, 1700, 60, 85, 85}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace zt::test
