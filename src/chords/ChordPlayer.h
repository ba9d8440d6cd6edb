#pragma once
// The chords tool's strings on the sound card: a StrumEngine rendered
// through one of the sound engine's streaming voices, with the string
// recordings the sound engine has loaded (ids 1 to 6). The stream starts
// with the first note and runs until releaseStreamWhenSilent() finds every
// string silent; it sounds alongside the metronome's.
//
// Every call returns at once: a whole chord is one command, and its strings
// then start 60 ms apart on the stream clock, not on a timer of the caller.
// Calls come from one thread (the screen's). Without an output device the
// player logs once and stays silent.

#include <cstdint>

#include "chords/ChordOutput.h"
#include "chords/StrumEngine.h"
#include "sound/SoundEngine.h"

namespace zt {

class ChordPlayer final : public ChordOutput {
public:
    // The sound engine must outlive the player, and the string recordings
    // must stay loaded while the stream runs.
    explicit ChordPlayer(SoundEngine& sound);
    ~ChordPlayer() override;
    ChordPlayer(const ChordPlayer&) = delete;
    ChordPlayer& operator=(const ChordPlayer&) = delete;

    // The whole chord: its playable strings from the lowest, 60 ms apart,
    // the first after `delaySeconds`; nothing when no string can be played
    // (a chord without a fingering).
    void playChord(const StringNotes& notes, double delaySeconds = 0.0) override;
    // One string at once, as a finger crosses it; nothing when it is muted.
    void playString(const StringNotes& notes, int stringNumber) override;
    // Silences every string.
    void stop() override;

    // Stops the stream once every string has died away and been heard, so
    // that a silent player costs nothing. Call now and then (on leaving the
    // screen, or on a slow timer).
    void releaseStreamWhenSilent();
    bool isStreaming() const { return streaming_; }
    bool releaseWhenSilent() override {
        releaseStreamWhenSilent();
        return !streaming_;
    }

    // As of the stream position heard now: a note counts from the frame it
    // reaches the speaker, not from when it was rendered.
    HeardStrings heard() const override;

    StrumEngine& engine() { return engine_; }

private:
    bool ensureStream();

    SoundEngine& sound_;
    StrumEngine engine_;
    bool streaming_ = false;
    bool reportedNoDevice_ = false;
};

}  // namespace zt
