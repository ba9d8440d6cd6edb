#pragma once
// Where the analyzer's sound comes from: a source of 16-bit signed mono
// samples at a given rate (the microphone, a sound file). The source calls
// its sink with the samples in order, in pieces of any size, from a thread
// of its own or from whoever drives it.

#include <cstddef>
#include <cstdint>

namespace zt {

class CaptureSink {
public:
    virtual ~CaptureSink() = default;
    // The next `count` samples. Called from one thread at a time.
    virtual void captured(const std::int16_t* samples, std::size_t count) = 0;
};

class AudioCapture {
public:
    enum class State {
        Stopped,  // not started, stopped, or a file played to its end
        Running,
        Lost,  // the device went away while capturing; start() may open it again
    };

    virtual ~AudioCapture() = default;

    // Opens the source and starts delivering at `rate` hertz; false (with a
    // log line) when it cannot be opened, for example when there is no
    // capture device.
    virtual bool start(CaptureSink& sink, int rate) = 0;
    // Stops at once and closes the source: once it returns the sink is no
    // longer called.
    virtual void stop() = 0;
    virtual State state() const = 0;
};

}  // namespace zt
