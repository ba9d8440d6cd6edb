// What the screen's controls send to the output, and when a running one is
// handed a change (a start while playing).
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "RecordingOutput.h"
#include "framework/Log.h"
#include "metronome/MetronomeCore.h"

namespace zt {
namespace {

using test::RecordingOutput;

struct Scenario {
    const char* name;
    std::function<void(MetronomeCore&, ManualTickClock&)> act;
    std::vector<std::string> calls;
};

class Controls : public ::testing::TestWithParam<Scenario> {
protected:
    void SetUp() override { setLogQuiet(true); }
    void TearDown() override { setLogQuiet(false); }
};

TEST_P(Controls, SendWhatTheScreenAskedFor) {
    RecordingOutput output;
    ManualTickClock clock;
    MetronomeCore core(output, clock);
    GetParam().act(core, clock);
    EXPECT_EQ(output.calls, GetParam().calls);
}

const std::string kDefault = "start 1-2-4-1-1-0-60";

INSTANTIATE_TEST_SUITE_P(
    Screen, Controls,
    ::testing::Values(Scenario{"StartThenStop",
                               [](auto& m, auto&) {
                                   m.startMetronome();
                                   m.startMetronome();
                                   m.stopMetronome();
                                   m.stopMetronome();
                               },
                               {kDefault, "stop"}},
                      Scenario{"ChangesWhileStoppedOnlyStore",
                               [](auto& m, auto&) {
                                   m.plus();
                                   m.setTimeSig1Value(3);
                                   m.restartMetronome();
                                   m.startMetronome();
                               },
                               {"start 1-3-4-1-1-0-61"}},
                      Scenario{"PlusAndMinusChangeTheRunningOutput",
                               [](auto& m, auto&) {
                                   m.startMetronome();
                                   m.plus();
                                   m.minus();
                               },
                               {kDefault, "start 1-2-4-1-1-0-61", kDefault}},
                      Scenario{"PlusAtTheTopDoesNothing",
                               [](auto& m, auto&) {
                                   m.selectRow(220);
                                   m.startMetronome();
                                   EXPECT_FALSE(m.plus());
                                   EXPECT_EQ(m.tempo(), 240);
                               },
                               {"start 1-2-4-1-1-0-220"}},
                      Scenario{"MinusAtTheBottomStaysAndIsSent",
                               [](auto& m, auto&) {
                                   m.selectRow(0);
                                   m.startMetronome();
                                   m.minus();
                                   EXPECT_EQ(m.tempo(), 20);
                               },
                               {"start 1-2-4-1-1-0-0", "start 1-2-4-1-1-0-0"}},
                      Scenario{"RowOffTheWheelIsRefused",
                               [](auto& m, auto&) {
                                   m.startMetronome();
                                   EXPECT_FALSE(m.selectRow(221));
                                   EXPECT_FALSE(m.setTimeSig1Value(0));
                               },
                               {kDefault}},
                      Scenario{"PackAndAccentWithoutRestart",
                               [](auto& m, auto&) {
                                   m.startMetronome();
                                   m.setCurrentPack(4);
                                   m.setIsFirstBeatNeed(false);
                                   m.setCurrentPack(7);
                               },
                               {kDefault, "pack 4", "accent 0", "pack 1"}},
                      Scenario{"DenominatorEightGoesOnInTriplets",
                               [](auto& m, auto&) {
                                   m.setNotesPerBeat(4);
                                   m.startMetronome();
                                   m.setTimeSig2Value(8);
                               },
                               {"start 1-2-4-4-1-0-60", "start 1-2-8-3-1-1-60"}},
                      Scenario{"PauseAndResume",
                               [](auto& m, auto&) {
                                   m.runMetronome();
                                   m.startMetronome();
                                   m.endMetronome();
                                   EXPECT_TRUE(m.isPaused());
                                   m.runMetronome();
                                   m.runMetronome();
                                   EXPECT_TRUE(m.isPlaying());
                               },
                               {kDefault, "stop", kDefault}},
                      Scenario{"PresetAppliesToTheRunningOutput",
                               [](auto& m, auto&) {
                                   m.startMetronome();
                                   m.setSettingsFromDictionary({});
                                   m.setSettingsFromDictionary({{"BPM", 100}, {"packNumber", 2}});
                                   EXPECT_EQ(m.currentState(), "2-2-4-1-1-0-100");
                               },
                               {kDefault, "start 2-2-4-1-1-0-100"}},
                      Scenario{"TapSetsTheTempoOfTheRunningOutput",
                               [](auto& m, auto& clock) {
                                   m.startMetronome();
                                   EXPECT_FALSE(m.tap());
                                   clock.advance(0.375);
                                   EXPECT_TRUE(m.tap());
                                   EXPECT_EQ(m.tempo(), 160);
                                   EXPECT_TRUE(m.tapTempo().readyForDblClick());
                               },
                               {kDefault, "start 1-2-4-1-1-0-140"}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(Controls, SavedDataIsReadWithoutStarting) {
    RecordingOutput output;
    MetronomeCore core(output);
    core.setSavedData({{"BPM", 60}, {"timeSig1Value", 3}});
    EXPECT_EQ(core.tempo(), 80);
    EXPECT_EQ(core.getCurrentBPM(), 60);
    EXPECT_EQ(valueFor(core.savedData(), "timeSig1Value").toInt(), 3);
    EXPECT_TRUE(output.calls.empty());
}

}  // namespace
}  // namespace zt
