#include "metronome/SubdivisionPattern.h"

namespace zt {

SubdivisionPattern subdivisionPattern(int notesPerBeat) {
    SubdivisionPattern p;
    if (notesPerBeat <= kFirstPattern || notesPerBeat > kLastPattern)
        return p;
    // Every slot but the first clicks, then patterns 5 and 6 thin that out
    // over four and three slots.
    p.slotsPerBeat = notesPerBeat;
    if (notesPerBeat == 5)
        p.slotsPerBeat = 4;
    if (notesPerBeat == 6)
        p.slotsPerBeat = 3;
    for (int slot = 1; slot < p.slotsPerBeat; ++slot)
        p.mask[slot] = true;
    if (notesPerBeat == 5)
        p.mask[1] = p.mask[2] = false;
    if (notesPerBeat == 6)
        p.mask[1] = false;
    return p;
}

}  // namespace zt
