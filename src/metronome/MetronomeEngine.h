#pragma once
// The metronome's sample-accurate engine: a scheduler that places every beat
// and subdivision at its exact sample on the stream clock, the tick logic
// that decides what sounds there, and the mixer that plays it. The same
// engine feeds the live stream (MetronomePlayer) and offline renders.
//
// Threads: one control thread calls start/stop/setCurrentPack/
// setIsFirstBeatNeed, which only queue a small command and return; one render
// thread calls render(), which applies the queued commands at the start of
// the block and never blocks or allocates.
//
// Timing: a start begins a new run at the first frame of the block that
// picks it up, and that very frame sounds the run's first beat, the first of
// a bar. A start while a run plays is a change of that run. When it keeps the
// time signature and the subdivision, the bar goes on: only the tempo moves,
// from the next beat on, which comes one new period after the last beat
// (at once, should that instant have passed already). Any other change begins
// a new bar at once, its first beat on the first frame of the block. A start
// after a stop was asked for begins a new run at once as well. A stop lets
// the clicks already sounding ring out.
//
// Practice settings: a change of the beats' kinds only changes the sound from
// the next beat on; a change of the speed trainer or of muted bars begins a
// new run. The run counts its bars from 0; the trainer's tempo for a bar takes
// over on that bar's first beat, whose instant starts the new grid, and while
// the trainer is on the wheel's tempo is not played.

#include <atomic>
#include <cstdint>
#include <optional>

#include "framework/SpscQueue.h"
#include "metronome/BeatGrid.h"
#include "metronome/ClickBank.h"
#include "metronome/ClickMixer.h"
#include "metronome/MetronomeOutput.h"
#include "metronome/TickLogic.h"
#include "sound/StreamRenderer.h"

namespace zt {

class MetronomeEngine : public MetronomeOutput, public StreamRenderer {
public:
    // A beat click as rendered: its frame on the stream clock, whether it
    // was the accent and its place in the bar (1 to the numerator).
    // Rendering runs ahead of what is heard by the stream's buffering.
    // Silent beats and the beats of muted bars are reported too (they still
    // count), with sounding false. tempo is the wheel tempo the beat was
    // played at, barsToStep what the trainer has left before its next step
    // (PracticeSetup::barsToStep).
    struct RenderedBeat {
        std::int64_t frame = 0;
        bool accented = false;
        int beatInBar = 1;
        bool sounding = true;
        int tempo = 0;
        int barsToStep = 0;
    };

    // sampleRate of the stream in hertz.
    explicit MetronomeEngine(int sampleRate, const ClickBank& bank = {});

    int sampleRate() const { return sampleRate_; }

    // Setup, only while render() is not running: the click samples and the
    // group gains.
    void setClickBank(const ClickBank& bank) { bank_ = bank; }
    ClickMixer& mixer() { return mixer_; }
    // Drops queued commands, the run and ringing clicks.
    void reset();

    // Control thread.
    void start(const MetronomeSetup& setup) override;
    void stop() override;
    void setCurrentPack(int packNumber) override;
    void setIsFirstBeatNeed(bool need) override;

    // Render thread: fills out[0..frames) with mono samples; firstFrame is the
    // stream clock of out[0]. Should the clock jump (a stream restarted), a
    // running bar carries on from where the last block ended.
    void render(float* out, int frames, std::int64_t firstFrame) override;

    // Control thread: the oldest rendered beat not yet taken. Beats are kept
    // only while there is room, so take them regularly while a run plays.
    std::optional<RenderedBeat> takeRenderedBeat() { return beats_.pop(); }

    // Any thread, as of the last rendered block: a run is playing or finishing.
    bool isRunning() const { return running_.load(std::memory_order_acquire); }
    // Any thread, as of the last rendered block: no run and no click ringing.
    bool isSilent() const { return silent_.load(std::memory_order_acquire); }
    // Any thread: the stream frame from which the output has been silent
    // (meaningful while isSilent()); rendered ahead of what is heard.
    std::int64_t silentFrom() const { return silentFrom_.load(std::memory_order_acquire); }

private:
    struct Command {
        enum class Kind : std::uint8_t { Start, Stop, SetPack, SetAccent };
        Kind kind = Kind::Stop;
        MetronomeSetup setup{};
        int value = 0;
    };

    void send(const Command& command);
    void applyCommands(std::int64_t frame);
    void applyStart(std::int64_t frame, const MetronomeSetup& setup);
    void beginRun(std::int64_t frame, const MetronomeSetup& setup);
    // Places the grids so that the next beat lies one period of bpm after
    // lastBeatFrame_, and not before frame.
    void changeTempo(std::int64_t frame, int bpm);
    // The first beat of a bar is about to sound: counts the bar, mutes it or
    // not and moves to the trainer's tempo for it.
    void beginBar();

    int sampleRate_;
    ClickBank bank_;
    ClickMixer mixer_;
    SpscQueue<Command, 64> commands_;
    SpscQueue<RenderedBeat, 64> beats_;

    // Render thread state.
    TickLogic logic_;
    MetronomeSetup runSetup_{};
    // The frame of the run's latest beat; empty until its first has sounded.
    std::optional<std::int64_t> lastBeatFrame_;
    BeatGrid beatGrid_;
    BeatGrid subdivisionGrid_;
    bool hasSubdivision_ = false;
    std::int64_t beatIndex_ = 0;
    std::int64_t subdivisionIndex_ = 0;
    std::int64_t nextBeatFrame_ = 0;
    std::int64_t nextSubdivisionFrame_ = 0;
    // The bar of the run the latest beat is in, -1 before the first, and the
    // wheel tempo the grids are playing.
    std::int64_t bar_ = -1;
    int gridTempo_ = 0;
    std::optional<std::int64_t> expectedFrame_;

    std::atomic<bool> running_{false};
    std::atomic<bool> silent_{true};
    std::atomic<std::int64_t> silentFrom_{0};
};

}  // namespace zt
