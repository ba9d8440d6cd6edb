// Time from starting the application to the loading cover lifting, measured
// on the real program without a display.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#ifndef ZEBTOOLS_APP_PATH
#error "ZEBTOOLS_APP_PATH must name the application binary"
#endif

namespace {

void BM_StartToCoverLifted(benchmark::State& state) {
    const char* dataDir = "/tmp/zt-bench-startup";
    const std::string command = std::string("rm -rf ") + dataDir +
                                " && QT_QPA_PLATFORM=offscreen " +
                                "ALSOFT_DRIVERS=null ZEBTOOLS_DATA_DIR=" + dataDir + " " +
                                ZEBTOOLS_APP_PATH + " --quit-when-loaded 2>&1";
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        FILE* pipe = popen(command.c_str(), "r");
        if (!pipe) {
            state.SkipWithError("cannot start the application");
            return;
        }
        char line[512];
        double seconds = -1;
        while (std::fgets(line, sizeof line, pipe)) {
            if (seconds < 0 && std::string(line).find("Buffers was loaded") != std::string::npos) {
                seconds =
                    std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
            }
        }
        pclose(pipe);
        if (seconds < 0) {
            state.SkipWithError("the loading cover never lifted");
            return;
        }
        state.SetIterationTime(seconds);
    }
}
BENCHMARK(BM_StartToCoverLifted)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
