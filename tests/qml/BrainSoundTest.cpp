// The by-ear tuner in the real program, listened to: tst_brain_drop_d.qml
// chooses Drop D and touches the 6th string, then loops the 5th, then with
// a capo at the 3rd fret touches the 6th again, while openal-soft's
// wave-file backend writes what the program plays to a file; here the file
// must hold a tone whose fundamental is D2, an A2 that goes on until
// touched again, and an F2.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "AppListening.h"

namespace {

using namespace zt::testing;

constexpr double kD2 = 73.4162;
constexpr double kE2 = 82.4069;
constexpr double kF2 = 87.3071;
constexpr double kA2 = 110.0;

class BrainInTheApp : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        AppRun run = runAppListening(ZT_QML_APP, ZT_QML_TEST, "brain-app");
        status_ = run.status;
        log_ = std::move(run.log);
        recording_ = std::move(run.recording);
        sections_ = sections(recording_);
    }

    static inline int status_ = -1;
    static inline std::string log_;
    static inline Recording recording_;
    static inline std::vector<Section> sections_;
};

// The fundamental of a string's tone: the strongest peak of the spectrum
// between 40 and 400 Hz (a low string's second partial may outdo its
// first), then the lowest of its whole fractions that is itself a real
// partial, refined to a hundred-thousandth of a hertz.
double fundamental(std::span<const float> tone, int rate) {
    double peak = 0.0, peakLevel = 0.0;
    for (double hertz = 40.0; hertz <= 400.0; hertz += 0.25) {
        if (const double level = hannSpectrum(tone, rate, hertz); level > peakLevel) {
            peakLevel = level;
            peak = hertz;
        }
    }
    double lowest = toneFrequency(tone, rate, peak);
    for (int k = 2; k <= 5; ++k) {
        const double candidate = toneFrequency(tone, rate, lowest / k);
        if (std::abs(cents(candidate * k, lowest)) < 20.0 &&
            hannSpectrum(tone, rate, candidate) > 0.1 * peakLevel)
            lowest = candidate;
    }
    return lowest;
}

TEST_F(BrainInTheApp, TheProgramPlayedTheTwoTonesTouchedForAndNothingElse) {
    ASSERT_EQ(status_, 0) << log_;
    EXPECT_EQ(recording_.rate, 44100);
    EXPECT_EQ(sections_.size(), 3u) << "Drop D's 6th string, the looping 5th, the 6th under a capo";
}

TEST_F(BrainInTheApp, InDropDTheSixthStringSoundsD2WithinACent) {
    ASSERT_GE(sections_.size(), 1u);
    // Two seconds of the ringing string, past the pluck.
    const auto tone = recording_.window(sections_[0].start, 0.1, 2.1);
    ASSERT_GT(tone.size(), 80000u);
    const double measured = fundamental(tone, recording_.rate);
    std::printf("6th string in Drop D: %.4f Hz, %+.3f cents from D2\n", measured,
                cents(measured, kD2));
    EXPECT_LT(std::abs(cents(measured, kD2)), 1.0) << measured << " Hz";
    // Not the recording's own E2 sounding beside it.
    EXPECT_LT(toneAmplitude(tone, recording_.rate, kE2),
              0.05 * toneAmplitude(tone, recording_.rate, measured));
}

TEST_F(BrainInTheApp, ALoopedStringSoundsUntilTouchedAgainLongPastItsRecording) {
    ASSERT_GE(sections_.size(), 2u);
    const Section& loop = sections_[1];
    const double seconds = double(loop.end - loop.start) / recording_.rate;
    // Touched again seven seconds on; the recording lasts three.
    std::printf("5th string looped: %.2f s\n", seconds);
    EXPECT_NEAR(seconds, 7.0, 0.5);
    const double measured = fundamental(recording_.window(loop.start, 0.1, 2.1), recording_.rate);
    EXPECT_LT(std::abs(cents(measured, kA2)), 1.0) << measured << " Hz";
    // The second time round sounds as the first.
    const double again = fundamental(recording_.window(loop.start, 4.1, 6.1), recording_.rate);
    EXPECT_LT(std::abs(cents(again, kA2)), 1.0) << again << " Hz";
}

TEST_F(BrainInTheApp, UnderACapoAtTheThirdFretTheSixthStringSoundsF2WithinACent) {
    ASSERT_EQ(sections_.size(), 3u);
    const auto tone = recording_.window(sections_[2].start, 0.1, 2.1);
    const double measured = fundamental(tone, recording_.rate);
    std::printf("6th string in Drop D, capo 3: %.4f Hz, %+.3f cents from F2\n", measured,
                cents(measured, kF2));
    EXPECT_LT(std::abs(cents(measured, kF2)), 1.0) << measured << " Hz";
}

}  // namespace
