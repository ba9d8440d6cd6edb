#include <cstdint>
#include <optional>
#include <vector>

#include "state/PlistText.h"

// Checks made on a binary property list before libplist sees it: the
// object table is walked from the trailer, without building anything.

namespace zt::plist {

namespace {

std::uint64_t bigEndian(const unsigned char* p, std::size_t n) {
    std::uint64_t v = 0;
    for (std::size_t k = 0; k < n; ++k)
        v = (v << 8) | p[k];
    return v;
}

struct Layout {
    const unsigned char* data;
    std::size_t offsetSize;
    std::size_t refSize;
    std::uint64_t count;
    std::uint64_t top;
    // Where the offset table starts, which is where the objects end.
    std::uint64_t table;
};

// Header, trailer and the offset table; nullopt when they do not add up, a
// file left to the parser, which refuses it without reading any object.
std::optional<Layout> readLayout(std::string_view bytes) {
    constexpr std::size_t kTrailer = 32;
    if (bytes.size() < 8 + kTrailer)
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
// nullopt when the count runs past the objects.
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

}  // namespace

bool binaryWithinDepth(std::string_view bytes, int maxDepth) {
    const auto layout = readLayout(bytes);
    if (!layout)
        return true;
    const auto [data, offsetSize, refSize, count, top, table] = *layout;

    // Depth-first walk over containers. An object is walked again only when
    // reached at a greater depth than before, so shared objects cost little
    // and a cycle runs into the depth limit.
    std::vector<std::uint8_t> reached(count, 0);
    std::vector<std::pair<std::uint64_t, int>> pending{{top, 1}};
    while (!pending.empty()) {
        const auto [object, depth] = pending.back();
        pending.pop_back();
        const std::uint64_t at = bigEndian(data + table + object * offsetSize, offsetSize);
        if (at >= table)
            continue;
        const unsigned type = data[at] >> 4;
        if (type != 0xA && type != 0xC && type != 0xD)
            continue;
        if (depth > maxDepth)
            return false;
        if (reached[object] >= depth)
            continue;
        reached[object] = static_cast<std::uint8_t>(depth);
        const auto header = readHeader(data, at, table);
        if (!header)
            continue;
        const auto [n, pos] = *header;
        const std::uint64_t refs = type == 0xD ? 2 * n : n;
        if (n > (table - pos) / refSize || refs > (table - pos) / refSize)
            continue;
        for (std::uint64_t k = 0; k < refs; ++k) {
            const std::uint64_t ref = bigEndian(data + pos + k * refSize, refSize);
            if (ref < count)
                pending.emplace_back(ref, depth + 1);
        }
    }
    return true;
}

bool binaryTextHasNul(std::string_view bytes) {
    const auto layout = readLayout(bytes);
    if (!layout)
        return false;
    const auto [data, offsetSize, refSize, count, top, table] = *layout;
    for (std::uint64_t object = 0; object < count; ++object) {
        const std::uint64_t at = bigEndian(data + table + object * offsetSize, offsetSize);
        if (at >= table)
            continue;
        // 0x5n: n ASCII bytes; 0x6n: n UTF-16 units (keys are strings too).
        const unsigned type = data[at] >> 4;
        if (type != 0x5 && type != 0x6)
            continue;
        const auto header = readHeader(data, at, table);
        if (!header)
            continue;
        const auto [n, pos] = *header;
        const std::uint64_t unit = type == 0x5 ? 1 : 2;
        if (n > (table - pos) / unit)
            continue;
        for (std::uint64_t k = 0; k < n; ++k) {
            if (bigEndian(data + pos + k * unit, unit) == 0)
                return true;
        }
    }
    return false;
}

}  // namespace zt::plist
