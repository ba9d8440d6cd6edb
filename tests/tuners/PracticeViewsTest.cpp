// The chromatic tuner's practice views without a screen: the strobe band's
// drift, the pitch history's lines, and the pitch pipe's choice of string and
// speed.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "RecordingToneOutput.h"
#include "tuners/PitchTrace.h"
#include "tuners/ReferenceTone.h"
#include "tuners/StrobeBand.h"

namespace zt {
namespace {

double centsBetween(double frequency, double reference) {
    return 1200.0 * std::log2(frequency / reference);
}

// A reading held for `seconds`, drawn at `fps` frames a second: the periods
// the band moves, as it shows them frame by frame.
double drift(double cents, double seconds, double fps) {
    StrobeBand band;
    band.advance(0.0);
    band.reading(cents, 0.0);
    const int frames = static_cast<int>(std::lround(seconds * fps));
    for (int i = 1; i <= frames; ++i)
        band.advance(i / fps);
    return band.travelled();
}

struct DriftCase {
    const char* name;
    double frequency;
    double reference;
    double periodsPerSecond;  // worked out by hand: 0.05 a cent, 0 within 0.1
};

class StrobeDrift : public ::testing::TestWithParam<DriftCase> {};

TEST_P(StrobeDrift, MovesByTheCentsOfAKnownDetuning) {
    const DriftCase& c = GetParam();
    const double cents = centsBetween(c.frequency, c.reference);
    for (double fps : {60.0, 144.0, 23.0}) {
        SCOPED_TRACE(fps);
        EXPECT_NEAR(drift(cents, 4.0, fps) / 4.0, c.periodsPerSecond, 1e-6);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Detunings, StrobeDrift,
    ::testing::Values(
        DriftCase{"A4_441_sharp", 441.0, 440.0, 0.05 * 3.930158},
        DriftCase{"A4_439_flat", 439.0, 440.0, -0.05 * 3.939100},
        DriftCase{"A2_plus_20_cents", 110.0 * std::exp2(20.0 / 1200), 110.0, 0.05 * 20.0},
        DriftCase{"E2_minus_45_cents", 82.4069 * std::exp2(-45.0 / 1200), 82.4069, -0.05 * 45.0},
        DriftCase{"just_over_a_tenth", 440.0 * std::exp2(0.11 / 1200), 440.0, 0.05 * 0.11},
        DriftCase{"under_a_tenth_sharp", 440.0 * std::exp2(0.09 / 1200), 440.0, 0},
        DriftCase{"under_a_tenth_flat", 440.0 * std::exp2(-0.09 / 1200), 440.0, 0},
        DriftCase{"in_tune", 440.0, 440.0, 0.0}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(StrobeBand, ANewReadingChangesTheSpeedNotThePlace) {
    StrobeBand band;
    band.advance(0.0);
    band.reading(30.0, 0.0);
    for (int i = 1; i <= 30; ++i)
        band.advance(i / 60.0);
    const double at = 0.5;
    const double before = band.advance(at);
    const double shownBefore = band.shownCents(at);
    band.reading(-30.0, at);
    EXPECT_DOUBLE_EQ(band.phase(), before);
    EXPECT_DOUBLE_EQ(band.shownCents(at), shownBefore);
    // The shown deviation glides to the new reading over one poll, frame by
    // frame, rather than turning round at once.
    double last = shownBefore;
    for (int i = 1; i <= 6; ++i) {
        const double now = at + i / 120.0;
        band.advance(now);
        const double shown = band.shownCents(now);
        EXPECT_LT(shown, last);
        EXPECT_LE(last - shown, 60.0 / (StrobeBand::kGlideSeconds * 120.0) + 1e-9);
        last = shown;
    }
    EXPECT_DOUBLE_EQ(band.shownCents(at + StrobeBand::kGlideSeconds), -30.0);
}

TEST(StrobeBand, SilenceStopsItAndTheNextNoteStartsAtItsOwnSpeed) {
    StrobeBand band;
    band.advance(0.0);
    band.reading(10.0, 0.0);
    band.advance(1.0);
    band.silence(1.0);
    const double stopped = band.travelled();
    band.advance(3.0);
    EXPECT_DOUBLE_EQ(band.travelled(), stopped);
    band.reading(-20.0, 3.0);
    band.advance(3.01);
    EXPECT_NEAR(band.travelled() - stopped, StrobeBand::speedFor(-20.0) * 0.01, 1e-12);
    // Frames that come late or twice move nothing.
    const double now = band.travelled();
    band.advance(2.0);
    band.advance(3.01);
    EXPECT_DOUBLE_EQ(band.travelled(), now);
}

struct StripeCase {
    double phase;
    double factor;
    std::vector<StrobeBand::Stripe> expected;  // width 50, period 20
};

class StrobeStripes : public ::testing::TestWithParam<StripeCase> {};

TEST_P(StrobeStripes, DarkHalvesOfEachPeriodClippedToTheBand) {
    std::vector<StrobeBand::Stripe> out{{1, 2}};
    StrobeBand::stripes(GetParam().phase, GetParam().factor, 50.0f, 20.0f, out);
    ASSERT_EQ(out.size(), GetParam().expected.size());
    for (std::size_t i = 0; i < out.size(); ++i) {
        EXPECT_FLOAT_EQ(out[i].left, GetParam().expected[i].left) << i;
        EXPECT_FLOAT_EQ(out[i].right, GetParam().expected[i].right) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Phases, StrobeStripes,
                         ::testing::Values(StripeCase{0.0, 1.0, {{0, 10}, {20, 30}, {40, 50}}},
                                           StripeCase{0.25, 1.0, {{5, 15}, {25, 35}, {45, 50}}},
                                           StripeCase{0.75, 1.0, {{0, 5}, {15, 25}, {35, 45}}},
                                           // Twice as fast: a quarter turn of the band is half of
                                           // this row's period.
                                           StripeCase{0.25, 2.0, {{10, 20}, {30, 40}}},
                                           StripeCase{-0.25, 1.0, {{0, 5}, {15, 25}, {35, 45}}}),
                         [](const auto& info) {
                             return "phase_case_" + std::to_string(info.index);
                         });

// Readings 20 a second; "." is a moment without pitch, a letter a note.
struct TraceCase {
    const char* name;
    const char* notes;
    double now;
    std::size_t pieces;
};

class PitchTraceLines : public ::testing::TestWithParam<TraceCase> {};

TEST_P(PitchTraceLines, GapsAndNewNotesBreakTheLine) {
    PitchTrace trace;
    const std::string notes = GetParam().notes;
    for (std::size_t i = 0; i < notes.size(); ++i) {
        const double t = 0.05 * static_cast<double>(i);
        if (notes[i] == '.')
            trace.gap(t);
        else
            trace.add(t, 3.0, notes[i]);
    }
    std::vector<PitchTrace::Point> out;
    trace.lines(GetParam().now, 200.0f, 100.0f, out);
    EXPECT_EQ(out.size(), 2 * GetParam().pieces);
}

INSTANTIATE_TEST_SUITE_P(Readings, PitchTraceLines,
                         ::testing::Values(TraceCase{"one_note", "AAAA", 1.0, 3},
                                           TraceCase{"silence_between", "AA.AA", 1.0, 2},
                                           TraceCase{"new_note", "AAABB", 1.0, 3},
                                           TraceCase{"lone_readings_show", "A.B.A", 1.0, 3},
                                           TraceCase{"only_silence", "....", 1.0, 0},
                                           TraceCase{"not_yet_read", "AAAA", 0.1, 2},
                                           // At 10.12 s only the piece from 0.10 s to 0.15 s still
                                           // crosses into the window.
                                           TraceCase{"older_than_the_window", "AAAA", 10.12, 1},
                                           TraceCase{"all_gone", "AAAA", 10.2, 0}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(PitchTrace, ALongPauseBreaksTheLineAndTheRingKeepsTheNewest) {
    PitchTrace trace;
    trace.add(0.0, 0.0, 1);
    trace.add(0.5, 0.0, 1);
    std::vector<PitchTrace::Point> out;
    trace.lines(1.0, 200.0f, 100.0f, out);
    EXPECT_EQ(out.size(), 4u);
    trace.add(0.4, 0.0, 1);
    EXPECT_EQ(trace.size(), 2u);

    for (std::size_t i = 0; i < PitchTrace::kCapacity + 10; ++i)
        trace.add(1.0 + 0.01 * static_cast<double>(i), 0.0, 1);
    EXPECT_EQ(trace.size(), PitchTrace::kCapacity);
    // 2 + kCapacity + 10 readings: the oldest 12 made room.
    EXPECT_DOUBLE_EQ(trace.at(0).time, 1.0 + 0.01 * 10);
}

TEST(PitchTrace, CentsRunFromTheTopToTheBottomClamped) {
    const std::pair<double, float> rows[] = {{50.0, 0.0f}, {0.0, 50.0f},  {-50.0, 100.0f},
                                             {5.0, 45.0f}, {120.0, 0.0f}, {-999.0, 100.0f}};
    for (auto [cents, y] : rows)
        EXPECT_FLOAT_EQ(PitchTrace::yFor(cents, 100.0f), y) << cents;
}

struct ToneCase {
    double frequency;
    int string;
    double speed;
};

class ReferenceToneChoice : public ::testing::TestWithParam<ToneCase> {};

TEST_P(ReferenceToneChoice, NearestRecordedStringAtTheExactSpeed) {
    const ReferenceTone::Choice c = ReferenceTone::choose(GetParam().frequency);
    EXPECT_EQ(c.string, GetParam().string);
    EXPECT_NEAR(c.speed, GetParam().speed, 1e-6);
}

INSTANTIATE_TEST_SUITE_P(Notes, ReferenceToneChoice,
                         ::testing::Values(ToneCase{110.0, 5, 1.0},
                                           ToneCase{443.0, 1, 443.0 / 329.627557},
                                           ToneCase{73.416192, 6, 0.890899},   // D2
                                           ToneCase{164.813778, 4, 1.122462},  // E3
                                           ToneCase{30.0, 6, 30.0 / 82.406889},
                                           ToneCase{0.0, 0, 1.0}, ToneCase{-1.0, 0, 1.0}),
                         [](const auto& info) { return "note_" + std::to_string(info.index); });

TEST(ReferenceTone, TouchingTheSoundingNoteAgainStopsIt) {
    test::RecordingToneOutput out;
    ReferenceTone tone;
    tone.setOutput(&out);
    EXPECT_NEAR(ReferenceTone::frequencyOf(ReferenceTone::kA4, 443.0), 443.0, 1e-9);
    EXPECT_TRUE(tone.toggle(3, 33, 440.0));  // A2
    EXPECT_EQ(tone.slot(), 3);
    EXPECT_FALSE(tone.release());
    EXPECT_TRUE(tone.toggle(0, 28, 440.0));  // E2 cuts A2
    EXPECT_FALSE(tone.toggle(0, 28, 440.0));
    EXPECT_FALSE(tone.sounding());
    EXPECT_TRUE(tone.release());
    const std::vector<std::string> expected{"play 5 x1.000000 loop", "stop 5",
                                            "play 6 x1.000000 loop", "stop 6"};
    EXPECT_EQ(out.calls, expected);
}

}  // namespace
}  // namespace zt
