#pragma once
// The practice settings that sit on top of the plain metronome: what each beat
// of the bar plays, the speed trainer and muted bars. All of them are off (and
// every beat plain) by default, and then the metronome sounds exactly as it
// would without them.
//
// Beats: each beat of the bar is Accented, Normal or Silent. The first-beat
// accent switch ("isFirstBeatNeed") is the one truth for "beat 1 accented":
// beat 1 is Accented exactly when the switch is on, so turning the switch on
// accents beat 1 and turning it off makes it plain, while tapping beat 1 to
// Accented turns the switch on and tapping it on to Normal or Silent turns the
// switch off. A silent beat still counts; its subdivision is silent with it.
// A bar of one beat never accents (the accent marks a bar's start among others).
//
// Speed trainer: the tempo starts at `trainerStart`, moves by `trainerStep`
// towards `trainerEnd` every `trainerBars` bars, on the first beat of a bar,
// and holds at the end tempo. Tempos are wheel tempos (in eighth-note time the
// engine plays twice as many beats, as it does with the wheel).
//
// Muted bars: `mutePlayBars` bars sound, then `muteSilentBars` bars are
// silent, over and over; silent bars keep counting on the same grid.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "framework/Value.h"
#include "state/StateKeys.h"

namespace zt {

enum class BeatKind : std::uint8_t { Normal, Accented, Silent };

inline constexpr int kMaxBeats = state::metronome::kTimeSig1Value.max;
using BeatKinds = std::array<BeatKind, kMaxBeats>;

// Tap order on a beat mark: Accented -> Normal -> Silent -> Accented.
BeatKind nextBeatKind(BeatKind kind);
// 'A', 'N' or 'S'; and back, case-insensitive (nothing for another letter).
char beatLetter(BeatKind kind);
std::optional<BeatKind> beatKindForLetter(char letter);

namespace practice_keys {
using state::BoolKey;
using state::IntKey;
using state::TextKey;
inline constexpr TextKey kBeatAccents{"beatAccents", ""};
inline constexpr BoolKey kTrainerOn{"trainerOn", false};
inline constexpr IntKey kTrainerStart{"trainerStart", 60, 20, 240};
inline constexpr IntKey kTrainerEnd{"trainerEnd", 120, 20, 240};
inline constexpr IntKey kTrainerStep{"trainerStep", 5, 1, 220};
inline constexpr IntKey kTrainerBars{"trainerBars", 4, 1, 99};
inline constexpr BoolKey kMuteOn{"muteOn", false};
inline constexpr IntKey kMutePlayBars{"mutePlayBars", 3, 1, 99};
inline constexpr IntKey kMuteSilentBars{"muteSilentBars", 1, 1, 99};
}  // namespace practice_keys

struct PracticeSetup {
    // Beat 1's entry only tells Silent from the rest: the accent switch decides
    // between Accented and Normal (see beatKind).
    BeatKinds beats{};
    bool trainerOn = practice_keys::kTrainerOn.fallback;
    int trainerStart = practice_keys::kTrainerStart.fallback;
    int trainerEnd = practice_keys::kTrainerEnd.fallback;
    int trainerStep = practice_keys::kTrainerStep.fallback;
    int trainerBars = practice_keys::kTrainerBars.fallback;
    bool muteOn = practice_keys::kMuteOn.fallback;
    int mutePlayBars = practice_keys::kMutePlayBars.fallback;
    int muteSilentBars = practice_keys::kMuteSilentBars.fallback;

    bool operator==(const PracticeSetup&) const = default;
    bool isDefault() const { return *this == PracticeSetup{}; }
    // Trainer and muted bars, which shape the run as a whole.
    bool sameRunAs(const PracticeSetup& other) const;

    // The kind beat (1-based) plays, with the accent switch as given.
    BeatKind beatKind(int beat, bool firstBeatAccent) const;
    // Turning the accent switch on makes a silent beat 1 sound (accented).
    void followFirstBeatAccent(bool on) {
        if (on && beats[0] == BeatKind::Silent)
            beats[0] = BeatKind::Normal;
    }

    // Wheel tempo of bar (0 = the run's first) and the bars left, this one
    // included, before the next step; 0 once the end tempo holds or with the
    // trainer off (then the tempo is wheelTempo).
    int tempoForBar(std::int64_t bar, int wheelTempo) const;
    int barsToStep(std::int64_t bar) const;
    bool isBarMuted(std::int64_t bar) const;

    // One letter a beat, for the first `count` beats with the switch as given.
    std::string beatsText(int count, bool firstBeatAccent) const;
    // Sets beats from such letters, the rest Normal; false, changing nothing,
    // for an empty text, more than 16 letters or a letter other than A, N, S.
    bool setBeatsText(std::string_view text);

    // Reads the practice keys of a saved section or preset; a missing key is
    // its default (off), a bad one is too.
    void setSavedData(const Dictionary& data);
    // Adds the practice keys to data; with onlyWhenUsed, not when all are at
    // their defaults, so that a preset of plain settings is what it always was.
    void addSavedData(Dictionary& data, bool firstBeatAccent, bool onlyWhenUsed) const;
    // "" at the defaults, else a suffix for the preset state code.
    std::string stateSuffix(bool firstBeatAccent) const;

    // Every number forced into its range.
    PracticeSetup normalized() const;

    // The trainer's read-out while it plays a tempo with barsToStep bars
    // before its next step: "65 BPM, 3 bars to 70", or "120 BPM, holding".
    std::string trainerStatus(int tempo, int barsToStep) const;
};

}  // namespace zt
