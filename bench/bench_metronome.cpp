// CPU cost of the metronome engine while it plays 240 beats per minute in
// sixteenths (16 clicks a second, beat and subdivision voices overlapping),
// rendered in blocks of the given size. "core_pct" is the share of one core
// that rendering in real time takes (Google Benchmark prints 0.003 as
// "3m"); "core_ppm" is the same in millionths.
#include <benchmark/benchmark.h>
#include <time.h>

#include <string>
#include <vector>

#include "metronome/ClickSet.h"
#include "metronome/MetronomeEngine.h"
#include "sound/SoundEngine.h"

namespace {

double threadCpuSeconds() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) + t.tv_nsec * 1e-9;
}

constexpr int kRate = zt::SoundEngine::kSampleRate;

void BM_MetronomeRender240Sixteenths(benchmark::State& state) {
    const int block = static_cast<int>(state.range(0));
    zt::ClickSet clicks;
    std::string error;
    if (!clicks.loadPack(1, kRate, error)) {
        state.SkipWithError(error.c_str());
        return;
    }
    zt::MetronomeEngine engine(kRate, clicks.bank());
    zt::MetronomeSetup setup;
    setup.BPM = 220;  // 240 on the wheel
    setup.setTimeSig1Value(4);
    setup.setNotesPerBeat(4);
    engine.start(setup);

    std::vector<float> out(static_cast<size_t>(block));
    std::int64_t frame = 0;
    const double cpuStart = threadCpuSeconds();
    for (auto _ : state) {
        engine.render(out.data(), block, frame);
        benchmark::DoNotOptimize(out.data());
        frame += block;
    }
    const double cpu = threadCpuSeconds() - cpuStart;
    const double audioSeconds = double(frame) / kRate;
    state.counters["core_pct"] = 100.0 * cpu / audioSeconds;
    state.counters["core_ppm"] = 1e6 * cpu / audioSeconds;
    state.SetItemsProcessed(state.iterations() * block);
}
BENCHMARK(BM_MetronomeRender240Sixteenths)->Arg(64)->Arg(256)->Arg(1024);

}  // namespace
