#pragma once
// zebtools-cli metronome: renders what the metronome plays to a WAV file.

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "metronome/MetronomeSetup.h"

namespace zt::cli {

struct MetronomeJob {
    MetronomeSetup setup;
    double seconds = 30.0;
    std::filesystem::path out;
};

// The job the arguments describe; nullopt, with the reason in error, for bad
// arguments. Not used for --help.
std::optional<MetronomeJob> parseMetronomeJob(const std::vector<std::string>& args,
                                              std::string& error);

int runMetronomeCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace zt::cli
