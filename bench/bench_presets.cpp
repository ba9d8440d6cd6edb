// The metronome presets at 10,000: reading the file, and the application
// going through every screen (the metronome settings among them) without a
// display, against the same run with no presets. Figures only: wall time and
// peak memory (the "peak_MB" counter) are reported, not judged.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "AppRun.h"
#include "BenchRun.h"
#include "framework/Log.h"
#include "metronome/MetronomeProxy.h"
#include "state/PlistFile.h"

#ifndef ZEBTOOLS_APP_PATH
#error "ZEBTOOLS_APP_PATH must name the application binary"
#endif

namespace {

namespace fs = std::filesystem;

fs::path dataDirWith(int presets) {
    const fs::path dir = zt::bench::scratchPath("zt-bench-presets-" + std::to_string(presets));
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

// Files made to be costly to read, at most the 16 MB read at all: each must
// be read, or refused, in time and memory in proportion to its size.
std::string bigEndian(std::uint64_t v, int bytes) {
    std::string out;
    for (int b = bytes - 1; b >= 0; --b)
        out += static_cast<char>((v >> (8 * b)) & 0xFF);
    return out;
}

std::string emptyBinaryArrays(int n) {
    std::string bin = "bplist00\xAF\x12" + bigEndian(n, 4);
    for (int i = 1; i <= n; ++i)
        bin += bigEndian(i, 4);
    std::string offsets = bigEndian(8, 4);
    for (int i = 1; i <= n; ++i) {
        offsets += bigEndian(bin.size(), 4);
        bin += '\xA0';
    }
    const std::size_t table = bin.size();
    return bin + offsets + std::string(6, '\0') + "\x04\x04" + bigEndian(n + 1, 8) +
           bigEndian(0, 8) + bigEndian(table, 8);
}

std::string repeated(const std::string& head, const std::string& piece, std::size_t size,
                     const std::string& tail) {
    std::string out = head;
    while (out.size() + piece.size() + tail.size() <= size)
        out += piece;
    return out + tail;
}

const std::string kHead = "<?xml version=\"1.0\"?><plist version=\"1.0\"><array>";
const std::string kTail = "</array></plist>";

const struct {
    const char* name;
    std::string (*bytes)();
} kCostlyFiles[] = {
    {"200,000 empty binary arrays", [] { return emptyBinaryArrays(200000); }},
    {"499,990 XML booleans (just under the bound on values)",
     [] { return repeated(kHead, "<true/>", kHead.size() + 7 * 499990 + kTail.size(), kTail); }},
    {"16 MB of XML booleans (past the bound)",
     [] { return repeated(kHead, "<true/>", 16u << 20, kTail); }},
    {"one 16 MB string",
     [] { return repeated(kHead + "<string>", "a", 16u << 20, "</string>" + kTail); }},
    {"16 MB of <array x=\"/>\"> nesting",
     [] { return repeated(kHead, "<array x=\"/>\">", 16u << 20, kTail); }},
};

// In a child process, so that the peak memory is that of the read alone.
void BM_ReadCostlyFile(benchmark::State& state) {
    const auto& file = kCostlyFiles[state.range(0)];
    const fs::path path = zt::bench::scratchPath("zt-bench-costly.plist");
    std::ofstream(path, std::ios::binary) << file.bytes();
    state.SetLabel(file.name);
    double peakMB = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        const pid_t child = ::fork();
        if (child == 0) {
            zt::setLogQuiet(true);
            const auto content = zt::plist::readFile(path, zt::plist::RootKind::Array);
            ::_exit(content.status == zt::plist::FileStatus::Ok ? 0 : 1);
        }
        int status = 0;
        rusage usage{};
        ::wait4(child, &status, 0, &usage);
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        state.counters["read"] = WIFEXITED(status) && WEXITSTATUS(status) == 0;
        peakMB = static_cast<double>(usage.ru_maxrss) / 1024.0;
    }
    state.counters["peak_MB"] = peakMB;
    fs::remove(path);
}
BENCHMARK(BM_ReadCostlyFile)
    ->DenseRange(0, 4)
    ->UseManualTime()
    ->Iterations(zt::bench::iterations(3))
    ->Unit(benchmark::kMillisecond);

// One headless run that draws every screen, in a child process so that its
// peak memory is its own.
void BM_AppThroughEveryScreen(benchmark::State& state) {
    const fs::path dir = dataDirWith(static_cast<int>(state.range(0)));
    const fs::path shots = dir / "shots";
    double peakMB = 0;
    for (auto _ : state) {
        const auto run = zt::bench::runApp(ZEBTOOLS_APP_PATH, {"--screenshot", shots}, dir);
        if (!run.exitedCleanly) {
            state.SkipWithError("the application did not finish its screenshots");
            break;
        }
        state.SetIterationTime(run.seconds);
        peakMB = run.peakMB;
    }
    state.counters["peak_MB"] = peakMB;
    fs::remove_all(dir);
}
// The run without presets, for comparison, is left out of the short mode.
void presetCounts(benchmark::internal::Benchmark* benchmark) {
    if (!zt::bench::shortMode())
        benchmark->Arg(0);
    benchmark->Arg(10000);
}
BENCHMARK(BM_AppThroughEveryScreen)
    ->Apply(presetCounts)
    ->UseManualTime()
    ->Iterations(zt::bench::iterations(3))
    ->Unit(benchmark::kMillisecond);

}  // namespace
