#pragma once
// Source of one of the engine's streaming voices (SoundEngine::startStream).

#include <cstdint>

namespace zt {

class StreamRenderer {
public:
    virtual ~StreamRenderer() = default;
    // Called on the engine's stream thread; fill `frames` mono float samples (-1..1).
    // firstFrame = index of out[0] on the stream clock (frames since startStream).
    virtual void render(float* out, int frames, std::int64_t firstFrame) = 0;
};

}  // namespace zt
