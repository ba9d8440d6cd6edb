#pragma once
// Option checks shared by the commands.

#include <CLI/CLI.hpp>
#include <charconv>
#include <cmath>
#include <string>

namespace zt::cli {

// A finite number from min to max (CLI::Range lets NaN through: every
// comparison with it is false).
inline CLI::Validator finiteRange(double min, double max) {
    return CLI::Validator(
        [min, max](std::string& text) {
            double value = NAN;
            const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
            if (ec != std::errc() || end != text.data() + text.size() || !std::isfinite(value) ||
                value < min || value > max) {
                return "must be a number from " + CLI::detail::to_string(min) + " to " +
                       CLI::detail::to_string(max) + ", not \"" + text + "\"";
            }
            return std::string();
        },
        "NUMBER in [" + CLI::detail::to_string(min) + " - " + CLI::detail::to_string(max) + "]");
}

}  // namespace zt::cli
