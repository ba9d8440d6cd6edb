#include "framework/Value.h"

#include <charconv>
#include <cmath>
#include <sstream>

namespace zt {

namespace {
const Array kEmptyArray;
const Dictionary kEmptyDictionary;
const Value kNull;

bool parseInt(const std::string& s, std::int64_t& out) {
    const char* first = s.data();
    const char* last = s.data() + s.size();
    while (first < last && *first == ' ')
        ++first;
    auto [ptr, ec] = std::from_chars(first, last, out);
    return ec == std::errc() && ptr != first;
}
}  // namespace

std::int64_t Value::toInt(std::int64_t fallback) const {
    if (auto b = std::get_if<bool>(&v_))
        return *b ? 1 : 0;
    if (auto i = std::get_if<std::int64_t>(&v_))
        return *i;
    if (auto d = std::get_if<double>(&v_)) {
        if (!std::isfinite(*d))
            return fallback;
        return static_cast<std::int64_t>(*d);
    }
    if (auto s = std::get_if<std::string>(&v_)) {
        if (*s == "true" || *s == "YES")
            return 1;
        if (*s == "false" || *s == "NO")
            return 0;
        std::int64_t out = 0;
        if (parseInt(*s, out))
            return out;
        std::istringstream in(*s);
        double d = 0;
        if (in >> d && std::isfinite(d))
            return static_cast<std::int64_t>(d);
    }
    return fallback;
}

double Value::toDouble(double fallback) const {
    if (auto d = std::get_if<double>(&v_))
        return *d;
    if (auto i = std::get_if<std::int64_t>(&v_))
        return static_cast<double>(*i);
    if (auto b = std::get_if<bool>(&v_))
        return *b ? 1.0 : 0.0;
    if (auto s = std::get_if<std::string>(&v_)) {
        std::istringstream in(*s);
        double d = 0;
        if (in >> d)
            return d;
    }
    return fallback;
}

bool Value::toBool(bool fallback) const {
    if (auto b = std::get_if<bool>(&v_))
        return *b;
    if (isInt() || isReal() || isString()) {
        if (auto s = std::get_if<std::string>(&v_)) {
            if (s->empty())
                return fallback;
        }
        return toInt(fallback ? 1 : 0) != 0;
    }
    return fallback;
}

std::string Value::toString(const std::string& fallback) const {
    if (auto s = std::get_if<std::string>(&v_))
        return *s;
    if (auto i = std::get_if<std::int64_t>(&v_))
        return std::to_string(*i);
    if (auto b = std::get_if<bool>(&v_))
        return *b ? "1" : "0";
    if (auto d = std::get_if<double>(&v_)) {
        std::ostringstream out;
        out << *d;
        return out.str();
    }
    return fallback;
}

const Array& Value::array() const {
    if (auto a = std::get_if<Array>(&v_))
        return *a;
    return kEmptyArray;
}

const Dictionary& Value::dictionary() const {
    if (auto d = std::get_if<Dictionary>(&v_))
        return *d;
    return kEmptyDictionary;
}

Array& Value::array() {
    if (!isArray())
        v_ = Array{};
    return std::get<Array>(v_);
}

Dictionary& Value::dictionary() {
    if (!isDictionary())
        v_ = Dictionary{};
    return std::get<Dictionary>(v_);
}

std::string Value::describe(int indent) const {
    const std::string pad(static_cast<size_t>(indent) * 4, ' ');
    const std::string inner(static_cast<size_t>(indent + 1) * 4, ' ');
    if (isNull())
        return "(null)";
    if (auto s = std::get_if<std::string>(&v_))
        return "\"" + *s + "\"";
    if (auto a = std::get_if<Array>(&v_)) {
        std::string out = "(\n";
        for (size_t i = 0; i < a->size(); ++i) {
            out += inner + (*a)[i].describe(indent + 1);
            out += (i + 1 < a->size()) ? ",\n" : "\n";
        }
        return out + pad + ")";
    }
    if (auto d = std::get_if<Dictionary>(&v_)) {
        std::string out = "{\n";
        for (const auto& [key, value] : *d) {
            out += inner + key + " = " + value.describe(indent + 1) + ";\n";
        }
        return out + pad + "}";
    }
    return toString();
}

const Value& valueFor(const Dictionary& dict, const std::string& key) {
    auto it = dict.find(key);
    return it == dict.end() ? kNull : it->second;
}

}  // namespace zt
