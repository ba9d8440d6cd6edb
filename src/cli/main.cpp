// zebtools-cli: the program's core run from a terminal, one command at a time.

#include <unistd.h>

#include <iostream>
#include <string>
#include <vector>

#include "cli/Cli.h"
#include "cli/StandardOutput.h"
#include "sound/OpenAlSettings.h"

int main(int argc, char** argv) {
    zt::cli::keepStandardStreamsOpen();
    zt::applyOpenAlSettings();
    // std::cout itself keeps its identity (a command tells a terminal by it);
    // only where its bytes go changes.
    zt::cli::DescriptorOutput output(STDOUT_FILENO);
    std::streambuf* previous = std::cout.rdbuf(&output);
    const int code = zt::cli::runCli({argv + 1, argv + argc}, std::cout, std::cerr);
    std::cout.rdbuf(previous);
    return code;
}
