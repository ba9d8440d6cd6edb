#pragma once
// The fixed catalogue of 53 six-string tunings shared by the tuners and the
// chords library. A tuning string is six note tokens joined by "&", lowest
// (sixth) string first: a pitch name with sharps only ("C" to "B", "C#") and
// one octave digit, e.g. "E2&A2&D3&G3&B3&E4". The position in the catalogue
// is what the common settings save under "Tuning"; 0 ("Standard") is the
// default.

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zt::tunings {

struct Tuning {
    std::string_view name;
    std::string_view notes;
};

inline constexpr std::size_t kCount = 53;

const std::array<Tuning, kCount>& catalogue();

// The six tokens of a tuning string, sixth string first.
std::vector<std::string> tokens(std::string_view notes);

// The pitch names without octave digits, joined: "E2&A2&D3&G3&B3&E4" -> "EADGBE".
std::string compactLabel(std::string_view notes);

}  // namespace zt::tunings
