// The notes a shape's strings play in any tuning, the whole-chord schedule,
// and the strum engine rendering them to the sample.
//
// Synthetic recordings make the output self-describing: the recording of
// string n is a short ramp starting at n / 10, so an onset's frame says when
// a string started and its value which string it was.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <numbers>

#include "ChordTesting.h"
#include "chords/StrumEngine.h"
#include "sound/SoundTesting.h"

namespace zt::test {
namespace {

constexpr int kRate = 44100;
constexpr std::int64_t kSpacing = 2646;  // 60 ms at 44100 Hz

struct NotesRow {
    const char* tuning;
    const char* root;
    const char* type;
    const char* frets;
    std::array<int, 6> indexes;  // 6th string to 1st; 99 muted
};

TEST(StringNotes, EveryStringPlaysItsRecordingAtTheShapesRealPitch) {
    const std::vector<NotesRow> rows = {
        {"Standard", "A", "m", "x 0 2 2 1 0", {99, 0, 2, 2, 1, 0}},
        {"Standard", "C", "", "x 3 2 0 1 0", {99, 3, 2, 0, 1, 0}},
        // Tuned down, the open 6th string is D2, two below the recorded E2.
        {"Drop D", "D", "", "0 0 0 2 3 2", {-2, 0, 0, 2, 3, 2}},
        // D2 G2 D3 G3 B3 D4 against E2 A2 D3 G3 B3 E4.
        {"Open G", "G", "", "0 0 0 0 0 0", {-2, -2, 0, 0, 0, -2}},
        // B1 E2 A2 D3 F#3 B3: every string five below standard.
        {"Baritone", "E", "m", "x 0 2 2 1 0", {99, -5, -3, -3, -4, -5}},
    };
    ChordLibrary library;
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.tuning) + " " + row.root + row.type);
        useTuning(library, row.tuning);
        const VariationSet set = library.getVariations(row.root, row.type);
        const int at = find(set, row.frets);
        ASSERT_GE(at, 0);
        const StringNotes notes = stringNotes(set.records[at]);
        for (int n = 6; n >= 1; --n) {
            const int want = row.indexes[static_cast<std::size_t>(6 - n)];
            EXPECT_EQ(notes.canPlay[n - 1], want != 99) << "string " << n;
            if (want != 99) {
                EXPECT_EQ(notes.indexesOfNotes[n - 1], want) << "string " << n;
            }
        }
    }
}

TEST(StrumSchedule, PlayableStringsFromTheLowestSixtyMillisecondsApart) {
    StringNotes am;
    am.canPlay = {true, true, true, true, true, false};
    am.indexesOfNotes = {0, 1, 2, 2, 0, 0};
    const StrumSchedule s = wholeChord(am, kRate, 100);
    ASSERT_EQ(s.count, 5);
    for (int i = 0; i < s.count; ++i) {
        EXPECT_EQ(s.notes[i].string, 5 - i);
        EXPECT_EQ(s.notes[i].index, am.indexesOfNotes[4 - i]);
        EXPECT_EQ(s.notes[i].offset, 100 + i * kSpacing);
    }
    EXPECT_EQ(singleString(am, 6).count, 0) << "a muted string is silent";
    EXPECT_EQ(singleString(am, 7).count, 0);
    EXPECT_EQ(singleString(am, 2).notes[0].index, 1);
}

// Recordings whose sample i of string n is n / 10 - i / 10000: 64 samples.
struct Ramps {
    Ramps() {
        for (int n = 1; n <= 6; ++n) {
            for (int i = 0; i < 64; ++i)
                samples[n - 1].push_back(n / 10.0f - i / 10000.0f);
            recordings[n - 1] = samples[n - 1];
        }
    }
    std::array<std::vector<float>, 6> samples;
    StrumEngine::Recordings recordings;
};

struct Onset {
    std::int64_t frame;
    int string;
};

// Renders `frames` from stream frame `from` in blocks of `block` and
// returns every onset (a non-zero sample after a zero one).
std::vector<Onset> onsets(StrumEngine& engine, std::int64_t from, std::int64_t frames, int block) {
    std::vector<float> out(static_cast<std::size_t>(block));
    std::vector<Onset> found;
    float previous = 0.0f;
    for (std::int64_t f = from; f < from + frames; f += block) {
        engine.render(out.data(), block, f);
        for (int i = 0; i < block; ++i) {
            if (previous == 0.0f && out[i] != 0.0f)
                found.push_back(
                    {f + i, int(std::lround(out[i] / (StrumEngine::kStringGain / 10)))});
            previous = out[i];
        }
    }
    return found;
}

TEST(StrumEngine, AStrumStartsWithTheBlockThatTakesItAndKeepsItsSpacingToTheSample) {
    for (int block : {256, 100, 1, 4096}) {
        SCOPED_TRACE("block " + std::to_string(block));
        Ramps ramps;
        StrumEngine engine(kRate, ramps.recordings);
        StringNotes all;
        all.canPlay.fill(true);
        ASSERT_TRUE(engine.play(wholeChord(all, kRate)));
        EXPECT_TRUE(engine.hasQueued());
        const std::int64_t start = 5000 * block;  // the stream clock need not start at 0
        const auto found = onsets(engine, start, 8 * kSpacing, block);
        ASSERT_EQ(found.size(), 6u);
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(found[i].frame, start + i * kSpacing) << i;
            EXPECT_EQ(found[i].string, 6 - i) << i;
            EXPECT_EQ(engine.startedAt(6 - i), found[i].frame) << "reported where it is heard";
        }
        EXPECT_FALSE(engine.hasQueued());
        EXPECT_EQ(engine.lastScheduledStart(), start + 5 * kSpacing);
        EXPECT_TRUE(engine.isSilent());
    }
}

TEST(StrumEngine, ANewNoteCutsItsStringOnlyAndStopSilencesAll) {
    // Falling ramps, so that a note starting over shows in the output.
    std::vector<float> ramp(10000);
    for (std::size_t i = 0; i < ramp.size(); ++i)
        ramp[i] = 1.0f - float(i) / 20000.0f;
    StrumEngine::Recordings recordings;
    recordings.fill(ramp);
    StrumEngine engine(kRate, recordings);
    const float gain = StrumEngine::kStringGain;
    std::vector<float> out(256);

    StrumSchedule two;
    two.notes[0] = {1, 0, 0};
    two.notes[1] = {2, 0, 0};
    two.count = 2;
    engine.play(two);
    engine.render(out.data(), 256, 0);
    EXPECT_NEAR(out[100], 2 * gain * ramp[100], 1e-6);

    // String 1 again, 10 frames into the next block: it starts over there,
    // while string 2 rings on.
    StrumSchedule again;
    again.notes[0] = {1, 0, 10};
    again.count = 1;
    engine.play(again);
    engine.render(out.data(), 256, 256);
    EXPECT_NEAR(out[9], 2 * gain * ramp[265], 1e-6);
    EXPECT_NEAR(out[10], gain * ramp[0] + gain * ramp[266], 1e-6);
    EXPECT_NEAR(out[20], gain * ramp[10] + gain * ramp[276], 1e-6);
    EXPECT_FALSE(engine.isSilent());
    EXPECT_EQ(engine.startedAt(1), 266);
    EXPECT_EQ(engine.startedAt(2), 0);
    EXPECT_EQ(engine.startedAt(3), StrumEngine::kNotStarted);

    engine.stop();
    engine.render(out.data(), 256, 512);
    EXPECT_EQ(testing::peak(out), 0.0);
    EXPECT_TRUE(engine.isSilent());
    EXPECT_EQ(engine.silentFrom(), 768);
    EXPECT_EQ(engine.startedAt(1), StrumEngine::kNotStarted) << "stopped, nothing is sounding";
}

TEST(StrumEngine, NotesSoundTheirIndexAboveTheRecording) {
    constexpr double kRecorded = 110.0;
    std::vector<float> sine(2 * kRate);
    for (std::size_t i = 0; i < sine.size(); ++i)
        sine[i] = 0.5f * float(std::sin(2 * std::numbers::pi * kRecorded * double(i) / kRate));
    for (int index : {12, -2, 7}) {
        StrumEngine::Recordings recordings;
        recordings[4] = sine;
        StrumEngine engine(kRate, recordings);
        StrumSchedule s;
        s.notes[0] = {5, index, 0};
        s.count = 1;
        engine.play(s);
        const double want = kRecorded * std::exp2(index / 12.0);
        EXPECT_EQ(engine.length(s), std::int64_t(std::ceil(sine.size() / (want / kRecorded))));
        std::vector<float> out(kRate / 2);
        engine.render(out.data(), int(out.size()), 0);
        const double got = testing::toneFrequency(out, kRate, want);
        EXPECT_LT(std::abs(testing::cents(got, want)), 0.5) << index << ": " << got << " Hz";
    }
}

}  // namespace
}  // namespace zt::test
