#pragma once
// The by-ear tuner's six strings, rendered sample by sample: one voice per
// string playing that string's recording at 2^(semitones/12) of its speed,
// once, or over and over until stopped. A new tone on a string cuts the one
// it was playing; different strings ring together.
//
// Threads: one control thread calls play() and stop(), which only queue a
// small command and return; one render thread calls render(), which applies
// the queued commands at the first frame of its block and never blocks or
// allocates. So a tone starts, and stops, on the stream clock.

#include <array>
#include <atomic>
#include <cstdint>
#include <span>

#include "framework/SpscQueue.h"
#include "sound/StreamRenderer.h"

namespace zt {

class StringTones final : public StreamRenderer {
public:
    static constexpr int kStrings = 6;
    // Each string's level: the recordings peak near full scale, and a few
    // strings touched in quick succession ring together.
    static constexpr float kGain = 0.3f;

    // By string number: [n - 1] is string n, mono at the engine's rate. The
    // samples are owned elsewhere (the sound engine's decoded sounds) and
    // must outlive their use here. An empty recording leaves its string
    // silent.
    using Recordings = std::array<std::span<const float>, kStrings>;

    // Only while render() is not running.
    void setRecordings(const Recordings& recordings) { recordings_ = recordings; }
    // Drops queued commands and silences every string.
    void reset();

    // Control thread; string 1 to 6. False when the queue is full (the
    // render thread has stopped taking commands) and the command is dropped.
    bool play(int stringNumber, int semitones, bool loop);
    // At `speed` times the recording's own (positive and finite).
    bool playAt(int stringNumber, double speed, bool loop);
    bool stop(int stringNumber);

    // Render thread: fills out[0..frames) with mono samples.
    void render(float* out, int frames, std::int64_t firstFrame) override;

    // Any thread, as of the last rendered block: nothing sounds.
    bool isSilent() const { return silent_.load(std::memory_order_acquire); }
    // Any thread: the stream frame from which the output has been silent
    // (meaningful while isSilent()).
    std::int64_t silentFrom() const { return silentFrom_.load(std::memory_order_acquire); }

private:
    struct Command {
        int string = 1;
        bool stop = false;
        bool loop = false;
        double step = 1.0;
    };
    struct Voice {
        std::span<const float> samples;
        double position = 0.0;
        double step = 1.0;  // recording frames per output frame
        bool loop = false;
        bool playing = false;
    };

    void applyCommands();
    static void mix(Voice& voice, float* out, int frames);

    Recordings recordings_{};
    SpscQueue<Command, 32> commands_;
    std::array<Voice, kStrings> voices_{};
    std::atomic<bool> silent_{true};
    std::atomic<std::int64_t> silentFrom_{0};
};

}  // namespace zt
