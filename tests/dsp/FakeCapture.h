#pragma once
// A capture source driven by the test: it opens or refuses to, delivers the
// samples the test gives it on the test's thread, and can be lost.

#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

#include "dsp/AudioCapture.h"

namespace zt::testing {

class FakeCapture final : public AudioCapture {
public:
    bool opens = true;

    bool start(CaptureSink& sink, int rate) override {
        ++starts;
        rate_ = rate;
        if (!opens)
            return false;
        sink_ = &sink;
        state_ = State::Running;
        return true;
    }
    void stop() override {
        sink_ = nullptr;
        if (state_ == State::Running)
            state_ = State::Stopped;
    }
    State state() const override { return state_; }

    void feed(const std::vector<std::int16_t>& samples) {
        if (sink_)
            sink_->captured(samples.data(), samples.size());
    }
    void lose() {
        sink_ = nullptr;
        state_ = State::Lost;
    }

    int rate() const { return rate_; }
    int starts = 0;

private:
    CaptureSink* sink_ = nullptr;
    State state_ = State::Stopped;
    int rate_ = 0;
};

// `count` samples of a sine of `hertz` at 8000 Hz, amplitude `amplitude`
// (full scale 32767), starting at sample `first`.
inline std::vector<std::int16_t> sine(double hertz, std::size_t count, double amplitude = 8000.0,
                                      std::size_t first = 0) {
    std::vector<std::int16_t> samples(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double t = static_cast<double>(first + i) / 8000.0;
        samples[i] = static_cast<std::int16_t>(
            std::lround(amplitude * std::sin(2.0 * std::numbers::pi * hertz * t)));
    }
    return samples;
}

}  // namespace zt::testing
