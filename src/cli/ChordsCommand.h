#pragma once
// zebtools-cli chords: the fingerings of a chord in any tuning, as diagrams
// or JSON, or one of them as an SVG picture; every chord in every tuning at
// once; a chord strummed into a WAV file as the app plays it; and, with
// "identify", the names of a shape held (IdentifyCommand).

#include <memory>
#include <string>

#include "cli/ChordArguments.h"
#include "cli/CliCommand.h"
#include "cli/IdentifyCommand.h"

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
    int writeSvg(std::ostream& out, std::ostream& err) const;
    // The fingering --variation names, or nullptr with the reason told and
    // the exit code set (none exists: nothing to write, not an error).
    const ChordVariation* pick(const Fingerings& found, std::ostream& out, std::ostream& err,
                               int& code) const;

    std::string name_;
    std::string tuning_ = "Standard";
    int limit_ = 0;
    bool json_ = false;
    bool all_ = false;
    std::string play_;
    int variation_ = 1;
    std::string out_;
    std::string svg_;
    int capo_ = 0;
    std::unique_ptr<IdentifyCommand> identify_;
};

}  // namespace zt::cli
