#pragma once
// What the benchmarks share. A short mode (ZT_BENCH_SHORT=1 in the
// environment) makes each measure once and briefly, so that a test run can
// keep every benchmark working; and a run fails when a benchmark could not
// measure, so that one that no longer measures is seen.

#include <cstdint>

namespace zt::bench {

// True when ZT_BENCH_SHORT is set to anything but "" or "0".
bool shortMode();

// A minimum time or a number of iterations given at registration, cut down
// in the short mode (a benchmark's own setting outranks the command line).
double minTime(double seconds);
std::int64_t iterations(std::int64_t count);

// Runs the registered Google benchmarks as BENCHMARK_MAIN does, returning 1
// when one reported an error (SkipWithError) or none matched.
int runRegistered(int argc, char** argv);

}  // namespace zt::bench
