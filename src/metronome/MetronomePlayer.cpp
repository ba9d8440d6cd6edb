#include "metronome/MetronomePlayer.h"

#include "framework/Log.h"

namespace zt {

MetronomePlayer::MetronomePlayer(SoundEngine& sound)
    : sound_(sound), engine_(sound.streamSampleRate()) {}

MetronomePlayer::~MetronomePlayer() {
    if (streaming_)
        sound_.stopStream(this);
}

bool MetronomePlayer::ensureStream() {
    if (streaming_)
        return true;
    // The stream is not running, so nothing renders and the engine may be
    // set up afresh: the clicks as loaded now, no leftover commands.
    ClickBank bank;
    for (int pack = kFirstPackNumber; pack <= kLastPackNumber; ++pack) {
        const ClickSounds ids = clickSoundsForPack(pack);
        for (int id : {ids.tick, ids.tock, ids.subtick}) {
            if (const auto* samples = sound_.decodedSamples(id))
                bank.set(id, *samples);
        }
    }
    engine_.setClickBank(bank);
    engine_.reset();
    nextBeat_.reset();
    streaming_ = sound_.startStream(this);
    if (!streaming_ && !reportedNoDevice_) {
        log("metronome: no sound output; it runs silently");
        reportedNoDevice_ = true;
    }
    return streaming_;
}

void MetronomePlayer::start(const MetronomeSetup& setup) {
    playing_ = true;
    if (ensureStream())
        engine_.start(setup);
}

void MetronomePlayer::stop() {
    playing_ = false;
    if (streaming_)
        engine_.stop();
}

void MetronomePlayer::setCurrentPack(int packNumber) {
    if (streaming_)
        engine_.setCurrentPack(packNumber);
}

void MetronomePlayer::setIsFirstBeatNeed(bool need) {
    if (streaming_)
        engine_.setIsFirstBeatNeed(need);
}

std::optional<HeardBeat> MetronomePlayer::takeHeardBeat() {
    if (!streaming_)
        return std::nullopt;
    // A beat heard more than this long ago is stale news for a beat light.
    const std::int64_t staleFrames = sound_.streamSampleRate() / 10;
    const std::int64_t heard = sound_.streamPosition(this);
    std::optional<HeardBeat> latest;
    while (true) {
        if (!nextBeat_)
            nextBeat_ = engine_.takeRenderedBeat();
        if (!nextBeat_ || nextBeat_->frame > heard)
            break;
        if (heard - nextBeat_->frame <= staleFrames)
            latest = HeardBeat{nextBeat_->accented, nextBeat_->beatInBar, nextBeat_->sounding,
                               nextBeat_->tempo, nextBeat_->barsToStep};
        nextBeat_.reset();
    }
    return latest;
}

bool MetronomePlayer::releaseWhenSilent() {
    if (!streaming_)
        return true;
    if (playing_ || !engine_.isSilent())
        return false;
    // What was rendered before the silence is still on its way to the speaker.
    if (sound_.streamPosition(this) < engine_.silentFrom())
        return false;
    sound_.stopStream(this);
    streaming_ = false;
    return true;
}

void MetronomePlayer::render(float* out, int frames, std::int64_t firstFrame) {
    engine_.render(out, frames, firstFrame);
}

}  // namespace zt
