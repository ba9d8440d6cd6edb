#pragma once
// Offline renders of the metronome engine and the onsets found in them.
//
// Synthetic clicks make every onset self-describing: the click of sound id n
// is 64 samples long and starts at exactly n / 100 (0.51 for id 51), then
// falls linearly. Between clicks the output is exactly zero, so an onset is
// the first non-zero sample after a zero, and its value names the sound.

#include <cmath>
#include <cstdint>
#include <map>
#include <ostream>
#include <vector>

#include "metronome/ClickBank.h"
#include "metronome/MetronomeEngine.h"

namespace zt::test {

inline constexpr int kRate = 44100;

struct Onset {
    std::int64_t frame;
    int soundId;
    bool operator==(const Onset&) const = default;
};

inline std::ostream& operator<<(std::ostream& os, const Onset& o) {
    return os << "{" << o.frame << ", " << o.soundId << "}";
}

class SyntheticClicks {
public:
    explicit SyntheticClicks(int length = 64) {
        for (int id = 51; id <= 65; ++id) {
            auto& s = samples_[id];
            for (int i = 0; i < length; ++i)
                s.push_back(id / 100.0f * (1.0f - float(i) / length));
        }
    }
    ClickBank bank() const {
        ClickBank bank;
        for (const auto& [id, s] : samples_)
            bank.set(id, s);
        return bank;
    }

private:
    std::map<int, std::vector<float>> samples_;
};

// Finds onsets in a stream fed block by block.
class OnsetScanner {
public:
    void feed(const float* x, int n) {
        for (int i = 0; i < n; ++i, ++frame_) {
            if (x[i] != 0.0f && previousZero_) {
                onsets_.push_back({frame_, static_cast<int>(std::lround(x[i] * 100.0f))});
            }
            previousZero_ = x[i] == 0.0f;
        }
    }
    const std::vector<Onset>& onsets() const { return onsets_; }
    std::int64_t frame() const { return frame_; }

private:
    std::vector<Onset> onsets_;
    std::int64_t frame_ = 0;
    bool previousZero_ = true;
};

// Renders an engine from frame 0 in blocks, scanning what comes out. Block
// sizes cycle through the given list.
class Render {
public:
    explicit Render(MetronomeEngine& engine, std::vector<int> blocks = {256})
        : engine_(engine), blocks_(std::move(blocks)), buffer_(8192) {}

    // Renders up to (not including) frame `until`.
    Render& to(std::int64_t until) {
        while (scanner_.frame() < until) {
            int n = blocks_[next_++ % blocks_.size()];
            n = static_cast<int>(std::min<std::int64_t>(n, until - scanner_.frame()));
            engine_.render(buffer_.data(), n, scanner_.frame());
            scanner_.feed(buffer_.data(), n);
        }
        return *this;
    }
    const std::vector<Onset>& onsets() const { return scanner_.onsets(); }
    // Onsets at or after frame.
    std::vector<Onset> onsetsFrom(std::int64_t frame) const {
        std::vector<Onset> out;
        for (const auto& o : onsets())
            if (o.frame >= frame)
                out.push_back(o);
        return out;
    }

private:
    MetronomeEngine& engine_;
    std::vector<int> blocks_;
    std::vector<float> buffer_;
    OnsetScanner scanner_;
    size_t next_ = 0;
};

// Onsets of recorded audio: the first sample above `threshold` after at
// least `quietFrames` samples at or below it.
inline std::vector<std::int64_t> onsetsAfterQuiet(const std::vector<float>& samples,
                                                  float threshold, std::int64_t quietFrames) {
    std::vector<std::int64_t> onsets;
    std::int64_t quiet = quietFrames;
    for (size_t i = 0; i < samples.size(); ++i) {
        const bool loud = std::abs(samples[i]) > threshold;
        if (loud && quiet >= quietFrames)
            onsets.push_back(static_cast<std::int64_t>(i));
        quiet = loud ? 0 : quiet + 1;
    }
    return onsets;
}

// A setup at a tempo (beats per minute on the wheel) with a numerator and a pattern.
inline MetronomeSetup setupAt(int tempo, int numerator = 4, int pattern = 1, int denominator = 4) {
    MetronomeSetup s;
    s.BPM = tempo - 20;
    s.setTimeSig1Value(numerator);
    s.setTimeSig2Value(denominator);
    s.setNotesPerBeat(pattern);
    return s;
}

// Where `beats` (a whole number of slots over slotsPerBeat) lands at bpm:
// the nearest sample, from an independent floating-point computation.
inline std::int64_t idealFrame(std::int64_t slots, int slotsPerBeat, int bpm,
                               std::int64_t start = 0) {
    return start + std::llround(double(slots) * 60.0 * kRate / (double(bpm) * slotsPerBeat));
}

}  // namespace zt::test
