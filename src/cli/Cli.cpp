#include "cli/Cli.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "cli/AnalyzeCommand.h"
#include "cli/ChordsCommand.h"
#include "cli/CliCommand.h"
#include "cli/MetronomeCommand.h"
#include "cli/StandardOutput.h"
#include "state/AtomicFile.h"

namespace zt::cli {

namespace {

// The deepest subcommand the command line chose, for naming it in errors.
std::string commandPath(const CLI::App* app) {
    std::string path = app->get_name();
    for (auto subs = app->get_subcommands(); !subs.empty();
         subs = subs.front()->get_subcommands()) {
        path += " " + subs.front()->get_name();
    }
    return path;
}

// The exit code once out has taken everything; a failure to write it is the
// command's failure, told on err with the reason when out knows it.
int checked(int code, std::ostream& out, std::ostream& err) {
    if (out.flush())
        return code;
    const auto* fd = dynamic_cast<const DescriptorOutput*>(out.rdbuf());
    err << "zebtools-cli: cannot write the output"
        << (fd && fd->error() ? ": " + file::describeError(fd->error()) : std::string()) << "\n";
    return code == kExitOk ? kExitFailure : code;
}

}  // namespace

CliCommand::CliCommand(CLI::App& parent, const char* name, const char* summary)
    : command_(parent.add_subcommand(name, summary)) {}

bool CliCommand::chosen() const {
    return command_->parsed();
}

int runCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    CLI::App app{"The engines of ZebTools, a toolbox for guitarists, without a window.",
                 "zebtools-cli"};
    app.set_version_flag("--version", std::string("zebtools-cli ") + ZEBTOOLS_VERSION);
    app.require_subcommand(1);
    app.failure_message([](const CLI::App* top, const CLI::Error& e) {
        const std::string path = commandPath(top);
        return path + ": " + e.what() + "\nTry '" + path + " --help'.\n";
    });

    // One line per command; each command's code lives in its own file.
    std::vector<std::unique_ptr<CliCommand>> commands;
    commands.push_back(std::make_unique<MetronomeCommand>(app));
    commands.push_back(std::make_unique<AnalyzeCommand>(app));
    commands.push_back(std::make_unique<ChordsCommand>(app));

    // CLI11 takes the arguments last first.
    std::vector<std::string> reversed(args.rbegin(), args.rend());
    try {
        app.parse(reversed);
    } catch (const CLI::ParseError& e) {
        const int code = app.exit(e, out, err);
        return checked(code == 0 ? kExitOk : kExitUsage, out, err);
    }
    for (const auto& command : commands) {
        if (command->chosen()) {
            return checked(command->run(out, err), out, err);
        }
    }
    return kExitUsage;
}

}  // namespace zt::cli
