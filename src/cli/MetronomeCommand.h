#pragma once
// zebtools-cli metronome: renders what the metronome plays to a WAV file.

#include <filesystem>

#include "cli/CliCommand.h"
#include "metronome/MetronomeSetup.h"

namespace zt::cli {

struct MetronomeJob {
    MetronomeSetup setup;
    double seconds = 30.0;
    std::filesystem::path out;
};

class MetronomeCommand final : public CliCommand {
public:
    explicit MetronomeCommand(CLI::App& parent);

    // What the parsed command line asks for.
    const MetronomeJob& job() const { return job_; }

    int run(std::ostream& out, std::ostream& err) override;

private:
    // Checks what single options cannot (the pattern against the beat) and
    // fills job_; throws CLI::ValidationError, so bad input exits with 2.
    void makeJob();

    MetronomeJob job_;  // first: the options below start from its defaults
    int bpm_;
    std::string signature_ = "2/4";
    int pattern_;
    int pack_;
    std::string accent_ = "on";
    std::string beats_;
    std::string trainer_;
    std::string mute_;
    std::string out_;
};

}  // namespace zt::cli
