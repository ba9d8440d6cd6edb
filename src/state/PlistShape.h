#pragma once
// Checks of a property list's structure made before libplist reads it, so
// that reading any file costs time and memory in proportion to its size. The
// parser and the conversion recurse once per level of nesting, and the binary
// form lets one object be referenced many times, so a small file can stand
// for an unbounded tree. Each check is one linear pass that builds nothing.

#include <cstdint>
#include <string>
#include <string_view>

namespace zt::plist {

struct Bounds {
    int maxDepth;            // arrays and dictionaries nested in each other
    std::uint64_t maxNodes;  // values of any kind, keys included
    std::uint64_t maxText;   // bytes of strings, keys and data, after expansion
};

// "" when xml is well-formed markup within bounds, else why it is refused.
// Tags, quoted attributes, comments, CDATA sections, processing instructions
// and the doctype are tokenized as an XML reader does, so no quoted or
// commented-out bracket can hide an element; unbalanced or unterminated
// markup is refused.
std::string checkXml(std::string_view xml, const Bounds& bounds);

// "" when a binary list is within bounds, else why it is refused. A container
// referenced from more than one place (shared, or part of a cycle), more
// objects than the file has bytes, and an expansion past maxNodes or maxText
// are refused; so is a string or key holding a NUL character, which
// libplist's getters assert against. A file whose header or trailer does not
// add up is left to the parser, which refuses it without reading any object.
std::string checkBinary(std::string_view bytes, const Bounds& bounds);

}  // namespace zt::plist
