#include "metronome/ClickSet.h"

#include "metronome/ClickSounds.h"
#include "sound/SoundBank.h"
#include "sound/SoundDecoder.h"

namespace zt {

// The packs' ids and the bank's file list must agree.
static_assert(clickSoundsForPack(1).tick == SoundBank::clickSoundId(1, SoundBank::Click::Tick));
static_assert(clickSoundsForPack(SoundBank::kPackCount).subtick == SoundBank::kLastId);
static_assert(kLastPackNumber == SoundBank::kPackCount);

bool ClickSet::loadPack(int packNumber, int sampleRate, std::string& error) {
    const ClickSounds ids = clickSoundsForPack(packNumber);
    const SoundDecoder decoder(sampleRate);
    for (int id : {ids.tick, ids.tock, ids.subtick}) {
        const auto path = SoundBank::path(SoundBank::fileName(id));
        std::string reason;
        auto samples = decoder.decode(path, reason);
        if (!samples) {
            error = "cannot read " + path.string() + ": " + reason;
            return false;
        }
        samples_[id] = std::move(*samples);
    }
    return true;
}

ClickBank ClickSet::bank() const {
    ClickBank bank;
    for (const auto& [id, samples] : samples_)
        bank.set(id, samples);
    return bank;
}

}  // namespace zt
