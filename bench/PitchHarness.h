#pragma once
// Runs a pitch detector the way the tuner does, on signals made here: the
// samples go through the analyzer's capture buffer in pieces of 400, and a
// reading is taken after each, as the tuner polls 20 times a second.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <functional>
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

// Readings from 0.3 to 2 s after the onset against the truth.
struct Tally {
    std::vector<double> good;  // |cents| of readings within 50 cents
    long frames = 0, readings = 0, gross = 0;
    std::vector<double> onsets;  // s
    int neverSettled = 0;
    long earlyReadings = 0, earlyGross = 0;  // in the first 0.3 s
};

// The truth may move over a note: `truthAt` gives it for a reading's time.
inline void score(Tally& tally, const std::vector<Reading>& readings, double onset,
                  const std::function<double(double)>& truthAt) {
    double settled = -1.0;
    for (const auto& r : readings) {
        const double t = r.time - onset;
        const bool pitch = r.frequency > 0.0;
        const double error = pitch ? centsOff(r.frequency, truthAt(r.time)) : 0.0;
        if (settled < 0.0 && t >= 0.0 && pitch && std::fabs(error) <= 5.0)
            settled = t;
        if (t >= 0.0 && t < 0.3 && pitch) {
            ++tally.earlyReadings;
            tally.earlyGross += std::fabs(error) > 50.0;
        }
        if (t < 0.3 || t > 2.0)
            continue;
        ++tally.frames;
        if (!pitch)
            continue;
        ++tally.readings;
        if (std::fabs(error) > 50.0) {
            ++tally.gross;
        } else {
            tally.good.push_back(std::fabs(error));
        }
    }
    if (settled < 0.0) {
        ++tally.neverSettled;
    } else {
        tally.onsets.push_back(settled);
    }
}

inline void score(Tally& tally, const std::vector<Reading>& readings, double onset, double truth) {
    score(tally, readings, onset, [truth](double) { return truth; });
}

inline void printRow(const char* detector, const char* set, const char* noise, const Tally& t) {
    std::printf(
        "| %-8s | %-13s | %-5s | %6.2f | %6.2f | %6.2f %% | %5.1f %% | %4.0f / %4.0f ms | %3d | "
        "%5.2f %% |\n",
        detector, set, noise, quantile(t.good, 0.5), quantile(t.good, 0.95),
        t.readings ? 100.0 * t.gross / t.readings : 0.0,
        t.frames ? 100.0 * t.readings / t.frames : 0.0, 1000.0 * quantile(t.onsets, 0.5),
        1000.0 * quantile(t.onsets, 0.95), t.neverSettled,
        t.earlyReadings ? 100.0 * t.earlyGross / t.earlyReadings : 0.0);
}

}  // namespace zt::bench
