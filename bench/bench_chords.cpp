// The fingering generator over every chord/tuning pair: 12 roots x 24 types
// x 53 tunings = 15,264 chords. "All pairs" times one walk over them all,
// changing the tuning 53 times; the counters give each chord's own time
// (median, 90th percentile and slowest, in microseconds, the fastest of the
// runs for each chord) so that one slow chord cannot hide in an average.
// "Sorted" adds the ordering the chords screen shows.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <vector>

#include "BenchRun.h"
#include "chords/ChordLibrary.h"
#include "chords/VariationOrder.h"
#include "tunings/TuningCatalogue.h"

namespace {

void walk(benchmark::State& state, bool sorted) {
    zt::ChordLibrary library;
    const auto set = std::make_unique<zt::VariationSet>();
    std::vector<std::vector<std::string>> tunings;
    for (const auto& tuning : zt::tunings::catalogue())
        tunings.push_back(zt::tunings::tokens(tuning.notes));
    const std::size_t pairs =
        tunings.size() * zt::chords::names().size() * zt::chords::typeKeys().size();
    std::vector<double> fastest(pairs, 1e9);

    long shapes = 0;
    for (auto _ : state) {
        std::size_t pair = 0;
        shapes = 0;
        for (const auto& tokens : tunings) {
            library.setTuning(tokens);
            library.setExpandedTuning(tokens);
            for (auto root : zt::chords::names()) {
                for (auto type : zt::chords::typeKeys()) {
                    const auto start = std::chrono::steady_clock::now();
                    library.getVariations(root, type, *set);
                    if (sorted)
                        zt::sortVariations(*set);
                    const std::chrono::duration<double, std::micro> took =
                        std::chrono::steady_clock::now() - start;
                    fastest[pair] = std::min(fastest[pair], took.count());
                    shapes += set->count;
                    ++pair;
                }
            }
        }
        benchmark::DoNotOptimize(set->count);
    }
    std::sort(fastest.begin(), fastest.end());
    state.counters["chords"] = double(pairs);
    state.counters["shapes"] = double(shapes);
    state.counters["median_us"] = fastest[pairs / 2];
    state.counters["p90_us"] = fastest[pairs * 9 / 10];
    state.counters["slowest_us"] = fastest.back();
    state.SetItemsProcessed(state.iterations() * std::int64_t(pairs));
}

void BM_ChordsAllPairs(benchmark::State& state) {
    walk(state, false);
}
BENCHMARK(BM_ChordsAllPairs)->Unit(benchmark::kMillisecond)->MinTime(zt::bench::minTime(3.0));

void BM_ChordsAllPairsSorted(benchmark::State& state) {
    walk(state, true);
}
BENCHMARK(BM_ChordsAllPairsSorted)->Unit(benchmark::kMillisecond)->MinTime(zt::bench::minTime(3.0));

}  // namespace
