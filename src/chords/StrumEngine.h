#pragma once
// The six strings of the chords tool, rendered sample by sample: one voice
// per string, each playing that string's recording at the pitch of its note.
// A new note on a string cuts the note it was playing, as a plucked string
// does; different strings ring together. The same engine feeds the live
// stream (ChordPlayer) and renders to files.
//
// Threads: one control thread calls play() and stop(), which only queue a
// small command and return; one render thread calls render(), which applies
// the queued commands at the start of the block and never blocks or
// allocates.
//
// Timing: a strum begins at the first frame of the block that picks it up,
// and each of its notes starts exactly its offset later, on the stream clock.

#include <array>
#include <atomic>
#include <cstdint>
#include <span>

#include "chords/StrumSchedule.h"
#include "framework/SpscQueue.h"
#include "sound/StreamRenderer.h"

namespace zt {

class StrumEngine final : public StreamRenderer {
public:
    // Each string's level. The recordings peak near full scale; six of them
    // ringing together, 60 ms apart, reach up to four times that, so each
    // plays at a fifth and a full strum stays clear of clipping.
    static constexpr float kStringGain = 0.2f;

    // The recordings, by string number: [n - 1] is string n, mono at the
    // engine's rate. The samples are owned elsewhere (the sound engine's
    // decoded sounds, or a StringSet) and must outlive their use here. An
    // empty recording leaves its string silent.
    using Recordings = std::array<std::span<const float>, kStringCount>;

    // sampleRate of the stream in hertz.
    explicit StrumEngine(int sampleRate, const Recordings& recordings = {});

    int sampleRate() const { return sampleRate_; }

    // Only while render() is not running.
    void setRecordings(const Recordings& recordings) { recordings_ = recordings; }
    // Drops queued strums and silences every string.
    void reset();

    // Control thread. False when the queue is full (the render thread has
    // stopped taking commands) and the strum is dropped.
    bool play(const StrumSchedule& schedule);
    // Silences every string and forgets the notes still to come.
    bool stop();

    // Render thread: fills out[0..frames) with mono samples; firstFrame is
    // the stream clock of out[0].
    void render(float* out, int frames, std::int64_t firstFrame) override;

    // Any thread, as of the last rendered block: nothing sounds and nothing
    // is waiting to.
    bool isSilent() const { return silent_.load(std::memory_order_acquire); }
    // Any thread: the stream frame from which the output has been silent
    // (meaningful while isSilent()).
    std::int64_t silentFrom() const { return silentFrom_.load(std::memory_order_acquire); }

    // Frames from the start of a strum until its last note has died away.
    std::int64_t length(const StrumSchedule& schedule) const;

    // Any thread: the stream frame at which string n's (1 to 6) latest note
    // began, as rendered; kNotStarted when none has since the last reset or
    // stop. Ahead of what is heard by the device's latency.
    static constexpr std::int64_t kNotStarted = -1;
    std::int64_t startedAt(int stringNumber) const;
    // Any thread: the frame by which every note taken from the queue so far
    // has begun (later notes of a strum wait until then).
    std::int64_t lastScheduledStart() const {
        return lastScheduled_.load(std::memory_order_acquire);
    }
    // Control thread: a strum asked for that the render thread has not yet
    // taken.
    bool hasQueued() const { return taken_.load(std::memory_order_acquire) < sent_; }

private:
    struct Command {
        bool stop = false;
        StrumSchedule schedule;
    };
    // One string: the note it plays and the one waiting to start.
    struct Voice {
        std::span<const float> samples;
        double position = 0.0;
        double step = 1.0;  // recording frames per output frame
        bool playing = false;
        bool pending = false;
        std::int64_t pendingStart = 0;
        double pendingStep = 1.0;
    };

    void applyCommands(std::int64_t frame);
    void forgetStarts();
    // Adds the voice's samples for out[from..to) and advances it.
    static void mix(Voice& voice, float* out, int from, int to);

    const int sampleRate_;
    Recordings recordings_;
    SpscQueue<Command, 16> commands_;

    // Render thread state.
    std::array<Voice, kStringCount> voices_{};

    // Control thread: strums pushed; render thread: strums taken.
    std::uint64_t sent_ = 0;
    std::atomic<std::uint64_t> taken_{0};
    std::array<std::atomic<std::int64_t>, kStringCount> started_{};
    std::atomic<std::int64_t> lastScheduled_{0};

    std::atomic<bool> silent_{true};
    std::atomic<std::int64_t> silentFrom_{0};
};

}  // namespace zt
