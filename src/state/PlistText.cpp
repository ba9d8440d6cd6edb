#include "state/PlistText.h"

#include <cstdint>
#include <vector>

namespace zt::plist {

namespace {

constexpr char32_t kMalformed = 0xFFFFFFFF;

// The code point of the UTF-8 sequence at text[i] and its length in bytes;
// kMalformed (length 1) for a malformed, overlong or surrogate sequence.
char32_t decode(std::string_view text, std::size_t i, std::size_t& length) {
    const auto lead = static_cast<unsigned char>(text[i]);
    length = 1;
    if (lead < 0x80)
        return lead;
    std::size_t n = 0;
    char32_t c = 0;
    char32_t least = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        n = 2, c = lead & 0x1F, least = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        n = 3, c = lead & 0x0F, least = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        n = 4, c = lead & 0x07, least = 0x10000;
    } else {
        return kMalformed;
    }
    if (i + n > text.size())
        return kMalformed;
    for (std::size_t k = 1; k < n; ++k) {
        const auto next = static_cast<unsigned char>(text[i + k]);
        if ((next & 0xC0) != 0x80)
            return kMalformed;
        c = (c << 6) | (next & 0x3F);
    }
    if (c < least || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF))
        return kMalformed;
    length = n;
    return c;
}

bool allowedInXml(char32_t c) {
    return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) ||
           (c >= 0xE000 && c <= 0xFFFD) || (c >= 0x10000 && c <= 0x10FFFF);
}

bool isNonCharacterMark(char32_t c) {
    return c >= 0xFDD0 && c <= 0xFDEF;
}

bool writable(char32_t c) {
    return allowedInXml(c) && !isNonCharacterMark(c);
}

// Control characters, line separators and the bidirectional controls, which
// would turn the rest of a list row around (U+202E shows "abc" as "cba").
bool isControl(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c <= 0x9F) || c == 0x2028 || c == 0x2029 || c == 0x061C ||
           c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) ||
           (c >= 0x2066 && c <= 0x2069);
}

bool isSpace(char32_t c) {
    return c == ' ' || c == 0xA0 || c == 0x1680 || (c >= 0x2000 && c <= 0x200B) || c == 0x202F ||
           c == 0x205F || c == 0x3000 || c == 0xFEFF;
}

void append(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// A numeric character reference "&#...;" at xml[i]: its code point and
// length, or kMalformed when it is not one.
char32_t reference(std::string_view xml, std::size_t i, std::size_t& length) {
    std::size_t k = i + 2;
    const bool hex = k < xml.size() && (xml[k] == 'x' || xml[k] == 'X');
    if (hex)
        ++k;
    std::uint64_t c = 0;
    const std::size_t digits = k;
    for (; k < xml.size() && k - digits < 9; ++k) {
        const char d = xml[k];
        int v = -1;
        if (d >= '0' && d <= '9')
            v = d - '0';
        else if (hex && d >= 'a' && d <= 'f')
            v = d - 'a' + 10;
        else if (hex && d >= 'A' && d <= 'F')
            v = d - 'A' + 10;
        if (v < 0)
            break;
        c = c * (hex ? 16 : 10) + static_cast<std::uint64_t>(v);
    }
    if (k == digits || k >= xml.size() || xml[k] != ';') {
        length = 1;
        return kMalformed;
    }
    length = k + 1 - i;
    return c > 0x10FFFF ? kMalformed : static_cast<char32_t>(c);
}

}  // namespace

std::string sanitizeText(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0, n = 0; i < text.size(); i += n) {
        const char32_t c = decode(text, i, n);
        if (c == kMalformed)
            out += "\xEF\xBF\xBD";  // U+FFFD
        else if (writable(c))
            out.append(text.substr(i, n));
    }
    return out;
}

std::string sanitizeName(std::string_view text) {
    const std::string clean = sanitizeText(text);
    std::string out;
    std::size_t end = 0;  // length of out up to its last character that is not a space
    for (std::size_t i = 0, n = 0; i < clean.size(); i += n) {
        const char32_t c = decode(clean, i, n);
        if (isControl(c) || (out.empty() && isSpace(c)))
            continue;
        append(out, c);
        if (!isSpace(c))
            end = out.size();
    }
    out.resize(end);
    return out;
}

bool isCleanText(std::string_view text) {
    for (std::size_t i = 0, n = 0; i < text.size(); i += n) {
        const char32_t c = decode(text, i, n);
        if (c == kMalformed || !writable(c))
            return false;
    }
    return true;
}

std::string markDamage(std::string_view xml, bool& damaged) {
    damaged = false;
    std::string out;
    out.reserve(xml.size());
    for (std::size_t i = 0, n = 0; i < xml.size(); i += n) {
        char32_t c = 0;
        if (xml[i] == '&' && i + 1 < xml.size() && xml[i + 1] == '#')
            c = reference(xml, i, n);
        else
            c = decode(xml, i, n);
        if (c == kMalformed || !writable(c)) {
            out += kDamageMark;
            damaged = true;
        } else {
            out.append(xml.substr(i, n));
        }
    }
    return out;
}

}  // namespace zt::plist
