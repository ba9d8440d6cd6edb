#include "tuners/StringTones.h"

#include <algorithm>
#include <cmath>

#include "framework/Log.h"

namespace zt {

void StringTones::reset() {
    while (commands_.pop()) {
    }
    voices_ = {};
    silentFrom_.store(0, std::memory_order_release);
    silent_.store(true, std::memory_order_release);
}

bool StringTones::play(int stringNumber, int semitones, bool loop) {
    return playAt(stringNumber, std::exp2(semitones / 12.0), loop);
}

bool StringTones::playAt(int stringNumber, double speed, bool loop) {
    if (stringNumber < 1 || stringNumber > kStrings || !(speed > 0.0) || !std::isfinite(speed))
        return false;
    if (commands_.push({stringNumber, false, loop, speed}))
        return true;
    log("by-ear tuner: tone queue full, tone dropped");
    return false;
}

bool StringTones::stop(int stringNumber) {
    if (stringNumber < 1 || stringNumber > kStrings)
        return false;
    return commands_.push({stringNumber, true, false, 1.0});
}

void StringTones::applyCommands() {
    while (auto command = commands_.pop()) {
        const auto s = static_cast<std::size_t>(command->string - 1);
        Voice& v = voices_[s];
        if (command->stop) {
            v.playing = false;
            continue;
        }
        v.samples = recordings_[s];
        v.position = 0.0;
        v.step = command->step;
        v.loop = command->loop;
        v.playing = v.samples.size() >= 2;
    }
}

void StringTones::mix(Voice& v, float* out, int frames) {
    if (!v.playing)
        return;
    const float* s = v.samples.data();
    const std::size_t size = v.samples.size();
    // Linear interpolation between recorded samples. Played once, the last
    // sample is only ever the right-hand neighbour; looped, the recording's
    // first sample follows its last.
    const double end = static_cast<double>(v.loop ? size : size - 1);
    for (int i = 0; i < frames; ++i) {
        if (v.position >= end) {
            if (!v.loop) {
                v.playing = false;
                return;
            }
            v.position -= end;
        }
        const auto at = static_cast<std::size_t>(v.position);
        const float next = s[at + 1 < size ? at + 1 : 0];
        const auto frac = static_cast<float>(v.position - static_cast<double>(at));
        out[i] += kGain * (s[at] + frac * (next - s[at]));
        v.position += v.step;
    }
}

void StringTones::render(float* out, int frames, std::int64_t firstFrame) {
    if (!out || frames <= 0)
        return;
    std::fill_n(out, frames, 0.0f);
    applyCommands();
    bool silent = true;
    for (Voice& v : voices_) {
        mix(v, out, frames);
        silent = silent && !v.playing;
    }
    if (silent && !silent_.load(std::memory_order_relaxed))
        silentFrom_.store(firstFrame + frames, std::memory_order_release);
    silent_.store(silent, std::memory_order_release);
}

}  // namespace zt
