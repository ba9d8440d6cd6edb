// The metronome presets at 10,000: reading the file, and the application
// going through every screen (the metronome settings among them) without a
// display, against the same run with no presets. Figures only: wall time and
// peak memory (the "peak_MB" counter) are reported, not judged.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "framework/Log.h"
#include "metronome/MetronomeProxy.h"
#include "state/PlistFile.h"

#ifndef ZEBTOOLS_APP_PATH
#error "ZEBTOOLS_APP_PATH must name the application binary"
#endif

namespace {

namespace fs = std::filesystem;

fs::path dataDirWith(int presets) {
    const fs::path dir =
        fs::temp_directory_path() / ("zt-bench-presets-" + std::to_string(presets));
    fs::remove_all(dir);
    fs::create_directories(dir);
    zt::Array list{zt::Value("1.0")};
    for (int i = 0; i < presets; ++i) {
        const int bpm = 40 + i % 200;
        list.emplace_back(zt::Dictionary{{"packNumber", 1 + i % 5},
                                         {"timeSig1Value", 4},
                                         {"timeSig2Value", 4},
                                         {"notesPerBeat", 1},
                                         {"isFirstBeatNeed", true},
                                         {"isTempoX2", false},
                                         {"BPM", bpm - 20},
                                         {"state", "1-4-4-1-1-0-" + std::to_string(bpm)},
                                         {"name", "Preset number " + std::to_string(i + 1)}});
    }
    zt::plist::writeFile(dir / "presetsList.plist", zt::Value(std::move(list)));
    return dir;
}

void BM_ReadPresetsFile(benchmark::State& state) {
    const fs::path dir = dataDirWith(static_cast<int>(state.range(0)));
    ::setenv("ZEBTOOLS_DATA_DIR", dir.c_str(), 1);
    zt::setLogQuiet(true);
    for (auto _ : state) {
        zt::MetronomeProxy proxy;
        proxy.loadPresetsArray();
        benchmark::DoNotOptimize(proxy.presetsArray().size());
    }
    fs::remove_all(dir);
}
BENCHMARK(BM_ReadPresetsFile)->Arg(10000)->Unit(benchmark::kMillisecond);

// One headless run that draws every screen, in a child process so that its
// peak memory is its own.
void BM_AppThroughEveryScreen(benchmark::State& state) {
    const fs::path dir = dataDirWith(static_cast<int>(state.range(0)));
    const fs::path shots = dir / "shots";
    double peakMB = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        const pid_t child = ::fork();
        if (child == 0) {
            ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
            ::setenv("ALSOFT_DRIVERS", "null", 1);
            ::setenv("ZEBTOOLS_DATA_DIR", dir.c_str(), 1);
            ::freopen("/dev/null", "w", stderr);
            ::freopen("/dev/null", "w", stdout);
            ::execl(ZEBTOOLS_APP_PATH, ZEBTOOLS_APP_PATH, "--screenshot", shots.c_str(),
                    static_cast<char*>(nullptr));
            ::_exit(127);
        }
        int status = 0;
        rusage usage{};
        if (child < 0 || ::wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) ||
            WEXITSTATUS(status) != 0) {
            state.SkipWithError("the application did not finish its screenshots");
            break;
        }
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        peakMB = static_cast<double>(usage.ru_maxrss) / 1024.0;
    }
    state.counters["peak_MB"] = peakMB;
    fs::remove_all(dir);
}
BENCHMARK(BM_AppThroughEveryScreen)
    ->Arg(0)
    ->Arg(10000)
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
