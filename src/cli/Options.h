#pragma once
// Reading "--name value" options and "--flag" switches of a command line.

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zt::cli {

// The whole of text as a decimal integer; false for anything else.
bool parseWholeNumber(const std::string& text, int& value);

class Options {
public:
    // Splits args into options that take a value (valued) and switches
    // (flags). False, with the reason in error, for anything else: an unknown
    // option, a missing value, a repeated option or a stray word.
    bool parse(const std::vector<std::string>& args, const std::set<std::string>& valued,
               const std::set<std::string>& flags, std::string& error);

    bool has(const std::string& name) const;
    std::optional<std::string> value(const std::string& name) const;

    // The option as a whole number in [min, max]: its default when absent,
    // nullopt (with the reason in error) when it is not such a number.
    std::optional<int> integer(const std::string& name, int fallback, int min, int max,
                               std::string& error) const;
    // The same for a number with decimals.
    std::optional<double> number(const std::string& name, double fallback, double min, double max,
                                 std::string& error) const;

private:
    std::map<std::string, std::string> values_;
    std::set<std::string> flags_;
};

}  // namespace zt::cli
