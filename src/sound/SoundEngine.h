#pragma once
// The shared sound-effects engine over OpenAL: numbered sounds decoded from
// files, numbered groups of sources that play them with pitch, pan,
// gain and looping, loading in the background with a progress value, and
// streaming voices for sounds computed on the fly (the metronome, the chords'
// strings), one per renderer, all sounding together.
//
// Every operation may be called from any thread. Without an output device
// the engine logs one line and every operation does nothing: loading reports
// itself finished at once and playing is silent. When the device it had goes
// away, the engine opens the default device again as soon as there is one,
// with its sounds and groups as they were and its streams going on.

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "sound/StreamRenderer.h"

namespace zt {

class AlContext;
class StreamVoice;

// One file to load into the buffer of a sound id.
struct SoundRequest {
    int id;
    std::filesystem::path path;
};

class SoundEngine {
public:
    // Rate of every buffer and of the stream, in hertz.
    static constexpr int kSampleRate = 44100;

    // Opens the default output device.
    SoundEngine();
    ~SoundEngine();
    SoundEngine(const SoundEngine&) = delete;
    SoundEngine& operator=(const SoundEngine&) = delete;

    // The engine of the program, opened on first use.
    static SoundEngine& shared();

    bool hasDevice() const;

    // Replaces all groups: group i gets sizes[i] sources.
    void defineSourceGroups(const std::vector<int>& sizes);

    // Loads each file into the buffer of its id, in list order, on the
    // engine's loading thread. A file that cannot be read is logged and its
    // id stays silent; loading goes on with the next.
    void loadBuffersAsync(std::vector<SoundRequest> requests);
    // 0 to 1: share of the requested files done since loading last went
    // idle; 1.0 when everything requested is done (or nothing was).
    float loadProgress() const;

    // Takes the group's next source in turn, stops it, and plays the sound on
    // it. pitch: playback-rate factor (1 = as recorded); pan: -1 left to +1
    // right; gain: 0 to 1. False (and the source left silent) when the group
    // or the sound does not exist.
    bool playSound(int soundId, int group, float pitch, float pan, float gain, bool loop);
    // Stops every source of the group; nothing for an unknown group.
    void stopSourceGroup(int group);
    // Frees the buffer of the id, stopping any source playing it; nothing
    // for an id without a buffer.
    void unloadBuffer(int soundId);

    // Starts a streaming voice for `renderer` (which must outlive it); a
    // renderer already streaming starts again from frame 0. False without a
    // device.
    bool startStream(StreamRenderer* renderer);
    // Stops the renderer's voice, waiting for its thread to finish its block;
    // nothing when it does not stream. Never call it (or startStream) from
    // inside a renderer.
    void stopStream(const StreamRenderer* renderer);
    int streamSampleRate() const { return kSampleRate; }
    // Frame of the renderer's stream being heard now; 0 when it does not stream.
    std::int64_t streamPosition(const StreamRenderer* renderer) const;
    // Times the running streams ran dry and restarted after a silence that
    // the device played in their place.
    int streamUnderruns() const;

    // The loaded sound's samples, mono at streamSampleRate(); nullptr when the
    // id has no buffer. Valid until that id is unloaded or loaded again.
    const std::vector<float>* decodedSamples(int soundId) const;

private:
    // A loaded sound keeps its decoded samples, which the streaming voices
    // read; its OpenAL buffer, a second copy, is made when a source first
    // plays it (most sounds only ever stream) and is 0 until then. OpenAL
    // names are kept as unsigned int (ALuint) so that users of the engine
    // need no OpenAL headers.
    struct Sound {
        unsigned int buffer = 0;
        std::unique_ptr<std::vector<float>> samples;
    };
    struct Group {
        std::vector<unsigned int> sources;
        size_t next = 0;
    };

    void loadLoop();
    // Looks at the output device a few times a second and replaces it when
    // it has gone (SoundEngineOutput.cpp).
    void watchLoop();
    void stopWatching();
    // Under the OpenAL lock, on a device put in place of a lost one: the
    // buffers and groups again (their old names went with the old device).
    void rebuild();
    // Under the OpenAL lock: appends groups of these sizes.
    void makeGroups(const std::vector<int>& sizes);
    void load(const SoundRequest& request);
    // Under the OpenAL lock: the sound's buffer, made now if it has none;
    // false (logged) when OpenAL refuses it.
    bool makeBuffer(int soundId, Sound& sound);
    // Under the OpenAL lock: stops the sources holding the sound's buffer
    // and frees it.
    void dropBuffer(Sound& sound);
    // Under the OpenAL lock: stops and empties every source holding buffer.
    void detach(unsigned int buffer);
    void deleteGroups();

    std::unique_ptr<AlContext> al_;

    // Guarded by the OpenAL lock.
    std::map<int, Sound> sounds_;
    std::vector<Group> groups_;
    std::vector<int> groupSizes_;

    mutable std::mutex loadMutex_;
    std::condition_variable loadWake_;
    std::deque<SoundRequest> pending_;
    int requested_ = 0;
    int completed_ = 0;
    bool quitting_ = false;
    std::thread loader_;

    std::mutex watchMutex_;
    std::condition_variable watchWake_;
    bool watchQuit_ = false;
    std::thread watcher_;

    mutable std::mutex streamMutex_;
    std::map<const StreamRenderer*, std::unique_ptr<StreamVoice>> streams_;
};

}  // namespace zt
