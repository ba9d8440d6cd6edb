#pragma once
// Runs a pitch detector the way the tuner does, on signals made here: the
// samples go through the analyzer's capture buffer in pieces of 400, and a
// reading is taken after each, as the tuner polls 20 times a second.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "dsp/FakeCapture.h"
#include "dsp/FrequencyAnalyzer.h"

namespace zt::bench {

struct Reading {
    double time;       // s, the newest sample of the block read
    double frequency;  // Hz, or a negative code
};

inline std::vector<Reading> readAll(FourierPDA& detector,
                                    const std::vector<std::int16_t>& samples) {
    FrequencyAnalyzer analyzer(&detector);
    auto capture = std::make_shared<testing::FakeCapture>();
    analyzer.setCapture(capture);
    analyzer.listen();
    std::vector<Reading> readings;
    const std::size_t hop = CaptureBuffer::kHopSamples;
    for (std::size_t at = 0; at + hop <= samples.size(); at += hop) {
        capture->feed({samples.begin() + static_cast<std::ptrdiff_t>(at),
                       samples.begin() + static_cast<std::ptrdiff_t>(at + hop)});
        const float f = analyzer.frequency();
        if (f != FrequencyAnalyzer::kNothingCaptured)
            readings.push_back({analyzer.analysedBlockEnd() / 8000.0, f});
    }
    analyzer.stop();
    return readings;
}

inline double centsOff(double frequency, double truth) {
    return 1200.0 * std::log2(frequency / truth);
}

// Value at share q (0 ... 1) of sorted values.
inline double quantile(std::vector<double> values, double q) {
    if (values.empty())
        return std::numeric_limits<double>::quiet_NaN();
    std::sort(values.begin(), values.end());
    const auto at = static_cast<std::size_t>(std::min(q * values.size(), values.size() - 1.0));
    return values[at];
}

}  // namespace zt::bench
