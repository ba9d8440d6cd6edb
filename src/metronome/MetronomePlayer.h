#pragma once
// The metronome on the sound card: a MetronomeEngine rendered through the
// sound engine's streaming voice, with the clicks the sound engine has
// loaded (ids 51 to 65). The stream starts with the first start and keeps
// running until releaseWhenSilent() finds the metronome stopped and
// its last click died away.
//
// Without an output device the player logs once and stays silent; the
// controls go on working.

#include <cstdint>

#include "metronome/MetronomeEngine.h"
#include "metronome/MetronomeOutput.h"
#include "sound/SoundEngine.h"
#include "sound/StreamRenderer.h"

namespace zt {

class MetronomePlayer : public MetronomeOutput, private StreamRenderer {
public:
    // The sound engine must outlive the player, and the clicks must stay
    // loaded while the stream runs.
    explicit MetronomePlayer(SoundEngine& sound);
    ~MetronomePlayer() override;
    MetronomePlayer(const MetronomePlayer&) = delete;
    MetronomePlayer& operator=(const MetronomePlayer&) = delete;

    void start(const MetronomeSetup& setup) override;
    void stop() override;
    void setCurrentPack(int packNumber) override;
    void setIsFirstBeatNeed(bool need) override;
    // Compares the rendered beats with the stream's played position.
    std::optional<HeardBeat> takeHeardBeat() override;

    // Stops the stream when the metronome is stopped and its last sound has
    // been heard, so that an idle metronome costs nothing. Call now and then
    // from the control thread; true once the stream is stopped.
    bool releaseWhenSilent() override;

    MetronomeEngine& engine() { return engine_; }

private:
    void render(float* out, int frames, std::int64_t firstFrame) override;
    bool ensureStream();

    SoundEngine& sound_;
    MetronomeEngine engine_;
    bool streaming_ = false;
    bool playing_ = false;
    bool reportedNoDevice_ = false;
    // A rendered beat taken from the engine and not heard yet.
    std::optional<MetronomeEngine::RenderedBeat> nextBeat_;
};

}  // namespace zt
