// Time from starting the application to the loading cover lifting, measured
// on the real program without a display, on a data folder of its first
// start; and the peak memory of that run, which quits once loaded (the
// "peak_MB" counter). The debug log (--verbose) tells when the cover lifts.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>

#include "AppRun.h"
#include "BenchRun.h"

#ifndef ZEBTOOLS_APP_PATH
#error "ZEBTOOLS_APP_PATH must name the application binary"
#endif

namespace {

namespace fs = std::filesystem;

void BM_StartToCoverLifted(benchmark::State& state) {
    const fs::path dataDir = zt::bench::scratchPath("zt-bench-startup");
    double peakMB = 0;
    for (auto _ : state) {
        fs::remove_all(dataDir);
        const auto run = zt::bench::runApp(ZEBTOOLS_APP_PATH, {"--verbose", "--quit-when-loaded"},
                                           dataDir, "Buffers was loaded");
        if (run.markerSeconds < 0) {
            state.SkipWithError("the loading cover never lifted");
            break;
        }
        if (!run.exitedCleanly) {
            state.SkipWithError("the application did not quit cleanly");
            break;
        }
        state.SetIterationTime(run.markerSeconds);
        peakMB = std::max(peakMB, run.peakMB);
    }
    state.counters["peak_MB"] = peakMB;
    fs::remove_all(dataDir);
}
BENCHMARK(BM_StartToCoverLifted)
    ->UseManualTime()
    ->Iterations(zt::bench::iterations(5))
    ->Unit(benchmark::kMillisecond);

}  // namespace
