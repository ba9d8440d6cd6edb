#include <cstdint>
#include <optional>
#include <vector>

#include "state/PlistShape.h"

// The binary form: a header, the objects, a table of their offsets, and a
// trailer saying how wide offsets and references are, how many objects there
// are and which is the top one. The walk below follows references from the
// top object without building anything.

namespace zt::plist {

namespace {

std::uint64_t bigEndian(const unsigned char* p, std::size_t n) {
    std::uint64_t v = 0;
    for (std::size_t k = 0; k < n; ++k)
        v = (v << 8) | p[k];
    return v;
}

constexpr std::uint64_t kHeader = 8;  // "bplist00"

struct Layout {
    const unsigned char* data;
    std::size_t offsetSize;
    std::size_t refSize;
    std::uint64_t count;
    std::uint64_t top;
    // Where the offset table starts, which is where the objects end.
    std::uint64_t table;

    std::uint64_t offsetOf(std::uint64_t object) const {
        return bigEndian(data + table + object * offsetSize, offsetSize);
    }
};

// Header, trailer and the offset table; nullopt when they do not add up.
std::optional<Layout> readLayout(std::string_view bytes) {
    constexpr std::size_t kTrailer = 32;
    if (bytes.size() < kHeader + kTrailer)
        return std::nullopt;
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
    const unsigned char* trailer = data + bytes.size() - kTrailer;
    const Layout layout{data,
                        trailer[6],
                        trailer[7],
                        bigEndian(trailer + 8, 8),
                        bigEndian(trailer + 16, 8),
                        bigEndian(trailer + 24, 8)};
    const std::uint64_t end = bytes.size() - kTrailer;
    if (layout.offsetSize < 1 || layout.offsetSize > 8 || layout.refSize < 1 ||
        layout.refSize > 8 || layout.table > end ||
        layout.count > (end - layout.table) / layout.offsetSize || layout.top >= layout.count)
        return std::nullopt;
    return layout;
}

// The element count of the object at `at` and where its contents start: the
// marker's low nibble, or, when that is 0xF, the integer object after it.
struct Header {
    std::uint64_t count;
    std::uint64_t contents;
};
std::optional<Header> readHeader(const unsigned char* data, std::uint64_t at, std::uint64_t table) {
    std::uint64_t n = data[at] & 0xF;
    std::uint64_t pos = at + 1;
    if (n == 0xF) {
        if (pos >= table || (data[pos] >> 4) != 0x1 || (data[pos] & 0xF) > 3)
            return std::nullopt;
        const std::size_t size = std::size_t{1} << (data[pos] & 0xF);
        if (pos + 1 + size > table)
            return std::nullopt;
        n = bigEndian(data + pos + 1, size);
        pos += 1 + size;
    }
    return Header{n, pos};
}

bool holdsNul(const unsigned char* text, std::uint64_t units, std::uint64_t unit) {
    for (std::uint64_t k = 0; k < units; ++k) {
        if (bigEndian(text + k * unit, unit) == 0)
            return true;
    }
    return false;
}

}  // namespace

std::string checkBinary(std::string_view bytes, const Bounds& bounds) {
    const auto layout = readLayout(bytes);
    if (!layout)
        return "";
    const Layout& l = *layout;
    // Every object takes at least one byte.
    if (l.table < kHeader || l.count > l.table - kHeader)
        return "more objects than the file can hold";

    std::vector<bool> reached(l.count, false);  // containers seen so far
    std::uint64_t nodes = 0;
    std::uint64_t text = 0;
    std::vector<std::pair<std::uint64_t, int>> pending{{l.top, 1}};
    while (!pending.empty()) {
        const auto [object, depth] = pending.back();
        pending.pop_back();
        if (++nodes > bounds.maxNodes)
            return "more than " + std::to_string(bounds.maxNodes) + " values";
        const std::uint64_t at = l.offsetOf(object);
        if (at < kHeader || at >= l.table)
            return "an object outside the object table";
        const unsigned type = l.data[at] >> 4;
        const bool container = type == 0xA || type == 0xC || type == 0xD;
        // 0x4n: n bytes of data; 0x5n: n ASCII bytes; 0x6n: n UTF-16 units,
        // up to three bytes each once converted.
        if (!container && (type < 0x4 || type > 0x6))
            continue;
        const auto header = readHeader(l.data, at, l.table);
        if (!header)
            return "a count that runs past the objects";
        const auto [n, pos] = *header;
        const std::uint64_t room = l.table - pos;
        if (!container) {
            const std::uint64_t unit = type == 0x6 ? 2 : 1;
            if (n > room / unit)
                return "a text that runs past the objects";
            text += type == 0x6 ? 3 * n : n;
            if (text > bounds.maxText)
                return "more than " + std::to_string(bounds.maxText) + " bytes of text";
            if (type != 0x4 && holdsNul(l.data + pos, n, unit))
                return "a NUL character in a text";
            continue;
        }
        // A container reached twice is shared or part of a cycle: the parser
        // would copy it once per reference, without bound.
        if (reached[object])
            return "a list or dictionary referenced more than once";
        reached[object] = true;
        if (depth > bounds.maxDepth)
            return "nested deeper than " + std::to_string(bounds.maxDepth) + " levels";
        const std::uint64_t refs = type == 0xD ? 2 * n : n;
        if (n > room / l.refSize || refs > room / l.refSize)
            return "a list that runs past the objects";
        for (std::uint64_t k = 0; k < refs; ++k) {
            const std::uint64_t ref = bigEndian(l.data + pos + k * l.refSize, l.refSize);
            if (ref >= l.count)
                return "a reference to no object";
            pending.emplace_back(ref, depth + 1);
        }
    }
    return "";
}

}  // namespace zt::plist
