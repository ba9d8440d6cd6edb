#pragma once
// The by-ear tuner's strings on the sound card: StringTones rendered through
// one of the sound engine's streaming voices, with the string recordings the
// sound engine has loaded (ids 1 to 6). The stream starts with the first
// tone and runs until releaseWhenSilent() finds every string silent; it
// sounds alongside the other tools' streams.
//
// Every call returns at once; a tone starts at the first frame of the next
// block the stream renders. Calls come from one thread (the screen's).
// Without an output device the player logs once and stays silent.

#include "sound/SoundEngine.h"
#include "tuners/StringToneOutput.h"
#include "tuners/StringTones.h"

namespace zt {

class StringTonePlayer final : public StringToneOutput {
public:
    // The sound engine must outlive the player, and the string recordings
    // must stay loaded while the stream runs.
    explicit StringTonePlayer(SoundEngine& sound) : sound_(sound) {}
    ~StringTonePlayer() override;
    StringTonePlayer(const StringTonePlayer&) = delete;
    StringTonePlayer& operator=(const StringTonePlayer&) = delete;

    void playString(int stringNumber, int semitones, bool loop) override;
    void playStringAt(int stringNumber, double speed, bool loop) override;
    void stopString(int stringNumber) override;
    // Stops the stream once every string is silent and has been heard.
    bool releaseWhenSilent() override;

private:
    bool ensureStream();

    SoundEngine& sound_;
    StringTones tones_;
    bool streaming_ = false;
    bool reportedNoDevice_ = false;
};

}  // namespace zt
