#pragma once
// Preset titles compared as a person reads them: ignoring letter case over
// the whole of Unicode ("Été" and "éTÉ" are the same title).

#include <string>
#include <string_view>

#include "framework/Value.h"

namespace zt {

// The title decoded from UTF-8 with each character lowered. Bytes that are
// not UTF-8 stay distinct (mapped into the surrogate range, which no
// character uses).
std::u32string foldCase(std::string_view text);

// What a preset plays, for its row: "120 BPM  3/4" (the tempo on the wheel
// and the time signature). Keys missing or out of range read as the
// metronome would read them.
std::string presetSummary(const Dictionary& preset);

}  // namespace zt
