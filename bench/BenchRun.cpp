#include "BenchRun.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace zt::bench {

namespace {

constexpr double kShortMinTime = 0.01;

// The console report, keeping what could not be measured.
class CheckingReporter : public benchmark::ConsoleReporter {
public:
    CheckingReporter() : ConsoleReporter(::isatty(STDOUT_FILENO) ? OO_Color : OO_None) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.error_occurred)
                errors_.push_back(run.benchmark_name() + ": " + run.error_message);
        }
        ConsoleReporter::ReportRuns(runs);
    }

    const std::vector<std::string>& errors() const { return errors_; }

private:
    std::vector<std::string> errors_;
};

}  // namespace

bool shortMode() {
    const char* value = std::getenv("ZT_BENCH_SHORT");
    return value && *value && std::strcmp(value, "0") != 0;
}

double minTime(double seconds) {
    return shortMode() ? kShortMinTime : seconds;
}

std::int64_t iterations(std::int64_t count) {
    return shortMode() ? 1 : count;
}

int runRegistered(int argc, char** argv) {
    // The short minimum time for the benchmarks that set none of their own,
    // first, so that one given on the command line still wins.
    std::vector<char*> args(argv, argv + argc);
    std::string shortTime = "--benchmark_min_time=" + std::to_string(kShortMinTime);
    if (shortMode() && argc > 0)
        args.insert(args.begin() + 1, shortTime.data());
    int count = static_cast<int>(args.size());
    args.push_back(nullptr);
    benchmark::Initialize(&count, args.data());
    if (benchmark::ReportUnrecognizedArguments(count, args.data()))
        return 1;
    CheckingReporter reporter;
    const std::size_t matched = benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    if (matched == 0) {
        std::fprintf(stderr, "No benchmark ran.\n");
        return 1;
    }
    for (const auto& error : reporter.errors())
        std::fprintf(stderr, "Not measured: %s\n", error.c_str());
    return reporter.errors().empty() ? 0 : 1;
}

}  // namespace zt::bench
