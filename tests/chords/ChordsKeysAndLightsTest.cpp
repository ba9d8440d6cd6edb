// The chords screen from a keyboard, and its strings lighting as they are
// heard: the output's clock says when each note starts, the screen follows.
#include <QSignalSpy>

#include "ChordsScreenFixture.h"

namespace zt::test {
namespace {

struct KeysCase {
    const char* name;
    std::vector<int> keys;
    bool used;
    int rootRow;
    const char* label;
    const char* lastCall;  // "" for nothing played
};
void PrintTo(const KeysCase& c, std::ostream* os) {
    *os << c.name;
}

class Keys : public ChordsScreenTest, public ::testing::WithParamInterface<KeysCase> {};

TEST_P(Keys, PlayTheChordOrTurnTheRootWheel) {
    const auto& c = GetParam();
    registerScreen(screen);
    pick(screen, 0, 1);  // C minor
    output.calls.clear();
    for (int key : c.keys)
        EXPECT_EQ(screen.keyPressed(key), c.used) << key;
    EXPECT_EQ(screen.pickerComponent0Row(), c.rootRow);
    EXPECT_EQ(screen.pickerComponent1Row(), 1) << "the type stays";
    EXPECT_EQ(screen.chordName().toStdString(), c.label);
    EXPECT_EQ(output.calls.empty() ? "" : output.calls.back(), c.lastCall);
}

INSTANTIATE_TEST_SUITE_P(
    Chords, Keys,
    ::testing::Values(
        KeysCase{
            "SpacePlaysAtOnce", {Qt::Key_Space}, true, 0, "Cm", "chord x 3 1 0 1 3 after 0.00"},
        KeysCase{"ReturnPlays", {Qt::Key_Return}, true, 0, "Cm", "chord x 3 1 0 1 3 after 0.00"},
        KeysCase{"EnterPlays", {Qt::Key_Enter}, true, 0, "Cm", "chord x 3 1 0 1 3 after 0.00"},
        KeysCase{"ALetterPicksItsRoot", {Qt::Key_A}, true, 9, "Am", "chord x 0 2 2 1 0 after 0.25"},
        KeysCase{"TheSameLetterStepsToItsSharp",
                 {Qt::Key_C},
                 true,
                 1,
                 "C\u266Fm",
                 "chord x 4 2 1 2 0 after 0.25"},
        KeysCase{
            "AndRoundAgain", {Qt::Key_C, Qt::Key_C}, true, 0, "Cm", "chord x 3 1 0 1 3 after 0.25"},
        KeysCase{"GoesRoundTheEnd",
                 {Qt::Key_G, Qt::Key_G, Qt::Key_G},
                 true,
                 7,
                 "Gm",
                 "chord 3 1 0 0 3 3 after 0.25"},
        KeysCase{"NoRootH", {Qt::Key_H}, false, 0, "Cm", ""},
        KeysCase{"DigitsAreNotMine", {Qt::Key_1}, false, 0, "Cm", ""}),
    [](const auto& info) { return std::string(info.param.name); });

// The strings lit at each moment, by number from the 6th, e.g. "5 4".
std::string lit(const ChordsLibrary& screen) {
    std::string out;
    for (int n = kStringCount; n >= 1; --n) {
        if (screen.isLit(n))
            out += (out.empty() ? "" : " ") + std::to_string(n);
    }
    return out;
}

enum class Play { Space, Pick, Strum };

struct LightCase {
    const char* name;
    Play play;
    // (seconds on the output's clock, the strings lit then)
    std::vector<std::pair<double, const char*>> seen;
};
void PrintTo(const LightCase& c, std::ostream* os) {
    *os << c.name;
}

class Lights : public ChordsScreenTest, public ::testing::WithParamInterface<LightCase> {};

TEST_P(Lights, FollowWhatIsHeardAndGoOutAfterAMoment) {
    const auto& c = GetParam();
    registerScreen(screen);
    EXPECT_EQ(shown(screen), "x 3 2 0 1 0");
    if (c.play == Play::Space)
        screen.keyPressed(Qt::Key_Space);
    else if (c.play == Play::Pick)
        screen.selectRow(0, 0);
    else
        drag(screen, kAcrossAll);
    EXPECT_TRUE(screen.lightsFollowing());
    for (std::size_t i = 0; i < c.seen.size(); ++i) {
        const auto& [at, expected] = c.seen[i];
        output.now = at;
        screen.updateLights();
        EXPECT_EQ(lit(screen), expected) << "at " << at << " s";
        // Dark while a note is still to come is not yet the end.
        EXPECT_EQ(screen.lightsFollowing(), i + 1 < c.seen.size()) << "at " << at << " s";
    }
}

// C major, x 3 2 0 1 0: a whole chord sounds the 5th string first and each
// next one 60 ms later; each light lasts 0.3 s; the muted 6th never lights.
INSTANTIATE_TEST_SUITE_P(
    Chords, Lights,
    ::testing::Values(
        LightCase{"WholeChordLowestFirst",
                  Play::Space,
                  {{0.0, "5"}, {0.13, "5 4 3"}, {0.31, "4 3 2 1"}, {0.5, "1"}, {0.6, ""}}},
        LightCase{"PickedChordWaitsForItsSound",
                  Play::Pick,
                  {{0.2, ""}, {0.26, "5"}, {0.5, "5 4 3 2 1"}, {0.86, ""}}},
        LightCase{"StrummedStringsLightAsCrossed",
                  Play::Strum,
                  {{0.0, "5 4 3 2 1"}, {0.29, "5 4 3 2 1"}, {0.3, ""}}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(ChordsScreenTest, LightsToldOnlyOfAChangeAndOutWhenStopped) {
    registerScreen(screen);
    QSignalSpy changes(&screen, &ChordsLibrary::litChanged);
    screen.playCurrentChord();
    screen.updateLights();
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(screen.litStrings().size(), kStringCount);
    EXPECT_TRUE(screen.litStrings()[4].toBool());
    output.stop();
    screen.updateLights();
    EXPECT_EQ(lit(screen), "");
    EXPECT_EQ(changes.count(), 2);
}

}  // namespace
}  // namespace zt::test
