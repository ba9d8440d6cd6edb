#pragma once
// Helpers of the sound tests: writing and reading sound files, measuring
// tones, and an engine whose output goes to a WAV file (openal-soft's
// "wave" backend) so that a test can listen to what it played.

#include <sndfile.h>

#include <filesystem>
#include <memory>
#include <span>
#include <vector>

#include "sound/SoundEngine.h"

namespace zt::testing {

struct Recording {
    std::vector<float> samples;  // channels averaged
    int rate = 0, channels = 0, format = 0;

    // Samples from `from` to `to` seconds after sample `start`, clipped to the recording.
    std::span<const float> window(size_t start, double from, double to) const;
};

Recording readSound(const std::filesystem::path& path);
// A sine of amplitude 0.5 in every channel.
void writeTone(const std::filesystem::path& path, double hertz, double seconds, int rate = 44100,
               int channels = 1, int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT);
// A path in the temporary folder unique to this process.
std::filesystem::path scratchPath(const std::string& name);

// Frequency in hertz of the strongest sinusoid within +-4 % of `guess`,
// found as the maximum of the Hann-windowed spectrum searched continuously.
double toneFrequency(std::span<const float> samples, int rate, double guess);
// Amplitude of the sinusoid at `hertz` (0.5 for a sine of amplitude 0.5).
double toneAmplitude(std::span<const float> samples, int rate, double hertz);
double cents(double frequency, double reference);
double rms(std::span<const float> samples);
double peak(std::span<const float> samples);
// First index whose magnitude exceeds `threshold`; size() when none does.
size_t onset(std::span<const float> samples, float threshold);

// Makes OpenAL find no usable backend in this process.
void disableAudioOutput();

// A SoundEngine playing into a WAV file; create it before this process
// first opens an OpenAL device.
class WaveRecorder {
public:
    WaveRecorder();
    ~WaveRecorder();
    SoundEngine& engine() { return *engine_; }
    bool waitLoaded();
    // Closes the engine and returns everything it played.
    Recording finish();

private:
    std::filesystem::path config_, wave_;
    std::unique_ptr<SoundEngine> engine_;
};

}  // namespace zt::testing
