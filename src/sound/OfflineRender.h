#pragma once
// Renders a stream renderer to a sound file: exactly the samples a live
// stream would play, 16-bit PCM mono WAV.

#include <cstdint>
#include <filesystem>
#include <string>

#include "sound/StreamRenderer.h"

namespace zt {

// Renders frames samples at sampleRate hertz, from stream frame 0, in blocks
// the size the live stream uses, and writes them to path (samples beyond
// -1..1 are clipped). False, with the reason in error, when the file cannot
// be written.
bool renderToWav(StreamRenderer& renderer, int sampleRate, std::int64_t frames,
                 const std::filesystem::path& path, std::string& error);

}  // namespace zt
