// How a raw frequency becomes what the tuner shows: smoothing, the nearest
// note and the cents.
#include <gtest/gtest.h>

#include <vector>

#include "tuners/NoteChoice.h"

namespace zt {
namespace {

TEST(NoteChoice, SmoothingSequences) {
    const struct {
        const char* name;
        std::vector<float> readings;
        std::vector<float> reported;
    } rows[] = {
        {"a small step is averaged", {440.0f, 440.3f}, {440.0f, 440.15f}},
        {"under 0.05 Hz is taken", {440.0f, 440.02f}, {440.0f, 440.02f}},
        {"over 0.5 Hz is taken", {440.0f, 441.0f}, {440.0f, 441.0f}},
        {"exactly 0.5 Hz is averaged", {440.0f, 440.5f}, {440.0f, 440.25f}},
        {"no pitch and nothing captured hold the last",
         {-1.0f, 0.0f, 330.0f, -1.0f, 0.0f},
         {-1.0f, -1.0f, 330.0f, 330.0f, 330.0f}},
        {"no microphone passes through", {440.0f, -2.0f, 440.1f}, {440.0f, -2.0f, 440.05f}},
    };
    for (const auto& row : rows) {
        float current = -1.0f;
        for (std::size_t i = 0; i < row.readings.size(); ++i) {
            EXPECT_FLOAT_EQ(smoothFrequency(row.readings[i], current), row.reported[i])
                << row.name << ", reading " << i;
        }
    }
}

TEST(NoteChoice, NearestNoteByHertzTiesToTheLower) {
    NoteDescription g{"G", 392.0}, a{"A", 440.0}, aSharp{"A#", 466.1638};
    std::vector<NoteDescription*> candidates{&g, &a, &aSharp};
    const struct {
        double hertz;
        const NoteDescription* note;
    } rows[] = {
        {453.0, &a}, {453.2, &aSharp},  {416.0, &g}, {416.1, &a},         {10.0, &g},
        {-1.0, &g},  {9000.0, &aSharp}, {440.0, &a}, {466.1638, &aSharp},
    };
    for (const auto& row : rows)
        EXPECT_EQ(nearestNote(candidates, row.hertz), row.note) << row.hertz;
    EXPECT_EQ(nearestNote({}, 440.0), nullptr);
}

TEST(NoteChoice, CentsRoundedAwayFromZeroClassicOnWholeTenthsOfAHertz) {
    const struct {
        double reference, measured, classic, precise;
    } rows[] = {
        {440.0, 440.0, 0.0, 0.0},     {440.0, 440.09, 0.0, 0.4},       {440.0, 445.0, 19.6, 19.6},
        {440.0, 435.0, -19.8, -19.8}, {440.0, 441.0, 3.9, 3.9},        {82.4069, 82.5, 2.1, 2.0},
        {110.0, 111.278, 18.8, 20.0}, {110.0, 107.1776, -46.3, -45.0}, {110.0, 109.999, -1.6, 0.0},
        {110.0, 110.001, 0.0, 0.0},
    };
    for (const auto& row : rows) {
        EXPECT_DOUBLE_EQ(displayedCents(row.reference, row.measured), row.classic) << row.measured;
        EXPECT_DOUBLE_EQ(displayedCents(row.reference, row.measured, false), row.precise)
            << row.measured;
    }
}

TEST(NoteChoice, SteadyCentsKeepTheTenthShownWhileTheExactValueStaysNear) {
    const struct {
        double exact, shown, steady;
    } rows[] = {
        {0.0866, 0.1, 0.1}, {0.0787, 0.1, 0.1},  {0.0315, 0.1, 0.1}, {0.0199, 0.1, 0.0},
        {0.04, 0.0, 0.0},   {0.07, 0.0, 0.0},    {0.081, 0.0, 0.1},  {-0.06, 0.0, 0.0},
        {-0.09, 0.0, -0.1}, {20.03, 20.1, 20.1}, {20.3, 20.1, 20.3}, {-45.0, 12.0, -45.0},
    };
    for (const auto& row : rows)
        EXPECT_DOUBLE_EQ(steadyCents(row.exact, row.shown), row.steady) << row.exact;
}

}  // namespace
}  // namespace zt
