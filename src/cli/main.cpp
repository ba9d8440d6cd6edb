// zebtools-cli: the program's core run from a terminal, one command at a time.

#include <array>
#include <iostream>
#include <string>
#include <vector>

#include "cli/CliCommand.h"
#include "cli/MetronomeCommand.h"

namespace {

using zt::cli::CliCommand;

// One line per command; each command's code lives in its own file.
constexpr std::array kCommands{
    CliCommand{"metronome", "render the metronome to a WAV file", zt::cli::runMetronomeCommand},
};

void printUsage(std::ostream& out) {
    out << "usage: zebtools-cli COMMAND [options]\n"
           "       zebtools-cli COMMAND --help\n\n"
           "commands:\n";
    for (const auto& command : kCommands) {
        out << "  " << command.name << std::string(12 - command.name.size(), ' ') << command.summary
            << "\n";
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty()) {
        printUsage(std::cerr);
        return zt::cli::kExitUsage;
    }
    if (args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
        printUsage(std::cout);
        return zt::cli::kExitOk;
    }
    for (const auto& command : kCommands) {
        if (command.name == args[0]) {
            return command.run({args.begin() + 1, args.end()}, std::cout, std::cerr);
        }
    }
    std::cerr << "zebtools-cli: unknown command \"" << args[0] << "\"\n";
    printUsage(std::cerr);
    return zt::cli::kExitUsage;
}
