#include "tuners/StringTonePlayer.h"

#include "framework/Log.h"
#include "sound/SoundBank.h"

namespace zt {

StringTonePlayer::~StringTonePlayer() {
    if (streaming_)
        sound_.stopStream(&tones_);
}

bool StringTonePlayer::ensureStream() {
    if (streaming_)
        return true;
    // Nothing renders while the stream is down: take the recordings as
    // loaded now and start from silence.
    StringTones::Recordings recordings;
    for (int string = 0; string < StringTones::kStrings; ++string) {
        if (const auto* samples = sound_.decodedSamples(SoundBank::stringSoundId(string)))
            recordings[static_cast<std::size_t>(string)] = *samples;
    }
    tones_.setRecordings(recordings);
    tones_.reset();
    streaming_ = sound_.startStream(&tones_);
    if (!streaming_ && !reportedNoDevice_) {
        log("by-ear tuner: no sound output; strings stay silent");
        reportedNoDevice_ = true;
    }
    return streaming_;
}

void StringTonePlayer::playString(int stringNumber, int semitones, bool loop) {
    if (ensureStream())
        tones_.play(stringNumber, semitones, loop);
}

void StringTonePlayer::playStringAt(int stringNumber, double speed, bool loop) {
    if (ensureStream())
        tones_.playAt(stringNumber, speed, loop);
}

void StringTonePlayer::stopString(int stringNumber) {
    if (streaming_)
        tones_.stop(stringNumber);
}

bool StringTonePlayer::releaseWhenSilent() {
    if (!streaming_)
        return true;
    if (!tones_.isSilent())
        return false;
    // What was rendered before the silence is still on its way to the speaker.
    if (sound_.streamPosition(&tones_) < tones_.silentFrom())
        return false;
    sound_.stopStream(&tones_);
    streaming_ = false;
    return true;
}

}  // namespace zt
