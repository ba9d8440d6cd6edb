#include "chords/StrumSchedule.h"

#include <cmath>

#include "sound/SoundBank.h"

namespace zt {

StringNotes stringNotes(const ChordVariation& v) {
    StringNotes notes;
    for (int p = 0; p < v.playedStrings(); ++p) {
        const int number = v.firstString - p;
        const auto n = static_cast<std::size_t>(number - 1);
        notes.canPlay[n] = true;
        notes.indexesOfNotes[n] = v.pitches[p] - SoundBank::openStringNote(number - 1);
    }
    return notes;
}

StrumSchedule wholeChord(const StringNotes& notes, int sampleRate, std::int64_t delay) {
    const auto spacing = static_cast<std::int64_t>(std::llround(kStrumSpacingSeconds * sampleRate));
    StrumSchedule schedule;
    for (int number = kStringCount; number >= 1; --number) {
        const auto n = static_cast<std::size_t>(number - 1);
        if (!notes.canPlay[n])
            continue;
        schedule.notes[static_cast<std::size_t>(schedule.count)] = {
            number, notes.indexesOfNotes[n], delay + spacing * schedule.count};
        ++schedule.count;
    }
    return schedule;
}

StrumSchedule singleString(const StringNotes& notes, int stringNumber) {
    StrumSchedule schedule;
    if (stringNumber < 1 || stringNumber > kStringCount)
        return schedule;
    const auto n = static_cast<std::size_t>(stringNumber - 1);
    if (notes.canPlay[n]) {
        schedule.notes[0] = {stringNumber, notes.indexesOfNotes[n], 0};
        schedule.count = 1;
    }
    return schedule;
}

}  // namespace zt
