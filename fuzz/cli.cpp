// zebtools-cli's command line: each line of the input is one argument to
// runCli, whose output is discarded. The process works in its scratch
// folder, so files named on the command line are read and written there;
// inputs that would leave it or take long are skipped: an argument with a
// '/', the microphone (it waits for sound), "--all" (every chord in every
// tuning) and "--seconds" over 2.

#include "cli/Cli.h"

#include <unistd.h>

#include <cstdlib>

#include "FuzzSupport.h"
#include "framework/Log.h"

namespace {

bool shortEnough(const std::string& value) {
    char* end = nullptr;
    const double seconds = std::strtod(value.c_str(), &end);
    return !value.empty() && end == value.c_str() + value.size() && seconds <= 2.0;
}

bool allowed(const std::vector<std::string>& args) {
    if (args.size() > 16)
        return false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg.find('/') != std::string::npos || arg.find("-mic") != std::string::npos ||
            arg == "--all" || arg.rfind("--all=", 0) == 0)
            return false;
        if (arg.find("seconds") == std::string::npos)
            continue;
        if (arg.rfind("--seconds=", 0) == 0) {
            if (!shortEnough(arg.substr(10)))
                return false;
        } else if (arg != "--seconds" || i + 1 == args.size() || !shortEnough(args[i + 1])) {
            return false;
        }
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    if (chdir(zt::fuzz::scratchDir().c_str()) != 0)
        std::abort();
    setenv("ZEBTOOLS_DATA_DIR", zt::fuzz::scratchDir().c_str(), 1);
    zt::setLogQuiet(true);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto args = zt::fuzz::lines(data, size);
    if (args.back().empty())
        args.pop_back();
    if (!allowed(args))
        return 0;
    (void)zt::cli::runCli(args, zt::fuzz::nullStream(), zt::fuzz::nullStream());
    zt::fuzz::clearScratch();
    zt::setLogQuiet(true);
    return 0;
}
