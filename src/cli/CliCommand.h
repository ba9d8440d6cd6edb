#pragma once
// One command of zebtools-cli. Each command lives in its own file, declares
// its options on the subcommand it adds to the command line, and is listed
// once in Cli.cpp.

#include <ostream>

namespace CLI {
class App;
}

namespace zt::cli {

inline constexpr int kExitOk = 0;
inline constexpr int kExitFailure = 1;  // the command could not do its work
inline constexpr int kExitUsage = 2;    // bad arguments

class CliCommand {
public:
    virtual ~CliCommand() = default;

    // True when the parsed command line chose this command.
    bool chosen() const;

    // Does the command's work with the options the command line gave.
    virtual int run(std::ostream& out, std::ostream& err) = 0;

protected:
    // Adds the subcommand; the derived class declares its options on it.
    CliCommand(CLI::App& parent, const char* name, const char* summary);

    CLI::App& command() const { return *command_; }

private:
    CLI::App* command_;
};

}  // namespace zt::cli
