#pragma once
// One scale for every input-level meter: the share, 0 to 1, of the
// detector's threshold scale (its minimum to its maximum magnitude) that the
// strongest spectral peak reaches. The threshold itself sits on it at its
// percentage, so a meter can mark where sound starts to count.
//
// The two readings the meters get are both linear in that magnitude but
// counted differently. The level-only reading is already the percentage.
// The reading that comes with a pitch is a step of 0 to 10 measured from the
// threshold: step v covers the percentages from t + 10 (v - 4) up to
// t + 10 (v - 3), with everything below t - 30 in step 0 and everything from
// t + 60 up in step 10. Placing a step at the middle of its band keeps both
// meters within half a band (0.05) of each other for the same sound.

namespace zt::level {

// A percentage of the threshold scale (the level-only reading, or the
// threshold itself) on the meter, held to 0 ... 1.
double ofPercent(int percent);

// A pitch reading's step (0 to 10) under the threshold `tresholdPercent` on
// the scale: 0 for step 0 and below, the band's lower edge for step 10 (the
// band is open above), else the band's middle; held to 0 ... 1.
double ofPitchStep(int step, int tresholdPercent);

}  // namespace zt::level
