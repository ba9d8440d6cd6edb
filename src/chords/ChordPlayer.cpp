#include "chords/ChordPlayer.h"

#include <cmath>

#include "framework/Log.h"
#include "sound/SoundBank.h"

namespace zt {

ChordPlayer::ChordPlayer(SoundEngine& sound) : sound_(sound), engine_(sound.streamSampleRate()) {}

ChordPlayer::~ChordPlayer() {
    if (streaming_)
        sound_.stopStream(&engine_);
}

bool ChordPlayer::ensureStream() {
    if (streaming_)
        return true;
    // Nothing renders while the stream is down: take the recordings as
    // loaded now and start from silence.
    StrumEngine::Recordings recordings;
    for (int string = 0; string < kStringCount; ++string) {
        if (const auto* samples = sound_.decodedSamples(SoundBank::stringSoundId(string)))
            recordings[static_cast<std::size_t>(string)] = *samples;
    }
    engine_.setRecordings(recordings);
    engine_.reset();
    streaming_ = sound_.startStream(&engine_);
    if (!streaming_ && !reportedNoDevice_) {
        log("chords: no sound output; strings stay silent");
        reportedNoDevice_ = true;
    }
    return streaming_;
}

void ChordPlayer::playChord(const StringNotes& notes, double delaySeconds) {
    const int rate = engine_.sampleRate();
    const auto delay = static_cast<std::int64_t>(std::llround(std::max(delaySeconds, 0.0) * rate));
    const StrumSchedule schedule = wholeChord(notes, rate, delay);
    if (schedule.count > 0 && ensureStream())
        engine_.play(schedule);
}

void ChordPlayer::playString(const StringNotes& notes, int stringNumber) {
    const StrumSchedule schedule = singleString(notes, stringNumber);
    if (schedule.count > 0 && ensureStream())
        engine_.play(schedule);
}

void ChordPlayer::stop() {
    if (streaming_)
        engine_.stop();
}

HeardStrings ChordPlayer::heard() const {
    HeardStrings heard;
    if (!streaming_)
        return heard;
    const std::int64_t now = sound_.streamPosition(&engine_);
    const double rate = engine_.sampleRate();
    for (int n = 1; n <= kStringCount; ++n) {
        const std::int64_t start = engine_.startedAt(n);
        if (start != StrumEngine::kNotStarted && start <= now)
            heard.secondsAgo[static_cast<std::size_t>(n - 1)] =
                static_cast<double>(now - start) / rate;
    }
    heard.waiting = engine_.hasQueued() || engine_.lastScheduledStart() > now;
    return heard;
}

void ChordPlayer::releaseStreamWhenSilent() {
    if (!streaming_ || !engine_.isSilent())
        return;
    // What was rendered before the silence is still on its way to the speaker.
    if (sound_.streamPosition(&engine_) < engine_.silentFrom())
        return;
    sound_.stopStream(&engine_);
    streaming_ = false;
}

}  // namespace zt
