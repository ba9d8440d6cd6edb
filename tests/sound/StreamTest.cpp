// The streaming voice: a continuous clock and gap-free output.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <numbers>
#include <thread>

#include "sound/EngineRecorder.h"

using namespace zt;
using namespace zt::testing;
using namespace std::chrono_literals;

namespace {

constexpr double kTone = 1000.0;

// A sine computed from the stream clock, recording any break in the clock.
struct SineRenderer : StreamRenderer {
    void render(float* out, int frames, std::int64_t firstFrame) override {
        if (firstFrame != expected)
            ++clockBreaks;
        for (int i = 0; i < frames; ++i) {
            const double t = static_cast<double>(firstFrame + i) / 44100.0;
            out[i] = static_cast<float>(0.5 * std::sin(2 * std::numbers::pi * kTone * t));
        }
        expected = firstFrame + frames;
    }
    std::int64_t expected = 0;
    std::atomic<int> clockBreaks{0};
};

}  // namespace

TEST(SoundEngineStream, PlaysTheRendererWithoutGaps) {
    EngineRecorder recorder;
    SoundEngine& engine = recorder.engine();
    ASSERT_TRUE(engine.hasDevice());
    SineRenderer renderer;
    ASSERT_TRUE(engine.startStream(&renderer));
    std::this_thread::sleep_for(300ms);
    const std::int64_t heard = engine.streamPosition();
    EXPECT_GT(heard, 44100 / 10);
    EXPECT_LE(heard, renderer.expected);
    std::this_thread::sleep_for(200ms);
    engine.stopStream();
    EXPECT_EQ(renderer.clockBreaks, 0);
    const Recording played = recorder.finish();

    const size_t start = onset(played.samples, 0.05f);
    const auto steady = window(played, start, 0.05, 0.45);
    ASSERT_GT(steady.size(), 44100u / 4);
    EXPECT_LT(std::abs(cents(toneFrequency(steady, played.rate, kTone), kTone)), 0.1);
    // Any underrun would leave a hole: every 2 ms stretch must carry the tone.
    const size_t stretch = 88;
    for (size_t at = 0; at + stretch <= steady.size(); at += stretch) {
        ASSERT_GT(rms(steady.subspan(at, stretch)), 0.2) << "gap at " << at << " frames";
    }
}
