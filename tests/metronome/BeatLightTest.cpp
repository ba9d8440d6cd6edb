// The engine's record of the beats it rendered, which the beat light
// compares with the stream's played position.
#include <gtest/gtest.h>

#include <vector>

#include "metronome/MetronomeEngine.h"

namespace zt {
namespace {

TEST(RenderedBeats, FramesAndAccentsOfEachBeat) {
    constexpr int kRate = 48000;
    MetronomeEngine engine(kRate);
    MetronomeSetup setup;
    setup.BPM = 100;  // 120 beats per minute: a beat every 24000 frames
    setup.timeSig1Value = 3;
    setup.notesPerBeat = 2;  // subdivisions are not beats
    engine.start(setup);

    std::vector<float> block(512);
    std::int64_t frame = 0;
    for (; frame < 5 * 24000 + 1; frame += 512)
        engine.render(block.data(), 512, frame);
    // With a subdivision, a stop ends the run silently at the next instant.
    engine.stop();
    for (const std::int64_t end = frame + 48000; frame < end; frame += 512)
        engine.render(block.data(), 512, frame);

    std::vector<std::int64_t> frames;
    std::vector<bool> accents;
    std::vector<int> places;
    while (const auto beat = engine.takeRenderedBeat()) {
        frames.push_back(beat->frame);
        accents.push_back(beat->accented);
        places.push_back(beat->beatInBar);
    }
    // The run starts on the accented first beat of a bar, at its first frame.
    EXPECT_EQ(frames, (std::vector<std::int64_t>{0, 24000, 48000, 72000, 96000, 120000}));
    EXPECT_EQ(accents, (std::vector<bool>{true, false, false, true, false, false}));
    EXPECT_EQ(places, (std::vector<int>{1, 2, 3, 1, 2, 3}));
    // Without click samples the output is silent from the end of the block
    // holding that instant (frame 132000, a subdivision after the last beat).
    EXPECT_TRUE(engine.isSilent());
    EXPECT_EQ(engine.silentFrom(), 132096);

    engine.reset();
    EXPECT_FALSE(engine.takeRenderedBeat());
}

}  // namespace
}  // namespace zt
