// zebtools-cli: the program's core run from a terminal, one command at a time.

#include <iostream>
#include <string>
#include <vector>

#include "cli/Cli.h"

int main(int argc, char** argv) {
    return zt::cli::runCli({argv + 1, argv + argc}, std::cout, std::cerr);
}
