#include "sound/SoundTesting.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <complex>
#include <cstdlib>
#include <fstream>
#include <numbers>
#include <thread>

namespace zt::testing {

namespace {
constexpr double kPi = std::numbers::pi;

double hannSpectrum(std::span<const float> samples, int rate, double hertz) {
    const size_t n = samples.size();
    const auto rotation = std::polar(1.0, -2.0 * kPi * hertz / rate);
    std::complex<double> sum = 0.0, phasor = 1.0;
    for (size_t i = 0; i < n; ++i) {
        sum += (0.5 - 0.5 * std::cos(2.0 * kPi * i / (n - 1))) * samples[i] * phasor;
        phasor *= rotation;
    }
    return std::abs(sum);
}
}  // namespace

std::span<const float> Recording::window(size_t start, double from, double to) const {
    const size_t first = std::min(samples.size(), start + static_cast<size_t>(from * rate));
    const size_t last = std::min(samples.size(), start + static_cast<size_t>(to * rate));
    return std::span<const float>(samples).subspan(first, last - first);
}

Recording readSound(const std::filesystem::path& path) {
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

void writeTone(const std::filesystem::path& path, double hertz, double seconds, int rate,
               int channels, int format) {
    SF_INFO info{0, rate, channels, format, 0, 0};
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    std::vector<float> frames;
    for (size_t i = 0; i < static_cast<size_t>(seconds * rate); ++i) {
        frames.insert(frames.end(), channels, 0.5f * std::sin(2.0 * kPi * hertz * i / rate));
    }
    sf_writef_float(file, frames.data(), static_cast<sf_count_t>(frames.size() / channels));
    sf_close(file);
}

std::filesystem::path scratchPath(const std::string& name) {
    return std::filesystem::temp_directory_path() / ("zt-" + std::to_string(getpid()) + "-" + name);
}

double toneFrequency(std::span<const float> samples, int rate, double guess) {
    // Scan 41 points over the range, then narrow around the best tenfold
    // until the step is far below what the tests resolve.
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

double toneAmplitude(std::span<const float> samples, int rate, double hertz) {
    return samples.size() < 2 ? 0.0
                              : 4.0 * hannSpectrum(samples, rate, hertz) / (samples.size() - 1);
}

double cents(double frequency, double reference) {
    return 1200.0 * std::log2(frequency / reference);
}

double rms(std::span<const float> samples) {
    double sum = 0.0;
    for (float s : samples)
        sum += static_cast<double>(s) * s;
    return samples.empty() ? 0.0 : std::sqrt(sum / samples.size());
}

double peak(std::span<const float> samples) {
    double highest = 0.0;
    for (float s : samples)
        highest = std::max(highest, std::abs(static_cast<double>(s)));
    return highest;
}

size_t onset(std::span<const float> samples, float threshold) {
    return static_cast<size_t>(
        std::find_if(samples.begin(), samples.end(),
                     [threshold](float s) { return std::abs(s) > threshold; }) -
        samples.begin());
}

void disableAudioOutput() {
    setenv("ALSOFT_DRIVERS", "no-such-backend", 1);
}

WaveRecorder::WaveRecorder() : config_(scratchPath("alsoft.conf")), wave_(scratchPath("out.wav")) {
    std::ofstream(config_) << "[general]\nchannels = mono\nfrequency = 44100\n"
                              "sample-type = float32\nhrtf = false\n[wave]\nfile = "
                           << wave_.string() << "\n";
    setenv("ALSOFT_CONF", config_.c_str(), 1);
    setenv("ALSOFT_DRIVERS", "wave", 1);
    engine_ = std::make_unique<SoundEngine>();
}

WaveRecorder::~WaveRecorder() {
    engine_.reset();
    std::filesystem::remove(config_);
    std::filesystem::remove(wave_);
}

bool WaveRecorder::waitLoaded() {
    for (int waited = 0; engine_->loadProgress() < 1.0f; ++waited) {
        if (waited > 1000)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

Recording WaveRecorder::finish() {
    engine_.reset();
    return readSound(wave_);
}

}  // namespace zt::testing
