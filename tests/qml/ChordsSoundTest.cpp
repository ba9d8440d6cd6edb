// The chords tool in the real program, listened to: tst_chords_strum.qml
// drives the program's views by touch while openal-soft's wave-file backend
// writes what the program plays to a file, and the recording is checked
// here. The QML test waits between sounds until every string has died away,
// so that each stands alone, separated by silence:
//   A and Am picked (whole chords), the five strings of a drag across A
//   minor one by one, Dm and D picked in Drop D, D major's 6th string.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "AppListening.h"

namespace {

using namespace zt::testing;

// Where strings start within the first 0.35 s of a section: the first
// sample, then each millisecond whose high-frequency energy (the second
// difference of the samples) is four times the mean of the 10 ms before
// it, at least 20 ms after the last. A pluck's high partials fade within
// tens of milliseconds, so each string stands out as it starts.
std::vector<std::size_t> onsets(const Recording& r, const Section& s) {
    const std::size_t window = static_cast<std::size_t>(r.rate) / 1000;
    const std::size_t last = std::min(s.end, s.start + static_cast<std::size_t>(0.35 * r.rate));
    std::vector<double> energy;
    for (std::size_t at = std::max<std::size_t>(s.start, 2); at + window <= last; at += window) {
        double sum = 0.0;
        for (std::size_t i = at; i < at + window; ++i) {
            const double d = double(r.samples[i]) - 2.0 * r.samples[i - 1] + r.samples[i - 2];
            sum += d * d;
        }
        energy.push_back(sum);
    }
    std::vector<std::size_t> found = {0};
    for (std::size_t w = 10; w < energy.size(); ++w) {
        double before = 0.0;
        for (std::size_t b = w - 10; b < w; ++b)
            before += energy[b] / 10.0;
        if (energy[w] > 4.0 * before && w - found.back() > 20)
            found.push_back(w);
    }
    for (std::size_t& w : found)
        w = s.start + w * window;
    return found;
}

class ChordsInTheApp : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        AppRun run = runAppListening(ZT_QML_APP, ZT_QML_TEST, "chords-app");
        status_ = run.status;
        log_ = std::move(run.log);
        recording_ = std::move(run.recording);
        sections_ = sections(recording_);
    }

    // The single note of a section: its frequency, measured near `hertz`.
    static double pitchOf(const Section& s, double hertz) {
        const auto tone = recording_.window(s.start, 0.05, 0.6);
        return toneFrequency(tone, recording_.rate, hertz);
    }

    static inline int status_ = -1;
    static inline std::string log_;
    static inline Recording recording_;
    static inline std::vector<Section> sections_;
};

TEST_F(ChordsInTheApp, TheProgramPlayedEverySoundTouchedForAndNothingElse) {
    ASSERT_EQ(status_, 0) << log_;
    EXPECT_EQ(recording_.rate, 44100);
    ASSERT_EQ(sections_.size(), 10u) << "A, Am, five strings, Dm, D, one string";
}

TEST_F(ChordsInTheApp, APickedChordSoundsItsStringsSixtyMillisecondsApartLowestFirst) {
    ASSERT_EQ(sections_.size(), 10u);
    // A minor: five strings, the 6th muted; D minor in Drop D: all six.
    for (const auto& [section, strings] : {std::pair{1, 5}, std::pair{7, 6}}) {
        const auto starts = onsets(recording_, sections_[static_cast<std::size_t>(section)]);
        ASSERT_EQ(starts.size(), static_cast<std::size_t>(strings)) << "section " << section;
        for (std::size_t i = 1; i < starts.size(); ++i) {
            // 2646 samples; the onset finder sees whole milliseconds, and
            // each string's pluck rises over a few.
            EXPECT_NEAR(double(starts[i] - starts[i - 1]), 2646.0, 3 * 44.1)
                << "section " << section << ", string " << i;
        }
    }
}

TEST_F(ChordsInTheApp, DraggingAcrossAMinorSoundsFiveStringsInOrderAtTheirPitches) {
    ASSERT_EQ(sections_.size(), 10u);
    // The 5th string to the 1st: A2, E3, A3, C4, E4.
    const double pitches[] = {110.0, 164.814, 220.0, 261.626, 329.628};
    for (std::size_t i = 0; i < 5; ++i) {
        const Section& s = sections_[2 + i];
        EXPECT_EQ(onsets(recording_, s).size(), 1u) << "one string at a time, string " << 5 - i;
        const double measured = pitchOf(s, pitches[i]);
        EXPECT_LT(std::abs(cents(measured, pitches[i])), 2.0)
            << "string " << 5 - i << ": " << measured << " Hz";
        // The muted 6th string (E2) would sound under the 5th.
        const auto tone = recording_.window(s.start, 0.05, 0.6);
        EXPECT_LT(toneAmplitude(tone, recording_.rate, 82.407),
                  0.05 * toneAmplitude(tone, recording_.rate, pitches[i]))
            << "string " << 5 - i;
    }
}

TEST_F(ChordsInTheApp, InDropDTheSixthStringOfDMajorSoundsD2) {
    ASSERT_EQ(sections_.size(), 10u);
    const double measured = pitchOf(sections_[9], 73.416);
    EXPECT_LT(std::abs(cents(measured, 73.416)), 2.0) << measured << " Hz";
}

}  // namespace
