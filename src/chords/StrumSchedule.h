#pragma once
// What the six strings play for a shape and when. The sound bank holds one
// recording per string, its open note in standard tuning; a string sounds
// any other note by playing that recording 2^(n/12) times faster, n being
// the note's index (semitones above the recording, negative below). A whole
// chord sounds its strings one after the other, lowest first, 60 ms apart,
// skipping the muted ones.

#include <array>
#include <cstdint>

#include "chords/ChordVariation.h"

namespace zt {

// The strings of a shape by string number: notes[n - 1] is string n.
struct StringNotes {
    std::array<bool, kStringCount> canPlay{};        // a muted string cannot be played
    std::array<int, kStringCount> indexesOfNotes{};  // the note's index; 0 when muted
};

// The notes of a shape: every sounding string at its real pitch, whatever
// the tuning (E2 tuned down to D2 plays index -2 on the 6th string).
StringNotes stringNotes(const ChordVariation& v);

// Seconds between two strings of a whole chord.
inline constexpr double kStrumSpacingSeconds = 0.060;

struct StrumNote {
    int string = 1;           // string number, 1 (highest) to 6
    int index = 0;            // the note's index, as in StringNotes
    std::int64_t offset = 0;  // frames after the strum begins
};

struct StrumSchedule {
    std::array<StrumNote, kStringCount> notes{};
    int count = 0;
};

// The playable strings from the 6th to the 1st, kStrumSpacingSeconds apart
// at sampleRate hertz, the first `delay` frames after the strum begins.
StrumSchedule wholeChord(const StringNotes& notes, int sampleRate, std::int64_t delay = 0);
// One string, at once; nothing when the string is muted.
StrumSchedule singleString(const StringNotes& notes, int stringNumber);

}  // namespace zt
