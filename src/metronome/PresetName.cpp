#include "metronome/PresetName.h"

#include <locale>

#include "metronome/MetronomeSetup.h"

namespace zt {

namespace {

// Lower-case mapping for the whole of Unicode where the C library has one
// ("Été" and "éTÉ" are the same title); plain ASCII otherwise.
const std::ctype<wchar_t>* unicodeCase() {
    static const std::ctype<wchar_t>* facet = []() -> const std::ctype<wchar_t>* {
        try {
            static const std::locale utf8("C.UTF-8");
            return &std::use_facet<std::ctype<wchar_t>>(utf8);
        } catch (const std::exception&) {
            return nullptr;
        }
    }();
    return facet;
}

// Bytes in the UTF-8 sequence that lead starts; 0 when lead cannot start one.
std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80)
        return 1;
    if ((lead >> 5) == 0x6)
        return 2;
    if ((lead >> 4) == 0xE)
        return 3;
    if ((lead >> 3) == 0x1E)
        return 4;
    return 0;
}

}  // namespace

std::u32string foldCase(std::string_view text) {
    std::u32string out;
    out.reserve(text.size());
    const auto* facet = unicodeCase();
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t length = sequenceLength(lead);
        // The lead byte's payload: the bits below its length marker.
        char32_t c = length <= 1 ? lead : lead & (0x7F >> length);
        bool valid = length > 0 && i + length <= text.size();
        for (std::size_t k = 1; valid && k < length; ++k) {
            const auto next = static_cast<unsigned char>(text[i + k]);
            valid = (next & 0xC0) == 0x80;
            c = (c << 6) | (next & 0x3F);
        }
        if (!valid) {
            out.push_back(0xDC00 + lead);
            ++i;
            continue;
        }
        if (facet && sizeof(wchar_t) == sizeof(char32_t))
            c = static_cast<char32_t>(facet->tolower(static_cast<wchar_t>(c)));
        else if (c >= 'A' && c <= 'Z')
            c += 'a' - 'A';
        out.push_back(c);
        i += length;
    }
    return out;
}

std::string presetSummary(const Dictionary& preset) {
    MetronomeSetup setup;
    setup.setSavedData(preset);
    return std::to_string(setup.tempo()) + " BPM  " + std::to_string(setup.timeSig1Value) + "/" +
           std::to_string(setup.timeSig2Value);
}

}  // namespace zt
