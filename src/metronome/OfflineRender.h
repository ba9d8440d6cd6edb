#pragma once
// Renders a metronome engine to a sound file: exactly the samples the live
// stream would play, 16-bit PCM mono WAV at the engine's rate.

#include <cstdint>
#include <filesystem>
#include <string>

#include "metronome/MetronomeEngine.h"

namespace zt {

// Renders frames samples, from stream frame 0, in blocks the size the live
// stream uses, and writes them to path (samples beyond -1..1 are clipped).
// False, with the reason in error, when the file cannot be written.
bool renderToWav(MetronomeEngine& engine, std::int64_t frames, const std::filesystem::path& path,
                 std::string& error);

}  // namespace zt
