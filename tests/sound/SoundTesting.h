#pragma once
// Helpers of the sound tests: writing and reading sound files, measuring
// tones, and an engine whose output goes to a WAV file (openal-soft's
// "wave" backend) so that a test can listen to what it played.

#include <sndfile.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <complex>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <numbers>
#include <span>
#include <thread>
#include <vector>

#include "sound/SoundEngine.h"

namespace zt::testing {

inline constexpr double kPi = std::numbers::pi;

struct Recording {
    std::vector<float> samples;  // channels averaged
    int rate = 0, channels = 0, format = 0;

    // Samples from `from` to `to` seconds after sample `start`, clipped to the recording.
    std::span<const float> window(size_t start, double from, double to) const {
        const size_t first = std::min(samples.size(), start + static_cast<size_t>(from * rate));
        const size_t last = std::min(samples.size(), start + static_cast<size_t>(to * rate));
        return std::span<const float>(samples).subspan(first, last - first);
    }
};

inline Recording readSound(const std::filesystem::path& path) {
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    if (!file)
        return {};
    std::vector<float> frames(static_cast<size_t>(info.frames * info.channels));
    sf_readf_float(file, frames.data(), info.frames);
    sf_close(file);
    Recording recording{{}, info.samplerate, info.channels, info.format};
    for (size_t i = 0; i < frames.size(); i += info.channels) {
        float sum = 0.0f;
        for (int c = 0; c < info.channels; ++c)
            sum += frames[i + c];
        recording.samples.push_back(sum / info.channels);
    }
    return recording;
}

// A sine of amplitude 0.5 in every channel.
inline void writeTone(const std::filesystem::path& path, double hertz, double seconds,
                      int rate = 44100, int channels = 1,
                      int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT) {
    SF_INFO info{0, rate, channels, format, 0, 0};
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    std::vector<float> frames;
    for (size_t i = 0; i < static_cast<size_t>(seconds * rate); ++i)
        frames.insert(frames.end(), channels, 0.5f * std::sin(2.0 * kPi * hertz * i / rate));
    sf_writef_float(file, frames.data(), static_cast<sf_count_t>(frames.size() / channels));
    sf_close(file);
}

// A path in the temporary folder unique to this process.
inline std::filesystem::path scratchPath(const std::string& name) {
    return std::filesystem::temp_directory_path() / ("zt-" + std::to_string(getpid()) + "-" + name);
}

inline double hannSpectrum(std::span<const float> samples, int rate, double hertz) {
    const size_t n = samples.size();
    const auto rotation = std::polar(1.0, -2.0 * kPi * hertz / rate);
    std::complex<double> sum = 0.0, phasor = 1.0;
    for (size_t i = 0; i < n; ++i) {
        sum += (0.5 - 0.5 * std::cos(2.0 * kPi * i / (n - 1))) * samples[i] * phasor;
        phasor *= rotation;
    }
    return std::abs(sum);
}

// Frequency in hertz of the strongest sinusoid within +-4 % of `guess`: the
// spectrum is scanned at 41 points, then narrowed around the best tenfold.
inline double toneFrequency(std::span<const float> samples, int rate, double guess) {
    double centre = guess, span = 0.04 * guess;
    while (span > 1e-5) {
        double best = centre, bestLevel = -1.0;
        for (int i = -20; i <= 20; ++i) {
            const double hertz = centre + span * i / 20;
            if (const double level = hannSpectrum(samples, rate, hertz); level > bestLevel) {
                bestLevel = level;
                best = hertz;
            }
        }
        centre = best;
        span /= 10;
    }
    return centre;
}

// Amplitude of the sinusoid at `hertz` (0.5 for a sine of amplitude 0.5).
inline double toneAmplitude(std::span<const float> samples, int rate, double hertz) {
    return samples.size() < 2 ? 0.0
                              : 4.0 * hannSpectrum(samples, rate, hertz) / (samples.size() - 1);
}

inline double cents(double frequency, double reference) {
    return 1200.0 * std::log2(frequency / reference);
}

inline double rms(std::span<const float> samples) {
    double sum = 0.0;
    for (float s : samples)
        sum += static_cast<double>(s) * s;
    return samples.empty() ? 0.0 : std::sqrt(sum / samples.size());
}

inline double peak(std::span<const float> samples) {
    double highest = 0.0;
    for (float s : samples)
        highest = std::max(highest, std::abs(static_cast<double>(s)));
    return highest;
}

// First index whose magnitude exceeds `threshold`; size() when none does.
inline size_t onset(std::span<const float> samples, float threshold) {
    return static_cast<size_t>(std::find_if(samples.begin(), samples.end(),
                                            [=](float s) { return std::abs(s) > threshold; }) -
                               samples.begin());
}

// Makes OpenAL find no usable backend in this process.
inline void disableAudioOutput() {
    setenv("ALSOFT_DRIVERS", "no-such-backend", 1);
}

// A SoundEngine playing into a WAV file; create it before this process
// first opens an OpenAL device.
class WaveRecorder {
public:
    WaveRecorder() : config_(scratchPath("alsoft.conf")), wave_(scratchPath("out.wav")) {
        std::ofstream(config_) << "[general]\nchannels = mono\nfrequency = 44100\n"
                                  "sample-type = float32\nhrtf = false\n[wave]\nfile = "
                               << wave_.string() << "\n";
        setenv("ALSOFT_CONF", config_.c_str(), 1);
        setenv("ALSOFT_DRIVERS", "wave", 1);
        engine_ = std::make_unique<SoundEngine>();
    }
    ~WaveRecorder() {
        engine_.reset();
        std::filesystem::remove(config_);
        std::filesystem::remove(wave_);
    }
    SoundEngine& engine() { return *engine_; }
    bool waitLoaded() {
        for (int waited = 0; engine_->loadProgress() < 1.0f; ++waited) {
            if (waited > 1000)
                return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return true;
    }
    // Closes the engine and returns everything it played.
    Recording finish() {
        engine_.reset();
        return readSound(wave_);
    }

private:
    std::filesystem::path config_, wave_;
    std::unique_ptr<SoundEngine> engine_;
};

}  // namespace zt::testing
