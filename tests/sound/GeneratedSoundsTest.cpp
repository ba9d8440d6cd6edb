// The shipped sound bank: tuned strings and short, clean clicks.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <string>

#include "sound/AudioAnalysis.h"
#include "sound/SoundBank.h"

using namespace zt;
using namespace zt::testing;

namespace {

constexpr int kBankFormat = SF_FORMAT_CAF | SF_FORMAT_PCM_16;

Recording readBankSound(int id) {
    Recording sound = readSound(SoundBank::path(SoundBank::fileName(id)));
    EXPECT_EQ(sound.format, kBankFormat) << id;
    EXPECT_EQ(sound.channels, 1) << id;
    EXPECT_EQ(sound.rate, 44100) << id;
    return sound;
}

class GeneratedStrings : public ::testing::TestWithParam<int> {};
class GeneratedPacks : public ::testing::TestWithParam<int> {};

double spectralSimilarity(const Recording& a, const Recording& b) {
    const auto x = magnitudeSpectrum(a.samples, 8192), y = magnitudeSpectrum(b.samples, 8192);
    double xy = 0, xx = 0, yy = 0;
    for (size_t i = 0; i < x.size(); ++i) {
        xy += x[i] * y[i];
        xx += x[i] * x[i];
        yy += y[i] * y[i];
    }
    return xy / std::sqrt(xx * yy);
}

}  // namespace

TEST_P(GeneratedStrings, IsInTuneAndDiesAway) {
    const int string = GetParam();
    const Recording tone = readBankSound(SoundBank::stringSoundId(string));
    ASSERT_FALSE(tone.samples.empty());
    const double seconds = static_cast<double>(tone.samples.size()) / tone.rate;
    EXPECT_GE(seconds, 2.5);
    EXPECT_LE(seconds, 3.5);

    const double target = SoundBank::openStringFrequency(string);
    const double measured = toneFrequency(tone.samples, tone.rate, target);
    RecordProperty("cents", std::to_string(cents(measured, target)));
    EXPECT_LT(std::abs(cents(measured, target)), 0.5) << measured << " Hz";

    const auto start = window(tone, 0, 0.0, 0.5), end = window(tone, 0, seconds - 0.5, seconds);
    EXPECT_GT(peak(start), 0.5);
    EXPECT_LT(rms(end), 0.5 * rms(start));
    EXPECT_LT(std::abs(tone.samples.back()), 1e-3);
}

INSTANTIATE_TEST_SUITE_P(OpenStrings, GeneratedStrings, ::testing::Range(0, 6));

TEST_P(GeneratedPacks, ClicksAreShortCleanAndDistinct) {
    const int pack = GetParam();
    Recording clicks[3];
    for (int kind = 0; kind < 3; ++kind) {
        Recording& click = clicks[kind];
        click = readBankSound(SoundBank::clickSoundId(pack, static_cast<SoundBank::Click>(kind)));
        ASSERT_GT(click.samples.size(), 100u);
        EXPECT_LT(click.samples.size(), 4410u) << "kind " << kind << " lasts 100 ms or more";
        EXPECT_LT(peak(std::span(click.samples).last(8)), 5e-3) << "kind " << kind;
        EXPECT_GT(peak(click.samples), 0.2) << "kind " << kind;
    }
    const auto& [tick, tock, subtick] = clicks;
    EXPECT_LT(spectralSimilarity(tick, tock), 0.9) << "tock sounds like tick";
    EXPECT_GE(peak(tock.samples), peak(tick.samples));
    EXPECT_LT(peak(subtick.samples), 0.7 * peak(tick.samples));
}

INSTANTIATE_TEST_SUITE_P(Packs, GeneratedPacks, ::testing::Range(1, SoundBank::kPackCount + 1),
                         [](const auto& info) {
                             return std::string(SoundBank::kPackNames[info.param - 1]);
                         });
