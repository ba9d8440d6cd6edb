#pragma once
// A property-list style value: what saved-state sections, presets and
// notification bodies carry. Numbers keep their kind (integer or real) so
// that a file written back holds the same types it was read with.

#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace zt {

class Value;
using Dictionary = std::map<std::string, Value>;
using Array = std::vector<Value>;

class Value {
public:
    Value() = default;
    Value(bool b) : v_(b) {}
    Value(int i) : v_(static_cast<std::int64_t>(i)) {}
    Value(std::int64_t i) : v_(i) {}
    Value(double d) : v_(d) {}
    Value(const char* s) : v_(std::string(s)) {}
    Value(std::string s) : v_(std::move(s)) {}
    Value(Array a) : v_(std::move(a)) {}
    Value(Dictionary d) : v_(std::move(d)) {}

    bool isNull() const { return std::holds_alternative<std::monostate>(v_); }
    bool isBool() const { return std::holds_alternative<bool>(v_); }
    bool isInt() const { return std::holds_alternative<std::int64_t>(v_); }
    bool isReal() const { return std::holds_alternative<double>(v_); }
    bool isNumber() const { return isBool() || isInt() || isReal(); }
    bool isString() const { return std::holds_alternative<std::string>(v_); }
    bool isArray() const { return std::holds_alternative<Array>(v_); }
    bool isDictionary() const { return std::holds_alternative<Dictionary>(v_); }

    // Lenient readers in the manner of property-list numbers: a number of any
    // kind converts, a string is parsed ("1", "0", "12", "true"), anything else
    // gives the fallback.
    std::int64_t toInt(std::int64_t fallback = 0) const;
    double toDouble(double fallback = 0.0) const;
    bool toBool(bool fallback = false) const;
    std::string toString(const std::string& fallback = {}) const;

    const Array& array() const;
    const Dictionary& dictionary() const;
    Array& array();
    Dictionary& dictionary();

    // Text form used in the debug log, close to the property-list description.
    std::string describe(int indent = 0) const;

    bool operator==(const Value& other) const = default;

private:
    std::variant<std::monostate, bool, std::int64_t, double, std::string, Array, Dictionary> v_;
};

// Reads key from dict, or returns a null value when it is absent.
const Value& valueFor(const Dictionary& dict, const std::string& key);

}  // namespace zt
