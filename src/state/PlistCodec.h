#pragma once
// Conversion between property-list bytes and zt::Value. Integers, reals,
// booleans, strings, arrays and dictionaries keep their kind both ways, so a
// file read and written back holds the same types. Dates and data blobs,
// which have no Value kind, are carried as one-key dictionaries under
// kDateKey and kDataKey, so that values written by other programs survive a
// read and a write.
//
// Text is made valid for XML on the way out (see sanitizeText). On the way
// in, a string or key holding characters XML does not allow is left out of
// its dictionary or array, with a log line; the rest of the file is kept.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "framework/Value.h"

namespace zt::plist {

// Arrays and dictionaries nested deeper than this make a file unreadable.
inline constexpr int kMaxDepth = 64;

// More values than this (keys included) make a file unreadable: a list of
// 10,000 presets holds about 190,000. With the text bound (what a file of the
// largest size read can hold), reading stays under a second and bounded in
// memory whatever a binary file's references expand to.
inline constexpr std::uint64_t kMaxNodes = 500'000;
inline constexpr std::uint64_t kMaxText = 16u << 20;

// A date: Array{seconds since 2001-01-01, microseconds}. Data: the bytes as
// a string. The keys begin with a control character, which no key read from
// a file can hold, so they cannot be mistaken for the user's own.
inline constexpr const char* kDateKey =
    "\x01"
    "date";
inline constexpr const char* kDataKey =
    "\x01"
    "data";

// Parses an XML (or binary) property list; nullopt when the bytes are not
// one or go past the bounds above (see PlistShape.h).
std::optional<Value> parse(std::string_view bytes);

// The XML form of value. Null values, which a property list cannot hold, are
// left out of their dictionary or array.
std::string toXml(const Value& value);

}  // namespace zt::plist
