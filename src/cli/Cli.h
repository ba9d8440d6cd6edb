#pragma once
// The command line of zebtools-cli, parsed and run without a process so that
// tests and fuzzers can drive it.

#include <ostream>
#include <string>
#include <vector>

namespace zt::cli {

// Runs the command that args (without the program name) choose and returns
// the process's exit code: 0 done, 1 the work failed, 2 bad arguments, with
// the reason on err. Output that out could not take all of is a failure
// (with its reason when out writes through a DescriptorOutput).
int runCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace zt::cli
