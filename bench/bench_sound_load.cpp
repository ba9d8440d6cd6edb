// Time to bring the sound bank into memory: decoding alone, and the whole
// background load into OpenAL buffers.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <thread>

#include "BenchRun.h"
#include "framework/Log.h"
#include "sound/SoundBank.h"
#include "sound/SoundDecoder.h"
#include "sound/SoundEngine.h"

namespace {

std::vector<zt::SoundRequest> bankRequests() {
    std::vector<zt::SoundRequest> requests;
    for (const auto& entry : zt::SoundBank::kEntries) {
        requests.push_back({entry.id, zt::SoundBank::path(entry.file)});
    }
    return requests;
}

void BM_DecodeSoundBank(benchmark::State& state) {
    const auto requests = bankRequests();
    const zt::SoundDecoder decoder(zt::SoundEngine::kSampleRate);
    for (auto _ : state) {
        for (const auto& request : requests) {
            std::string error;
            benchmark::DoNotOptimize(decoder.decode(request.path, error));
        }
    }
}
BENCHMARK(BM_DecodeSoundBank)->Unit(benchmark::kMillisecond);

void BM_EngineLoadSoundBank(benchmark::State& state) {
    zt::SoundEngine engine;
    if (!engine.hasDevice()) {
        state.SkipWithError("no OpenAL device");
        return;
    }
    for (auto _ : state) {
        engine.loadBuffersAsync(bankRequests());
        while (engine.loadProgress() < 1.0f)
            std::this_thread::yield();
    }
}
BENCHMARK(BM_EngineLoadSoundBank)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    // OpenAL's null backend stands in for a sound card unless one is chosen:
    // loading does not depend on the output.
    setenv("ALSOFT_DRIVERS", "null", 0);
    zt::setLogQuiet(true);
    return zt::bench::runRegistered(argc, argv);
}
