#include "chords/StringSet.h"

#include "sound/SoundBank.h"
#include "sound/SoundDecoder.h"

namespace zt {

static_assert(SoundBank::kStringCount == kStringCount);

bool StringSet::load(int sampleRate, std::string& error) {
    const SoundDecoder decoder(sampleRate);
    for (int string = 0; string < kStringCount; ++string) {
        const auto path = SoundBank::path(SoundBank::fileName(SoundBank::stringSoundId(string)));
        std::string reason;
        auto samples = decoder.decode(path, reason);
        if (!samples) {
            error = "cannot read " + path.string() + ": " + reason;
            return false;
        }
        samples_[static_cast<std::size_t>(string)] = std::move(*samples);
    }
    return true;
}

StrumEngine::Recordings StringSet::recordings() const {
    StrumEngine::Recordings r;
    for (std::size_t n = 0; n < samples_.size(); ++n)
        r[n] = samples_[n];
    return r;
}

}  // namespace zt
