#pragma once
// Conversion between property-list bytes and zt::Value. Integers, reals,
// booleans, strings, arrays and dictionaries keep their kind both ways, so a
// file read and written back holds the same types. Dates and data blobs have
// no Value kind; they are dropped with a log line.

#include <optional>
#include <string>
#include <string_view>

#include "framework/Value.h"

namespace zt::plist {

// Parses an XML (or binary) property list; nullopt when the bytes are not one.
std::optional<Value> parse(std::string_view bytes);

// The XML form of value. Null values, which a property list cannot hold, are
// left out of their dictionary or array.
std::string toXml(const Value& value);

}  // namespace zt::plist
