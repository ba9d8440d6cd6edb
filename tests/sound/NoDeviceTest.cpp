// Without any output device the engine stays quiet and harmless.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <vector>

#include "framework/Log.h"
#include "sound/SoundBank.h"
#include "sound/SoundEngine.h"
#include "sound/WaveOutput.h"

using namespace zt;

namespace {

struct CountingRenderer : StreamRenderer {
    void render(float* out, int frames, std::int64_t) override {
        ++calls;
        std::fill(out, out + frames, 0.0f);
    }
    std::atomic<int> calls{0};
};

}  // namespace

TEST(SoundEngineWithoutDevice, LogsOnceAndEveryCallIsANoOp) {
    zt::testing::disableAudioOutput();
    std::vector<std::string> lines;
    setLogSink([&](const std::string& line) { lines.push_back(line); });
    setLogQuiet(true);

    SoundEngine engine;
    EXPECT_FALSE(engine.hasDevice());
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(lines[0].find("no audio output device"), std::string::npos) << lines[0];

    engine.defineSourceGroups({1, 1, 2});
    engine.loadBuffersAsync({{51, SoundBank::path("1_tick.caf")}, {52, "/no/such.caf"}});
    EXPECT_EQ(engine.loadProgress(), 1.0f);
    EXPECT_FALSE(engine.playSound(51, 0, 1.0f, 0.0f, 1.0f, true));
    engine.stopSourceGroup(0);
    engine.stopSourceGroup(99);
    engine.unloadBuffer(51);
    EXPECT_EQ(engine.decodedSamples(51), nullptr);

    CountingRenderer renderer;
    EXPECT_FALSE(engine.startStream(&renderer));
    EXPECT_EQ(engine.streamPosition(), 0);
    engine.stopStream();
    EXPECT_EQ(renderer.calls, 0);
    EXPECT_EQ(engine.streamSampleRate(), 44100);
    EXPECT_EQ(lines.size(), 1u);

    setLogSink({});
    setLogQuiet(false);
}
