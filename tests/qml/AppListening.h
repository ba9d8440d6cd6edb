#pragma once
// Runs the real program on a QML test (test_qml_app -input FILE) with
// openal-soft's wave-file backend, so that everything the program plays is
// written to a file, and hands back that recording with the exit status
// and the program's output.
#include <stdlib.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "sound/SoundTesting.h"

namespace zt::testing {

struct AppRun {
    int status = -1;
    std::string log;
    Recording recording;
};

// app: the test_qml_app program; qmlTest: the QML test it runs; name: a
// scratch folder's name.
inline AppRun runAppListening(const std::string& app, const std::string& qmlTest,
                              const std::string& name) {
    const auto dir = scratchPath(name);
    std::filesystem::create_directories(dir);
    const auto config = dir / "alsoft.conf";
    const auto wave = dir / "out.wav";
    const auto log = dir / "log";
    std::ofstream(config) << "[general]\nchannels = mono\nfrequency = 44100\n"
                             "sample-type = float32\nhrtf = false\n[wave]\nfile = "
                          << wave.string() << "\n";
    ::setenv("ALSOFT_CONF", config.c_str(), 1);
    ::setenv("ALSOFT_DRIVERS", "wave", 1);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("QT_QUICK_BACKEND", "software", 1);
    const std::string command =
        "\"" + app + "\" -input \"" + qmlTest + "\" > \"" + log.string() + "\" 2>&1";
    AppRun run;
    run.status = std::system(command.c_str());
    std::ostringstream text;
    text << std::ifstream(log).rdbuf();
    run.log = text.str();
    run.recording = readSound(wave);
    std::filesystem::remove_all(dir);
    return run;
}

struct Section {
    std::size_t start = 0;  // first sample above the silence threshold
    std::size_t end = 0;    // past the last
};

inline constexpr float kSilence = 1e-4f;

// Runs of sound separated by at least `gapSeconds` of silence.
inline std::vector<Section> sections(const Recording& r, double gapSeconds = 0.25) {
    std::vector<Section> found;
    const auto gap = static_cast<std::size_t>(gapSeconds * r.rate);
    std::size_t quiet = gap;
    for (std::size_t i = 0; i < r.samples.size(); ++i) {
        if (std::abs(r.samples[i]) <= kSilence) {
            ++quiet;
            continue;
        }
        if (quiet >= gap)
            found.push_back({i, i + 1});
        found.back().end = i + 1;
        quiet = 0;
    }
    return found;
}

}  // namespace zt::testing
