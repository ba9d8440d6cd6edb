// Saved numbers are read back at both ends of their ranges and fall back to
// their defaults one step outside, key by key.
#include <gtest/gtest.h>

#include <cmath>

#include "framework/Log.h"
#include "state/StateKeys.h"

using namespace zt;

TEST(SavedKeyRanges, BothEndsReadBackAndOneStepOutsideFallsBack) {
    namespace s = state;
    const struct {
        const s::IntKey& key;
        int fallback, min, max;
    } rows[] = {
        {s::metronome::kPackNumber, 1, 1, 5},   {s::metronome::kTimeSig1Value, 2, 1, 16},
        {s::metronome::kNotesPerBeat, 1, 1, 6}, {s::metronome::kBPM, 60, 0, 220},
        {s::common::kTuning, 0, 0, 52},         {s::kSelectedViewController, 0, 0, 3},
        {s::chromatic::kBaseIndex, 9, 0, 11},   {s::metronome::kTimeSig2Value, 4, 4, 8},
        {s::chromatic::kTaper, 0, 0, 4},        {s::chromatic::kBaseOctave, 4, 0, 9},
        {s::chromatic::kTreshold, 10, 0, 100},
    };
    setLogQuiet(true);
    for (const auto& r : rows) {
        const char* name = r.key.name;
        EXPECT_EQ(s::read(Dictionary{}, r.key), r.fallback) << name;
        EXPECT_EQ(s::read(Dictionary{{name, r.min}}, r.key), r.min) << name;
        EXPECT_EQ(s::read(Dictionary{{name, r.max}}, r.key), r.max) << name;
        EXPECT_EQ(s::read(Dictionary{{name, r.min - 1}}, r.key), r.fallback) << name;
        EXPECT_EQ(s::read(Dictionary{{name, r.max + 1}}, r.key), r.fallback) << name;
    }
    // The calibration: any frequency from 1 Hz up; below it, or not a
    // finite number, A4 at 440 Hz.
    const auto& base = s::chromatic::kBaseFrequency;
    EXPECT_EQ(s::read(Dictionary{{base.name, 1.0}}, base), 1.0);
    EXPECT_EQ(s::read(Dictionary{{base.name, 1e300}}, base), 1e300);
    const double invalids[] = {0.999, 0.0, -440.0, HUGE_VAL, NAN};
    for (const double invalid : invalids)
        EXPECT_EQ(s::read(Dictionary{{base.name, invalid}}, base), 440.0) << invalid;
    setLogQuiet(false);
}
