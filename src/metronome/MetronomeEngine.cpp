#include "metronome/MetronomeEngine.h"

#include <algorithm>

#include "framework/Log.h"

namespace zt {

MetronomeEngine::MetronomeEngine(int sampleRate, const ClickBank& bank)
    : sampleRate_(std::max(sampleRate, 1)), bank_(bank) {}

void MetronomeEngine::reset() {
    while (commands_.pop()) {
    }
    while (beats_.pop()) {
    }
    logic_ = TickLogic{};
    lastBeatFrame_.reset();
    mixer_.stopAll();
    expectedFrame_.reset();
    running_.store(false, std::memory_order_release);
    silentFrom_.store(0, std::memory_order_release);
    silent_.store(true, std::memory_order_release);
}

void MetronomeEngine::send(const Command& command) {
    // Only a render thread that has stopped consuming lets the queue fill up.
    if (!commands_.push(command))
        log("metronome: command queue full, command dropped");
}

void MetronomeEngine::start(const MetronomeSetup& setup) {
    send({Command::Kind::Start, setup.normalized(), 0});
}

void MetronomeEngine::stop() {
    send({Command::Kind::Stop, {}, 0});
}

void MetronomeEngine::setCurrentPack(int packNumber) {
    send({Command::Kind::SetPack, {}, packNumber});
}

void MetronomeEngine::setIsFirstBeatNeed(bool need) {
    send({Command::Kind::SetAccent, {}, need ? 1 : 0});
}

void MetronomeEngine::applyCommands(std::int64_t frame) {
    while (auto command = commands_.pop()) {
        switch (command->kind) {
            case Command::Kind::Start:
                applyStart(frame, command->setup);
                break;
            case Command::Kind::Stop:
                if (logic_.isRunning())
                    logic_.requestStop();
                break;
            case Command::Kind::SetPack:
                logic_.setCurrentPack(command->value);
                runSetup_.setCurrentPack(command->value);
                break;
            case Command::Kind::SetAccent:
                logic_.setIsFirstBeatNeed(command->value != 0);
                runSetup_.isFirstBeatNeed = command->value != 0;
                break;
        }
    }
}

void MetronomeEngine::applyStart(std::int64_t frame, const MetronomeSetup& setup) {
    const bool sameBar = setup.timeSig1Value == runSetup_.timeSig1Value &&
                         setup.timeSig2Value == runSetup_.timeSig2Value &&
                         setup.notesPerBeat == runSetup_.notesPerBeat &&
                         setup.practice.sameRunAs(runSetup_.practice);
    if (!logic_.isRunning() || logic_.stopRequested() || !lastBeatFrame_ || !sameBar) {
        beginRun(frame, setup);
        return;
    }
    logic_.setCurrentPack(setup.packNumber);
    logic_.setIsFirstBeatNeed(setup.isFirstBeatNeed);
    logic_.setBeats(setup.practice.beats);
    const int bpm = setup.beatsPerMinute();
    if (!setup.practice.trainerOn && bpm != runSetup_.beatsPerMinute()) {
        changeTempo(frame, bpm);
        gridTempo_ = setup.tempo();
    }
    runSetup_ = setup;
}

void MetronomeEngine::beginRun(std::int64_t frame, const MetronomeSetup& setup) {
    logic_.start(setup);
    runSetup_ = setup;
    lastBeatFrame_.reset();
    bar_ = -1;
    gridTempo_ = setup.startTempo();
    const int bpm = setup.playedBeatsPerMinute(gridTempo_);
    beatGrid_ = BeatGrid(frame, sampleRate_, bpm, 1);
    beatIndex_ = 0;
    nextBeatFrame_ = frame;
    hasSubdivision_ = logic_.subticksInBeatCount() > 0;
    if (hasSubdivision_) {
        subdivisionGrid_ = BeatGrid(frame, sampleRate_, bpm, logic_.subticksInBeatCount());
        subdivisionIndex_ = 0;
        nextSubdivisionFrame_ = frame;
    }
}

void MetronomeEngine::changeTempo(std::int64_t frame, int bpm) {
    // Both grids start one new period before the next beat, so that beat and
    // the subdivisions still to come in the current beat fall on the new grid.
    const std::int64_t period = BeatGrid(0, sampleRate_, bpm, 1).frameOf(1);
    const std::int64_t anchor = std::max(*lastBeatFrame_, frame - period);
    beatGrid_ = BeatGrid(anchor, sampleRate_, bpm, 1);
    beatIndex_ = 1;
    nextBeatFrame_ = beatGrid_.frameOf(beatIndex_);
    if (hasSubdivision_) {
        const int slots = logic_.subticksInBeatCount();
        subdivisionGrid_ = BeatGrid(anchor, sampleRate_, bpm, slots);
        subdivisionIndex_ = 1;
        while (subdivisionGrid_.frameOf(subdivisionIndex_) < frame)
            ++subdivisionIndex_;
        nextSubdivisionFrame_ = subdivisionGrid_.frameOf(subdivisionIndex_);
        logic_.setCurrentSubtickIndex(static_cast<int>(subdivisionIndex_ % slots));
    }
}

void MetronomeEngine::beginBar() {
    ++bar_;
    logic_.setBarMuted(runSetup_.practice.isBarMuted(bar_));
    const int tempo = runSetup_.practice.tempoForBar(bar_, runSetup_.tempo());
    if (tempo == gridTempo_)
        return;
    // The bar's first beat is the new grid's instant 0, at its exact time, so
    // that rounding never adds up over the steps; its subdivision instant 0,
    // on the same frame, has not been played yet (beats go first).
    gridTempo_ = tempo;
    const int bpm = runSetup_.playedBeatsPerMinute(tempo);
    const double exact = beatGrid_.exactTimeOf(beatIndex_);
    beatGrid_ = BeatGrid::fromExactStart(exact, sampleRate_, bpm, 1);
    beatIndex_ = 0;
    if (hasSubdivision_) {
        subdivisionGrid_ =
            BeatGrid::fromExactStart(exact, sampleRate_, bpm, logic_.subticksInBeatCount());
        subdivisionIndex_ = 0;
        nextSubdivisionFrame_ = subdivisionGrid_.frameOf(0);
    }
}

void MetronomeEngine::render(float* out, int frames, std::int64_t firstFrame) {
    if (!out || frames <= 0)
        return;
    std::fill_n(out, frames, 0.0f);

    if (expectedFrame_ && firstFrame != *expectedFrame_ && logic_.isRunning()) {
        const std::int64_t jump = firstFrame - *expectedFrame_;
        beatGrid_.shift(jump);
        subdivisionGrid_.shift(jump);
        nextBeatFrame_ += jump;
        nextSubdivisionFrame_ += jump;
        if (lastBeatFrame_)
            *lastBeatFrame_ += jump;
    }
    expectedFrame_ = firstFrame + frames;
    applyCommands(firstFrame);

    const std::int64_t end = firstFrame + frames;
    int mixed = 0;
    while (logic_.isRunning()) {
        // On a shared instant the beat goes first, as it always has.
        const bool beat = !hasSubdivision_ || nextBeatFrame_ <= nextSubdivisionFrame_;
        const std::int64_t at = beat ? nextBeatFrame_ : nextSubdivisionFrame_;
        if (at >= end)
            break;
        const int offset = static_cast<int>(at - firstFrame);
        mixer_.mixInto(out + mixed, offset - mixed);
        mixed = offset;

        TickLogic::Tick tick;
        // The bar position the beat about to sound stands on.
        const int beatInBar = logic_.beatNumber();
        if (beat) {
            if (beatInBar == 1)
                beginBar();
            tick = logic_.mainTick();
            nextBeatFrame_ = beatGrid_.frameOf(++beatIndex_);
        } else {
            tick = logic_.subTick();
            nextSubdivisionFrame_ = subdivisionGrid_.frameOf(++subdivisionIndex_);
        }
        if (tick.soundId != 0)
            mixer_.play(tick.group, bank_.get(tick.soundId));
        if (tick.counted) {
            lastBeatFrame_ = at;
            // When nobody takes them the queue is full and beats are skipped.
            beats_.push({at, tick.soundId == logic_.sounds().tock, beatInBar, tick.soundId != 0,
                         gridTempo_, runSetup_.practice.barsToStep(bar_)});
        }
    }
    mixer_.mixInto(out + mixed, frames - mixed);

    running_.store(logic_.isRunning(), std::memory_order_release);
    const bool silent = !logic_.isRunning() && mixer_.isSilent();
    if (silent && !silent_.load(std::memory_order_relaxed))
        silentFrom_.store(end, std::memory_order_release);
    silent_.store(silent, std::memory_order_release);
}

}  // namespace zt
