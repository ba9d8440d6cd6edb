// The by-ear tuner's strings rendered block by block, as the sound card's
// stream renders them: pitch, once or looped, and stops on the block clock.
#include <gtest/gtest.h>

#include <vector>

#include "sound/SoundTesting.h"
#include "tuners/StringTones.h"

namespace zt {
namespace {

using namespace zt::testing;

constexpr int kRate = 44100;
constexpr int kBlock = 512;

// Half a second of a 100 Hz sine, amplitude 1, as every string's recording.
std::vector<float> recording() {
    std::vector<float> s(kRate / 2);
    for (std::size_t i = 0; i < s.size(); ++i)
        s[i] = static_cast<float>(std::sin(2.0 * kPi * 100.0 * i / kRate));
    return s;
}

class StringTonesTest : public ::testing::Test {
protected:
    void SetUp() override {
        StringTones::Recordings r;
        r.fill(samples);
        tones.setRecordings(r);
    }
    // Renders `seconds` more, in blocks, onto the end of out.
    void render(double seconds) {
        const auto blocks = static_cast<int>(seconds * kRate / kBlock);
        for (int b = 0; b < blocks; ++b) {
            out.resize(out.size() + kBlock);
            tones.render(out.data() + out.size() - kBlock, kBlock,
                         static_cast<std::int64_t>(out.size()) - kBlock);
        }
    }
    // Index past the last sample that sounds.
    std::size_t lastSound() const {
        std::size_t last = 0;
        for (std::size_t i = 0; i < out.size(); ++i) {
            if (std::abs(out[i]) > 1e-6f)
                last = i + 1;
        }
        return last;
    }

    std::vector<float> samples = recording();
    StringTones tones;
    std::vector<float> out;
};

TEST_F(StringTonesTest, AToneOnceIsTheRecordingTransposedAndThenSilence) {
    // By semitones, or (bySpeed) at the factor itself, as for another
    // concert pitch.
    struct Case {
        int semitones;
        double factor;
        bool bySpeed = false;
    };
    for (const Case c : {Case{0, 1.0}, Case{-2, 0.890899}, Case{-5, 0.749154}, Case{7, 1.498307},
                         Case{0, 443.0 / 440.0, true}, Case{0, 0.943874, true}}) {
        out.clear();
        tones.reset();
        EXPECT_TRUE(c.bySpeed ? tones.playAt(6, c.factor, false)
                              : tones.play(6, c.semitones, false));
        render(1.0);
        const double hertz =
            toneFrequency(std::span<const float>(out).subspan(0, 10000), kRate, 100.0 * c.factor);
        EXPECT_LT(std::abs(cents(hertz, 100.0 * c.factor)), 0.1) << c.semitones;
        EXPECT_NEAR(double(lastSound()), samples.size() / c.factor, 2.0) << c.semitones;
        EXPECT_NEAR(rms(std::span<const float>(out).subspan(0, 10000)),
                    StringTones::kGain / std::sqrt(2.0), 1e-3);
        EXPECT_TRUE(tones.isSilent());
    }
}

TEST_F(StringTonesTest, NoSpeedIsNoTone) {
    for (double speed : {0.0, -1.0, std::nan("")})
        EXPECT_FALSE(tones.playAt(2, speed, true)) << speed;
    render(0.1);
    EXPECT_TRUE(tones.isSilent());
}

TEST_F(StringTonesTest, ALoopedToneGoesOnUntilItsStringIsStoppedAtTheNextBlock) {
    tones.play(3, -2, true);
    render(2.0);
    EXPECT_FALSE(tones.isSilent());
    EXPECT_GT(rms(std::span<const float>(out).subspan(out.size() - 10000)), 0.2);
    tones.stop(3);
    const std::size_t stoppedAt = out.size();
    render(0.1);
    EXPECT_EQ(lastSound(), stoppedAt);
    EXPECT_TRUE(tones.isSilent());
    EXPECT_EQ(tones.silentFrom(), static_cast<std::int64_t>(stoppedAt + kBlock));
}

}  // namespace
}  // namespace zt
