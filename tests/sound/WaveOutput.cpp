#include "sound/WaveOutput.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>

namespace zt::testing {

WaveOutput::WaveOutput(const std::string& tag) {
    const auto base =
        std::filesystem::temp_directory_path() / ("zt-" + tag + "-" + std::to_string(getpid()));
    config_ = base.string() + ".conf";
    wave_ = base.string() + ".wav";
    std::ofstream(config_) << "[general]\n"
                              "channels = mono\n"
                              "frequency = 44100\n"
                              "sample-type = float32\n"
                              "hrtf = false\n"
                              "[wave]\n"
                              "file = "
                           << wave_.string() << "\n";
    setenv("ALSOFT_CONF", config_.c_str(), 1);
    setenv("ALSOFT_DRIVERS", "wave", 1);
}

WaveOutput::~WaveOutput() {
    std::error_code ignored;
    std::filesystem::remove(config_, ignored);
    std::filesystem::remove(wave_, ignored);
}

void disableAudioOutput() {
    setenv("ALSOFT_DRIVERS", "no-such-backend", 1);
}

}  // namespace zt::testing
