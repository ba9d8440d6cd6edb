#include "sound/SoundBank.h"

#include <cmath>
#include <string>

#include "framework/Paths.h"

namespace zt {

double SoundBank::openStringFrequency(int string) {
    constexpr int kA4 = 57;
    if (string < 0 || string >= kStringCount)
        return 0.0;
    return 440.0 * std::exp2((openStringNote(string) - kA4) / 12.0);
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
