#include "cli/Options.h"

#include <charconv>
#include <cmath>

namespace zt::cli {

namespace {

std::string range(double min, double max) {
    auto text = [](double v) {
        std::string s = std::to_string(v);
        s.erase(s.find_last_not_of('0') + 1);
        if (s.back() == '.')
            s.pop_back();
        return s;
    };
    return text(min) + " to " + text(max);
}

}  // namespace

bool parseWholeNumber(const std::string& text, int& value) {
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    return ec == std::errc() && end == text.data() + text.size() && !text.empty();
}

bool Options::parse(const std::vector<std::string>& args, const std::set<std::string>& valued,
                    const std::set<std::string>& flags, std::string& error) {
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (flags.count(arg)) {
            flags_.insert(arg);
        } else if (valued.count(arg)) {
            if (i + 1 >= args.size()) {
                error = "option " + arg + " needs a value";
                return false;
            }
            if (!values_.emplace(arg, args[++i]).second) {
                error = "option " + arg + " is given twice";
                return false;
            }
        } else if (arg.rfind("--", 0) == 0) {
            error = "unknown option " + arg;
            return false;
        } else {
            error = "unexpected argument \"" + arg + "\"";
            return false;
        }
    }
    return true;
}

bool Options::has(const std::string& name) const {
    return flags_.count(name) || values_.count(name);
}

std::optional<std::string> Options::value(const std::string& name) const {
    const auto it = values_.find(name);
    if (it == values_.end())
        return std::nullopt;
    return it->second;
}

std::optional<int> Options::integer(const std::string& name, int fallback, int min, int max,
                                    std::string& error) const {
    const auto text = value(name);
    if (!text)
        return fallback;
    int v = 0;
    if (!parseWholeNumber(*text, v) || v < min || v > max) {
        error =
            name + " must be a whole number from " + range(min, max) + ", not \"" + *text + "\"";
        return std::nullopt;
    }
    return v;
}

std::optional<double> Options::number(const std::string& name, double fallback, double min,
                                      double max, std::string& error) const {
    const auto text = value(name);
    if (!text)
        return fallback;
    double v = 0;
    const auto [end, ec] = std::from_chars(text->data(), text->data() + text->size(), v);
    if (ec != std::errc() || end != text->data() + text->size() || !std::isfinite(v) || v < min ||
        v > max) {
        error = name + " must be a number from " + range(min, max) + ", not \"" + *text + "\"";
        return std::nullopt;
    }
    return v;
}

}  // namespace zt::cli
