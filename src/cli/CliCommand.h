#pragma once
// One command of zebtools-cli. Each command lives in its own file and is
// listed once in main.cpp.

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace zt::cli {

inline constexpr int kExitOk = 0;
inline constexpr int kExitFailure = 1;  // the command could not do its work
inline constexpr int kExitUsage = 2;    // bad arguments

struct CliCommand {
    std::string_view name;
    std::string_view summary;
    // args: everything after the command name.
    int (*run)(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
};

}  // namespace zt::cli
