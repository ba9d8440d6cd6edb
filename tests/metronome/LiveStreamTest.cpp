// The metronome through the sound engine's stream and OpenAL, recorded by
// openal-soft's wave-file backend: 30 s at 240 beats per minute in
// sixteenths, every click within 1 ms of the ideal grid.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <thread>
#include <vector>

#include "ClickTrack.h"
#include "metronome/MetronomePlayer.h"
#include "sound/SoundTesting.h"

namespace zt::test {
namespace {

// A 1.5 ms click of the given amplitude, written as a 44.1 kHz WAV file.
std::filesystem::path writeClick(const std::string& name, float amplitude) {
    const auto path = zt::testing::scratchPath(name + ".wav");
    SF_INFO info{0, kRate, 1, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 0, 0};
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    std::vector<float> click(66);
    for (size_t i = 0; i < click.size(); ++i)
        click[i] = amplitude * (1.0f - float(i) / click.size());
    sf_writef_float(file, click.data(), static_cast<sf_count_t>(click.size()));
    sf_close(file);
    return path;
}

TEST(LiveStream, ThirtySecondsOfSixteenthsStayOnTheGrid) {
    zt::testing::WaveRecorder recorder;
    const std::vector<std::filesystem::path> files = {
        writeClick("tick", 0.5f), writeClick("tock", 0.8f), writeClick("subtick", 0.3f)};
    ASSERT_TRUE(recorder.engine().hasDevice()) << "openal-soft's wave backend did not open";
    recorder.engine().loadBuffersAsync({{51, files[0]}, {52, files[1]}, {53, files[2]}});
    ASSERT_TRUE(recorder.waitLoaded());
    {
        MetronomePlayer player(recorder.engine());
        player.start(setupAt(240, 4, 4));
        std::this_thread::sleep_for(std::chrono::seconds(30));
        player.stop();
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    }
    const auto recording = recorder.finish();
    for (const auto& f : files)
        std::filesystem::remove(f);
    ASSERT_EQ(recording.rate, kRate);

    const auto onsets = onsetsAfterQuiet(recording.samples, 0.05f, 88);  // 2 ms of quiet
    ASSERT_GE(onsets.size(), 470u);
    // Every slot of the grid holds a click, from the first beat on.
    const double slot = 60.0 * kRate / (240 * 4);
    double worst = 0.0;
    for (size_t n = 0; n < onsets.size(); ++n) {
        const double error = double(onsets[n] - onsets[0]) - n * slot;
        worst = std::max(worst, std::abs(error));
        ASSERT_LT(std::abs(error), slot / 2) << "click " << n << " missing or extra";
    }
    std::printf("largest live onset error over %zu clicks: %.2f samples (%.3f ms)\n", onsets.size(),
                worst, worst * 1000.0 / kRate);
    EXPECT_LE(worst * 1000.0 / kRate, 1.0);
}

}  // namespace
}  // namespace zt::test
