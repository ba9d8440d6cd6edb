// The metronome through the sound engine's stream and OpenAL, recorded by
// openal-soft's wave-file backend: 30 s at 240 beats per minute in
// sixteenths, every click in its place and within 1 ms of the grid.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <thread>
#include <vector>

#include "ClickFiles.h"
#include "ClickTrack.h"
#include "metronome/MetronomePlayer.h"
#include "sound/SoundTesting.h"

namespace zt::test {
namespace {

// What a click in the recording is, from its peak: the accent (0.8), a beat
// (0.5) or a subdivision (0.3), whatever gain the device put on all three.
char clickKind(float peak, float loudest) {
    const float ratio = peak / loudest;
    return ratio > 0.8f ? 'A' : ratio > 0.45f ? 'T' : 'S';
}

// Click n of a run at 4/4 in sixteenths: an accent on the first beat and
// every fourth beat after it, three subdivisions after each beat.
char expectedKind(size_t n) {
    if (n % 4 != 0)
        return 'S';
    return (n / 4) % 4 == 0 ? 'A' : 'T';
}

TEST(LiveStream, ThirtySecondsOfSixteenthsStayOnTheGrid) {
    zt::testing::WaveRecorder recorder;
    const std::vector<std::filesystem::path> files = {
        writeClick("tick", 0.5f), writeClick("tock", 0.8f), writeClick("subtick", 0.3f)};
    ASSERT_TRUE(recorder.engine().hasDevice()) << "openal-soft's wave backend did not open";
    recorder.engine().loadBuffersAsync({{51, files[0]}, {52, files[1]}, {53, files[2]}});
    ASSERT_TRUE(recorder.waitLoaded());
    int underruns = 0;
    {
        MetronomePlayer player(recorder.engine());
        player.start(setupAt(240, 4, 4));
        std::this_thread::sleep_for(std::chrono::seconds(30));
        player.stop();
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        underruns = recorder.engine().streamUnderruns();
    }
    const auto recording = recorder.finish();
    for (const auto& f : files)
        std::filesystem::remove(f);
    ASSERT_EQ(recording.rate, kRate);

    const auto onsets = onsetsAfterQuiet(recording.samples, 0.05f, 88);  // 2 ms of quiet
    ASSERT_GE(onsets.size(), 470u);
    std::vector<float> peaks;
    for (auto at : onsets) {
        float peak = 0.0f;
        for (auto i = at; i < std::min<std::int64_t>(at + 66, recording.samples.size()); ++i)
            peak = std::max(peak, std::abs(recording.samples[size_t(i)]));
        peaks.push_back(peak);
    }
    const float loudest = *std::max_element(peaks.begin(), peaks.end());

    // Every click is there, in the order of the bar, on the grid measured
    // from the first. The device plays silence of its own when the stream
    // runs dry (a heavily loaded machine), which delays all that follows:
    // only then may a gap be longer (never shorter), and the grid is measured
    // again from the click after it.
    const double slot = 60.0 * kRate / (240 * 4);
    double worst = 0.0;
    int delayed = 0;
    size_t from = 0;
    for (size_t n = 0; n < onsets.size(); ++n) {
        ASSERT_EQ(clickKind(peaks[n], loudest), expectedKind(n)) << "click " << n;
        if (n > 0 && (double(onsets[n] - onsets[n - 1]) - slot) * 1000.0 / kRate > 1.0) {
            ++delayed;
            from = n;
        }
        const double error = double(onsets[n] - onsets[from]) - double(n - from) * slot;
        worst = std::max(worst, std::abs(error));
    }
    std::printf(
        "largest live onset error over %zu clicks: %.2f samples (%.3f ms); %d "
        "underruns, %d clicks delayed by them\n",
        onsets.size(), worst, worst * 1000.0 / kRate, underruns, delayed);
    EXPECT_LE(worst * 1000.0 / kRate, 1.0);
    EXPECT_LE(delayed, underruns);
}

}  // namespace
}  // namespace zt::test
