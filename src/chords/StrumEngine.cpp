#include "chords/StrumEngine.h"

#include <algorithm>
#include <cmath>

#include "framework/Log.h"

namespace zt {

namespace {

// Playback-rate factor of a note n semitones above its string's recording.
double stepOf(int index) {
    return std::exp2(index / 12.0);
}

}  // namespace

StrumEngine::StrumEngine(int sampleRate, const Recordings& recordings)
    : sampleRate_(std::max(sampleRate, 1)), recordings_(recordings) {
    forgetStarts();
}

void StrumEngine::forgetStarts() {
    for (auto& start : started_)
        start.store(kNotStarted, std::memory_order_release);
    lastScheduled_.store(0, std::memory_order_release);
}

std::int64_t StrumEngine::startedAt(int stringNumber) const {
    if (stringNumber < 1 || stringNumber > kStringCount)
        return kNotStarted;
    return started_[static_cast<std::size_t>(stringNumber - 1)].load(std::memory_order_acquire);
}

void StrumEngine::reset() {
    while (commands_.pop()) {
    }
    taken_.store(sent_, std::memory_order_release);
    voices_ = {};
    forgetStarts();
    silentFrom_.store(0, std::memory_order_release);
    silent_.store(true, std::memory_order_release);
}

bool StrumEngine::play(const StrumSchedule& schedule) {
    if (commands_.push({false, schedule})) {
        ++sent_;
        return true;
    }
    log("chords: strum queue full, strum dropped");
    return false;
}

bool StrumEngine::stop() {
    if (!commands_.push({true, {}}))
        return false;
    ++sent_;
    return true;
}

void StrumEngine::applyCommands(std::int64_t frame) {
    while (auto command = commands_.pop()) {
        taken_.fetch_add(1, std::memory_order_acq_rel);
        if (command->stop) {
            voices_ = {};
            forgetStarts();
            continue;
        }
        const StrumSchedule& s = command->schedule;
        for (int i = 0; i < s.count; ++i) {
            const StrumNote& note = s.notes[static_cast<std::size_t>(i)];
            if (note.string < 1 || note.string > kStringCount)
                continue;
            Voice& v = voices_[static_cast<std::size_t>(note.string - 1)];
            v.pending = true;
            v.pendingStart = frame + std::max<std::int64_t>(note.offset, 0);
            v.pendingStep = stepOf(note.index);
            if (v.pendingStart > lastScheduled_.load(std::memory_order_relaxed))
                lastScheduled_.store(v.pendingStart, std::memory_order_release);
        }
    }
}

void StrumEngine::mix(Voice& v, float* out, int from, int to) {
    if (!v.playing)
        return;
    const float* s = v.samples.data();
    // Linear interpolation between recorded samples; the last one is only
    // ever the right-hand neighbour.
    const double end = static_cast<double>(v.samples.size()) - 1.0;
    for (int i = from; i < to; ++i) {
        if (v.position >= end) {
            v.playing = false;
            return;
        }
        const auto at = static_cast<std::size_t>(v.position);
        const auto frac = static_cast<float>(v.position - static_cast<double>(at));
        out[i] += kStringGain * (s[at] + frac * (s[at + 1] - s[at]));
        v.position += v.step;
    }
}

void StrumEngine::render(float* out, int frames, std::int64_t firstFrame) {
    if (!out || frames <= 0)
        return;
    std::fill_n(out, frames, 0.0f);
    applyCommands(firstFrame);

    const std::int64_t end = firstFrame + frames;
    bool silent = true;
    for (int n = 0; n < kStringCount; ++n) {
        Voice& v = voices_[static_cast<std::size_t>(n)];
        int mixed = 0;
        if (v.pending && v.pendingStart < end) {
            const int at = static_cast<int>(std::max<std::int64_t>(v.pendingStart - firstFrame, 0));
            mix(v, out, 0, at);
            mixed = at;
            v.pending = false;
            v.samples = recordings_[static_cast<std::size_t>(n)];
            v.position = 0.0;
            v.step = v.pendingStep;
            v.playing = v.samples.size() >= 2;
            started_[static_cast<std::size_t>(n)].store(std::max(v.pendingStart, firstFrame),
                                                        std::memory_order_release);
        }
        mix(v, out, mixed, frames);
        silent = silent && !v.playing && !v.pending;
    }

    if (silent && !silent_.load(std::memory_order_relaxed))
        silentFrom_.store(end, std::memory_order_release);
    silent_.store(silent, std::memory_order_release);
}

std::int64_t StrumEngine::length(const StrumSchedule& schedule) const {
    std::int64_t longest = 0;
    for (int i = 0; i < schedule.count; ++i) {
        const StrumNote& note = schedule.notes[static_cast<std::size_t>(i)];
        if (note.string < 1 || note.string > kStringCount)
            continue;
        const auto size = recordings_[static_cast<std::size_t>(note.string - 1)].size();
        const auto ring =
            static_cast<std::int64_t>(std::ceil(static_cast<double>(size) / stepOf(note.index)));
        longest = std::max(longest, std::max<std::int64_t>(note.offset, 0) + ring);
    }
    return longest;
}

}  // namespace zt
