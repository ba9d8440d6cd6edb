// The metronome through the sound engine's stream and OpenAL, recorded by
// openal-soft's wave-file backend: 30 s at 240 beats per minute in
// sixteenths, every click within 1 ms of the ideal grid.
#include <gtest/gtest.h>
#include <sndfile.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>
#include <vector>

#include "ClickTrack.h"
#include "metronome/MetronomePlayer.h"

namespace zt::test {
namespace {

std::filesystem::path tempFile(const std::string& name) {
    return std::filesystem::temp_directory_path() /
           ("zt-metronome-live-" + std::to_string(::getpid()) + "-" + name);
}

// A 1.5 ms click of the given amplitude, written as a 44.1 kHz WAV file.
std::filesystem::path writeClick(const std::string& name, float amplitude) {
    const auto path = tempFile(name + ".wav");
    SF_INFO info{};
    info.samplerate = kRate;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    std::vector<float> click(66);
    for (size_t i = 0; i < click.size(); ++i)
        click[i] = amplitude * (1.0f - float(i) / click.size());
    sf_writef_float(file, click.data(), static_cast<sf_count_t>(click.size()));
    sf_close(file);
    return path;
}

TEST(LiveStream, ThirtySecondsOfSixteenthsStayOnTheGrid) {
    // The output device of this process becomes a mono float WAV file.
    const auto config = tempFile("alsoft.conf");
    const auto recording = tempFile("out.wav");
    std::ofstream(config) << "[general]\nchannels = mono\nfrequency = 44100\n"
                             "sample-type = float32\n[wave]\nfile = "
                          << recording.string() << "\n";
    setenv("ALSOFT_CONF", config.c_str(), 1);
    setenv("ALSOFT_DRIVERS", "wave", 1);
    const std::vector<std::filesystem::path> files = {
        writeClick("tick", 0.5f), writeClick("tock", 0.8f), writeClick("subtick", 0.3f)};

    auto sound = std::make_unique<SoundEngine>();
    ASSERT_TRUE(sound->hasDevice()) << "openal-soft's wave backend did not open";
    sound->loadBuffersAsync({{51, files[0]}, {52, files[1]}, {53, files[2]}});
    while (sound->loadProgress() < 1.0f)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    {
        MetronomePlayer player(*sound);
        player.start(setupAt(240, 4, 4));
        std::this_thread::sleep_for(std::chrono::seconds(30));
        player.stop();
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    }
    sound.reset();  // closing the device completes the file

    SF_INFO info{};
    SNDFILE* file = sf_open(recording.c_str(), SFM_READ, &info);
    ASSERT_NE(file, nullptr) << recording;
    ASSERT_EQ(info.samplerate, kRate);
    ASSERT_EQ(info.channels, 1);
    std::vector<float> samples(static_cast<size_t>(info.frames));
    sf_readf_float(file, samples.data(), info.frames);
    sf_close(file);
    for (const auto& f : files)
        std::filesystem::remove(f);
    std::filesystem::remove(config);
    std::filesystem::remove(recording);

    // Onsets: above a threshold after 2 ms of quiet.
    std::vector<std::int64_t> onsets;
    std::int64_t quiet = 88;
    for (size_t i = 0; i < samples.size(); ++i) {
        const bool loud = std::abs(samples[i]) > 0.05f;
        if (loud && quiet >= 88)
            onsets.push_back(static_cast<std::int64_t>(i));
        quiet = loud ? 0 : quiet + 1;
    }
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
