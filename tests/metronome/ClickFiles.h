#pragma once
// Click sounds written as WAV files for the tests that play the metronome
// through a real output: short, loud and easy to find in a recording.
#include <sndfile.h>

#include <filesystem>
#include <string>
#include <vector>

#include "ClickTrack.h"
#include "sound/SoundTesting.h"

namespace zt::test {

// A 1.5 ms click of the given amplitude, falling linearly, at 44.1 kHz.
inline std::filesystem::path writeClick(const std::string& name, float amplitude) {
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

}  // namespace zt::test
