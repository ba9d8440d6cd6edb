#include "metronome/ClickMixer.h"

#include <algorithm>

namespace zt {

namespace {
bool isGroup(int group) {
    return group >= 0 && group < ClickMixer::kGroupCount;
}
}  // namespace

void ClickMixer::setGroupGain(int group, float gain) {
    if (isGroup(group))
        voices_[group].gain = gain;
}

float ClickMixer::groupGain(int group) const {
    return isGroup(group) ? voices_[group].gain : 0.0f;
}

void ClickMixer::play(int group, std::span<const float> samples) {
    if (!isGroup(group))
        return;
    voices_[group].samples = samples;
    voices_[group].position = 0;
}

void ClickMixer::mixInto(float* out, int frames) {
    if (frames <= 0)
        return;
    for (Voice& v : voices_) {
        if (v.position >= v.samples.size())
            continue;
        const size_t n =
            std::min<size_t>(static_cast<size_t>(frames), v.samples.size() - v.position);
        const float* src = v.samples.data() + v.position;
        for (size_t i = 0; i < n; ++i)
            out[i] += v.gain * src[i];
        v.position += n;
    }
}

void ClickMixer::stopAll() {
    for (Voice& v : voices_)
        v.position = v.samples.size();
}

bool ClickMixer::isSilent() const {
    return std::all_of(voices_.begin(), voices_.end(),
                       [](const Voice& v) { return v.position >= v.samples.size(); });
}

}  // namespace zt
