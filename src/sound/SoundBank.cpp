#include "sound/SoundBank.h"

#include <cmath>
#include <string>

#include "framework/Paths.h"

namespace zt {

double SoundBank::openStringFrequency(int string) {
    // Semitones from A4 of E4, B3, G3, D3, A2 and E2.
    static constexpr std::array<int, kStringCount> kFromA4{-5, -10, -14, -19, -24, -29};
    if (string < 0 || string >= kStringCount)
        return 0.0;
    return 440.0 * std::exp2(kFromA4[static_cast<size_t>(string)] / 12.0);
}

std::string_view SoundBank::fileName(int id) {
    for (const auto& entry : kEntries) {
        if (entry.id == id)
            return entry.file;
    }
    return {};
}

std::filesystem::path SoundBank::path(std::string_view file) {
    return paths::resource(std::filesystem::path("sounds") / std::string(file));
}

}  // namespace zt
