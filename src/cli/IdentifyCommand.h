#pragma once
// zebtools-cli chords identify: the names of a chord held, written as a
// chord chart ("x32010", the 6th string first, its frets counted from a capo
// if there is one), best first with their notes and formulas, as text or JSON.

#include <array>
#include <optional>
#include <string>

#include "chords/ChordVariation.h"
#include "cli/CliCommand.h"

namespace zt::cli {

// Reads a chord chart: six characters ("x32010") or six cells separated by
// spaces or commas ("x 10 12 12 11 x"), the 6th string first; "x" mutes a
// string, frets run from 0 to 24. On bad input the message says what is
// wrong and frets is left as it was.
std::string readFrets(const std::string& text, std::array<int, kStringCount>& frets);

// A tuning by catalogue number or name, or six note tokens from the 6th
// string ("D2 A2 D3 G3 B3 E4"): its name and open notes; nullopt for
// anything else.
struct OpenTuning {
    std::string name;   // "Drop D", or the notes themselves
    std::string notes;  // "D2 A2 D3 G3 B3 E4"
    std::array<int, kStringCount> open{};
};
std::optional<OpenTuning> openTuning(const std::string& text);

class IdentifyCommand final : public CliCommand {
public:
    explicit IdentifyCommand(CLI::App& chords);

    int run(std::ostream& out, std::ostream& err) override;

private:
    std::string chart_;
    std::string tuning_ = "Standard";
    int capo_ = 0;
    bool json_ = false;
};

}  // namespace zt::cli
