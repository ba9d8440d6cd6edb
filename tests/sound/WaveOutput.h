#pragma once
// Sends this test process's OpenAL output to a WAV file instead of a sound
// card (openal-soft's "wave" backend), so tests can listen to what the
// engine played. Must run before the process first opens an OpenAL device.

#include <filesystem>
#include <string>

namespace zt::testing {

class WaveOutput {
public:
    // tag: names the files, unique per test program; the process id keeps
    // concurrent runs apart.
    explicit WaveOutput(const std::string& tag);
    ~WaveOutput();
    WaveOutput(const WaveOutput&) = delete;
    WaveOutput& operator=(const WaveOutput&) = delete;

    // Complete once the device that wrote it has been closed.
    const std::filesystem::path& file() const { return wave_; }

private:
    std::filesystem::path config_;
    std::filesystem::path wave_;
};

// Makes OpenAL find no usable backend in this process.
void disableAudioOutput();

}  // namespace zt::testing
