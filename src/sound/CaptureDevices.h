#pragma once
// The capture devices openal-soft offers, by the names it gives them, and
// the choice of one by a saved name.

#include <string>
#include <vector>

namespace zt::capture {

// Every capture device's name, in openal-soft's order; empty when it cannot
// enumerate them (no ALC_ENUMERATION_EXT) or there are none.
std::vector<std::string> deviceNames();

// The device to open for a saved name: the name itself when it is among
// `available`, else the system's default (an empty name), with a log line
// when a named device has gone.
std::string chooseDevice(const std::string& saved, const std::vector<std::string>& available);

}  // namespace zt::capture
