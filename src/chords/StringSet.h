#pragma once
// The six string recordings of the sound bank ("sounds/E4_.caf" ... among
// the resources) read and owned here, for renders that run without the
// sound engine, such as the command-line tool.

#include <array>
#include <string>
#include <vector>

#include "chords/StrumEngine.h"

namespace zt {

class StringSet {
public:
    // Reads the six recordings at sampleRate hertz. False, with the reason
    // in error, when a file is missing or unreadable.
    bool load(int sampleRate, std::string& error);

    // Points at the samples held here; valid while this set lives unchanged.
    StrumEngine::Recordings recordings() const;

private:
    std::array<std::vector<float>, kStringCount> samples_;
};

}  // namespace zt
