#pragma once
// zebtools-cli chords: the fingerings of a chord in any tuning, as diagrams
// or JSON; every chord in every tuning at once; or a chord strummed into a
// WAV file as the app plays it.

#include <string>

#include "cli/CliCommand.h"

namespace zt::cli {

class ChordsCommand final : public CliCommand {
public:
    explicit ChordsCommand(CLI::App& parent);

    int run(std::ostream& out, std::ostream& err) override;

private:
    // Checks what single options cannot (which of NAME, --all and --play);
    // throws CLI::ValidationError, so bad input exits with 2.
    void checkChoice();

    int printChord(std::ostream& out) const;
    int walkAll(std::ostream& out) const;
    int play(std::ostream& out, std::ostream& err) const;

    std::string name_;
    std::string tuning_ = "Standard";
    int limit_ = 0;
    bool json_ = false;
    bool all_ = false;
    std::string play_;
    int variation_ = 1;
    std::string out_;
};

}  // namespace zt::cli
