#pragma once
// A mixer of one voice per source group. Starting a click in a group cuts
// whatever that group was playing; different groups sound together. Nothing
// is allocated after construction, so it is safe on the audio thread.

#include <array>
#include <span>

namespace zt {

class ClickMixer {
public:
    // Groups 0..kGroupCount-1; the metronome uses 1 (beats) and 2 (subdivisions).
    static constexpr int kGroupCount = 3;

    // Linear gain of a group, 1.0 by default. Set before playing.
    void setGroupGain(int group, float gain);
    float groupGain(int group) const;

    // Starts samples from their beginning in the group, cutting its previous click.
    void play(int group, std::span<const float> samples);
    // Adds the next frames of every voice into out, advancing them.
    void mixInto(float* out, int frames);
    // Silences every voice at once.
    void stopAll();
    bool isSilent() const;

private:
    struct Voice {
        std::span<const float> samples;
        size_t position = 0;
        float gain = 1.0f;
    };
    std::array<Voice, kGroupCount> voices_{};
};

}  // namespace zt
