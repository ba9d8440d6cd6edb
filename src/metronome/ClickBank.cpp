#include "metronome/ClickBank.h"

namespace zt {

void ClickBank::set(int soundId, std::span<const float> samples) {
    if (soundId < 0 || soundId > kMaxSoundId)
        return;
    sounds_[soundId] = samples;
}

std::span<const float> ClickBank::get(int soundId) const {
    if (soundId < 0 || soundId > kMaxSoundId)
        return {};
    return sounds_[soundId];
}

}  // namespace zt
