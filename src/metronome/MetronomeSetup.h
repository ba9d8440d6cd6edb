#pragma once
// Every setting of the metronome that is saved, restored and shared with the
// presets: sound pack, time signature, subdivision pattern, accent and the
// tempo wheel row. Keys, defaults and ranges come from the saved-state key
// table (state/StateKeys.h), so they are declared in one place only.

#include <string>

#include "framework/Value.h"
#include "metronome/PracticeSetup.h"
#include "state/StateKeys.h"

namespace zt {

struct MetronomeSetup {
    int packNumber = state::metronome::kPackNumber.fallback;        // 1 to 5
    int timeSig1Value = state::metronome::kTimeSig1Value.fallback;  // numerator, 1 to 16
    int timeSig2Value = state::metronome::kTimeSig2Value.fallback;  // denominator, 4 or 8
    int notesPerBeat = state::metronome::kNotesPerBeat.fallback;    // subdivision pattern, 1 to 6
    bool isFirstBeatNeed = state::metronome::kIsFirstBeatNeed.fallback;
    bool isTempoX2 = state::metronome::kIsTempoX2.fallback;  // eighth-note beat, tempo doubled
    int BPM = state::metronome::kBPM.fallback;               // tempo wheel row, tempo - 20
    PracticeSetup practice;  // beats of the bar, speed trainer, muted bars

    bool operator==(const MetronomeSetup&) const = default;

    // The tempo on the wheel, 20 to 240.
    int tempo() const;
    // The beats per minute the engine plays: the tempo, doubled in eighth-note time.
    int beatsPerMinute() const;

    // The wheel tempo the run starts at: the trainer's start when it is on.
    int startTempo() const { return practice.tempoForBar(0, tempo()); }
    // Beats per minute the engine plays for a wheel tempo.
    int playedBeatsPerMinute(int wheelTempo) const {
        return isTempoX2 ? 2 * wheelTempo : wheelTempo;
    }

    // What beat (1 to 16) of the bar plays. Setting beat 1 also sets the
    // accent switch (on exactly for Accented); the switch on un-silences beat 1.
    BeatKind beatKind(int beat) const { return practice.beatKind(beat, isFirstBeatNeed); }
    void setBeatKind(int beat, BeatKind kind);
    void setIsFirstBeatNeed(bool need);

    // Sets the pack; an unknown pack number selects pack 1.
    void setCurrentPack(int pack);
    // Each returns false and changes nothing for a value the screen does not offer.
    bool setTimeSig1Value(int numerator);
    // The denominator also sets isTempoX2 (true exactly for 8) and, in
    // eighth-note time, reduces patterns 4 and 5 to 3.
    bool setTimeSig2Value(int denominator);
    bool setNotesPerBeat(int pattern);
    // Patterns offered under the current denominator: all six in quarter-note
    // time, 1, 2, 3 and 6 in eighth-note time.
    bool isPatternOffered(int pattern) const;

    // Reads a saved-state section or a preset. An empty dictionary gives the
    // defaults; a missing, malformed or out-of-range key gives that key's
    // default (an unknown pack, pack 1), and a row outside the wheel is
    // clamped to its nearest end. isTempoX2 follows the denominator, and a
    // pattern not offered in eighth-note time becomes 3, as the screen would
    // have set them.
    void setSavedData(const Dictionary& data);
    // "packNumber", "timeSig1Value", "timeSig2Value", "notesPerBeat",
    // "isFirstBeatNeed", "isTempoX2" and "BPM" (the wheel row), and the
    // practice keys. The saved section is merged with what it held, so a
    // practice setting back at its default must be written too.
    Dictionary savedData() const;
    // For a preset: the same, the practice keys only once any of them left
    // its default, plus "state" = currentState().
    Dictionary currentSettings() const;
    // "%d-%d-%d-%d-%d-%d-%d": pack, numerator, denominator, pattern, accent
    // (0 or 1), eighth-note beat (0 or 1) and wheel row; then the practice
    // settings, only once any of them left its default.
    std::string currentState() const;

    // The same setup with every field forced into its range; what the engine
    // plays, whatever it is handed.
    MetronomeSetup normalized() const;

private:
    // The seven keys every saved section and preset has always had.
    Dictionary plainData() const;
};

}  // namespace zt
