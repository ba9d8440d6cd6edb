#pragma once
// Click samples read from the pack files ("sounds/1_tick.caf" and so on among
// the resources) and owned here, for renders that run without the sound
// engine, such as the command-line tool.

#include <map>
#include <string>
#include <vector>

#include "metronome/ClickBank.h"

namespace zt {

class ClickSet {
public:
    // Reads the tick, tock and subtick of a pack at sampleRate hertz. False,
    // with the reason in error, when a file is missing or unreadable; the
    // clicks read so far are kept.
    bool loadPack(int packNumber, int sampleRate, std::string& error);

    // Points at the samples held here; valid while this set lives unchanged.
    ClickBank bank() const;

private:
    std::map<int, std::vector<float>> samples_;
};

}  // namespace zt
