#pragma once
// The click samples the mixer plays, by sound id: mono float at the engine's
// sample rate. The bank only points at samples owned elsewhere (the sound
// engine's decoded sounds, or a ClickSet), which must outlive it and stay
// unchanged while it is in use.

#include <array>
#include <span>

namespace zt {

class ClickBank {
public:
    static constexpr int kMaxSoundId = 127;

    // Ignores ids outside 0..kMaxSoundId.
    void set(int soundId, std::span<const float> samples);
    // Empty for an id without samples: that click is silent.
    std::span<const float> get(int soundId) const;
    bool has(int soundId) const { return !get(soundId).empty(); }

private:
    std::array<std::span<const float>, kMaxSoundId + 1> sounds_{};
};

}  // namespace zt
