// zt-make-sounds: writes the sound bank (six open strings and five click
// packs) as 16-bit mono 44100 Hz ".caf" files into the given folder.
//
//   zt-make-sounds data/sounds
//
// or, from a configured build tree, `cmake --build <build> --target make-sounds`,
// which rewrites the files in the source tree's data/sounds. The output is
// the same on every run.

#include <sndfile.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "Click.h"
#include "PluckedString.h"
#include "sound/SoundBank.h"

namespace {

constexpr int kRate = 44100;

bool writeCaf(const std::filesystem::path& path, const std::vector<float>& samples) {
    SF_INFO info{};
    info.samplerate = kRate;
    info.channels = 1;
    info.format = SF_FORMAT_CAF | SF_FORMAT_PCM_16;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file) {
        std::fprintf(stderr, "cannot write %s: %s\n", path.c_str(), sf_strerror(nullptr));
        return false;
    }
    sf_command(file, SFC_SET_CLIPPING, nullptr, SF_TRUE);
    const auto frames = static_cast<sf_count_t>(samples.size());
    const bool complete = sf_writef_float(file, samples.data(), frames) == frames;
    sf_close(file);
    if (!complete)
        std::fprintf(stderr, "short write to %s\n", path.c_str());
    return complete;
}

}  // namespace

int main(int argc, char** argv) {
    using zt::SoundBank;
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <output folder>\n", argv[0]);
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::error_code error;
    std::filesystem::create_directories(folder, error);

    bool ok = true;
    auto write = [&](int id, const std::vector<float>& samples) {
        const auto path = folder / std::string(SoundBank::fileName(id));
        ok = writeCaf(path, samples) && ok;
        std::printf("%-16s %6zu frames\n", path.filename().c_str(), samples.size());
    };

    for (int string = 0; string < SoundBank::kStringCount; ++string) {
        const zt::soundgen::PluckedString tone{.frequency = SoundBank::openStringFrequency(string),
                                               .seed = static_cast<std::uint32_t>(string + 1)};
        write(SoundBank::stringSoundId(string), tone.render(kRate));
    }

    const auto packs = zt::soundgen::clickPacks();
    for (int pack = 1; pack <= SoundBank::kPackCount; ++pack) {
        const auto& clicks = packs[static_cast<size_t>(pack - 1)];
        write(SoundBank::clickSoundId(pack, SoundBank::Click::Tick), clicks.tick.render(kRate));
        write(SoundBank::clickSoundId(pack, SoundBank::Click::Tock), clicks.tock.render(kRate));
        write(SoundBank::clickSoundId(pack, SoundBank::Click::Subtick),
              clicks.subtick.render(kRate));
    }
    return ok ? 0 : 1;
}
