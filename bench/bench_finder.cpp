// The chord finder over every chord/tuning pair (15,264): "RoundTrip" is
// the whole walk (each chord's fingerings found and sorted, the first one
// named back), with its counts; "NamesOnly" names the 15,264 first
// fingerings collected beforehand, the finder's own share.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "BenchRun.h"
#include "chords/ChordLibrary.h"
#include "chords/FinderRoundTrip.h"
#include "chords/VariationOrder.h"
#include "tunings/TuningCatalogue.h"

namespace {

void BM_FinderRoundTrip(benchmark::State& state) {
    zt::chords::RoundTrip trip;
    for (auto _ : state) {
        trip = zt::chords::roundTrip();
        benchmark::DoNotOptimize(trip.named);
    }
    state.counters["pairs"] = trip.pairs;
    state.counters["named"] = trip.named;
    state.counters["same_notes"] = trip.sameNotes;
    state.counters["later"] = trip.later;
    state.counters["absent"] = trip.absent;
    state.counters["shapeless"] = trip.shapeless;
}
BENCHMARK(BM_FinderRoundTrip)->Unit(benchmark::kMillisecond)->MinTime(zt::bench::minTime(3.0));

std::vector<zt::chords::HeldStrings> firstFingerings() {
    std::vector<zt::chords::HeldStrings> held;
    zt::ChordLibrary library;
    const auto set = std::make_unique<zt::VariationSet>();
    for (const auto& tuning : zt::tunings::catalogue()) {
        const auto tokens = zt::tunings::tokens(tuning.notes);
        library.setTuning(tokens);
        library.setExpandedTuning(tokens);
        const auto open = *zt::chords::openNotes(tokens);
        for (auto root : zt::chords::names()) {
            for (auto type : zt::chords::typeKeys()) {
                library.getVariations(root, type, *set);
                zt::sortVariations(*set);
                if (set->count > 0)
                    held.push_back(zt::chords::heldStrings(set->records[0], open));
            }
        }
    }
    return held;
}

void BM_FinderNamesOnly(benchmark::State& state) {
    const auto held = firstFingerings();
    std::size_t names = 0;
    for (auto _ : state) {
        names = 0;
        for (const auto& h : held)
            names += zt::chords::identify(h).size();
        benchmark::DoNotOptimize(names);
    }
    state.counters["fingerings"] = double(held.size());
    state.counters["names"] = double(names);
    state.SetItemsProcessed(state.iterations() * std::int64_t(held.size()));
}
BENCHMARK(BM_FinderNamesOnly)->Unit(benchmark::kMillisecond)->MinTime(zt::bench::minTime(3.0));

}  // namespace
