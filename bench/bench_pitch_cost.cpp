// The cost of one tuner reading: the newest block taken from the capture
// buffer, the transform and detection, smoothing and the note choice, for
// the classic (overtone) detector and the fine one; on a ringing string and
// on a block in which a note has just begun (the fine detector then looks at
// the note alone, one transform more). The real transform alone for scale.

#include <benchmark/benchmark.h>

#include <random>

#include "dsp/FakeCapture.h"
#include "dsp/FrequencyAnalyzer.h"
#include "dsp/PluckedString.h"
#include "dsp/RealTransform.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "tuners/MainFrequerncyProxy.h"

namespace {

using namespace zt;

// A plucked A2 from 0.5 s on, at 8000 Hz.
std::vector<std::int16_t> pluckedString() {
    std::mt19937 random(1);
    testing::StringPluck pluck;
    pluck.frequency = 110.0;
    return testing::toSamples(testing::renderPluck(pluck, 0.5, 1.0, 8000, random));
}

void reading(benchmark::State& state, bool classic, std::size_t blockEnd) {
    setLogQuiet(true);
    auto capture = std::make_shared<testing::FakeCapture>();
    auto proxy = makeProxy<MainFrequerncyProxy>(capture);
    proxy->initVariables({});
    proxy->setClassicDetection(classic);
    proxy->setTresholdPercent(10);
    proxy->startAudioSession();
    const auto samples = pluckedString();
    capture->feed({samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(blockEnd)});
    for (auto _ : state)
        benchmark::DoNotOptimize(proxy->getNoteDesctiption().frequency);
    state.counters["Hz"] = proxy->currentFreq();
    proxy->stopAudioSession();
    setLogQuiet(false);
}

// A string ringing for a second; a note that began 100 ms before the block's end.
constexpr std::size_t kRinging = 12000;
constexpr std::size_t kJustBegun = 4800;

void BM_ClassicReading(benchmark::State& state) {
    reading(state, true, kRinging);
}
void BM_FineReading(benchmark::State& state) {
    reading(state, false, kRinging);
}
void BM_FineReadingAtAnOnset(benchmark::State& state) {
    reading(state, false, kJustBegun);
}

void BM_RealTransform(benchmark::State& state) {
    const auto length = static_cast<std::size_t>(state.range(0));
    RealTransform transform(length);
    std::vector<float> in(length, 0.0f);
    std::vector<std::complex<float>> out(length / 2 + 1);
    for (std::size_t i = 0; i < 2000 && i < length; ++i)
        in[i] = static_cast<float>(i % 37);
    for (auto _ : state) {
        transform.forward(in.data(), out.data());
        benchmark::DoNotOptimize(out.data());
    }
}

BENCHMARK(BM_ClassicReading)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FineReading)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FineReadingAtAnOnset)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RealTransform)->Arg(2048)->Arg(4096)->Unit(benchmark::kMicrosecond);

}  // namespace
