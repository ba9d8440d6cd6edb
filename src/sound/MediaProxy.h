#pragma once
// The sound bank as a model-side proxy: loads every sound of the bank once,
// in the background, tells the rest of the program when loading has
// finished ("LoadSoundBuffersComplete"), and plays sounds by id or by string
// and fret in the engine's source groups.

#include <atomic>
#include <chrono>
#include <optional>
#include <string>

#include "framework/MainLoop.h"
#include "framework/Proxy.h"
#include "sound/SoundEngine.h"

namespace zt {

class MediaProxy : public Proxy {
public:
    static constexpr const char* NAME = "MediaProxy";
    // The build of the program that has only the metronome goes by this
    // display name and loads no string sounds.
    static constexpr const char* kMetronomeOnlyName = "Metronome";

    explicit MediaProxy(std::string displayName = "ZebTools",
                        SoundEngine& engine = SoundEngine::shared());
    ~MediaProxy() override;

    void initializeProxy() override;

    // Defines the seven one-source groups and starts loading the bank; a
    // timer on the main loop polls the progress (see loadState).
    void loadSoundBuffers();
    // The loading cover waits for the poll that sees the bank loaded, so
    // this period, not the 20 ms the loading takes, decides when it lifts.
    static constexpr std::chrono::milliseconds kLoadPollInterval{200};
    // The polling timer's action.
    void loadState();
    // Frees buffers 1 to 65.
    void unloadSoundBuffers();

    // Plays at pitch 1, centred, full gain.
    void playSoundByID(int soundId, int group, bool loop);
    // string: 0 (highest) to 5; fret: semitones above the open string (may
    // be negative). Plays the open string's sound at pitch 2^(fret/12).
    void playSoundByFret(int fret, int string, bool loop);
    void stopSound(int group);

    bool isBuffersLoaded() const { return isBuffersLoaded_; }
    void setIsBuffersLoaded(bool loaded) { isBuffersLoaded_ = loaded; }
    float trackTime() const { return trackTime_; }
    void setTrackTime(float time) { trackTime_ = time; }

    const std::string& displayName() const { return displayName_; }
    void setDisplayName(std::string name) { displayName_ = std::move(name); }

private:
    void stopTimer();

    std::atomic<bool> isBuffersLoaded_{false};
    // The loop that runs loadSoundsTimer_, kept to stop it there.
    MainLoop* timerLoop_ = nullptr;
    std::optional<MainLoop::TimerId> loadSoundsTimer_;
    float trackTime_ = 0.0f;

    std::string displayName_;
    SoundEngine& engine_;
};

}  // namespace zt
