// Benchmarks that end in ratios: what is measured against what, and the limit that we hold it to.
#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace mox::bench {

/// One line of the result: time of `measured` over `scale` times the time of `unit`, which must not exceed `limit`.
struct Ratio {
    std::string what;
    std::string measured;
    std::string unit;
    double limit;
    double scale = 1;
};

/// Runs all registered benchmarks, several times each, and prints the ratios of their medians. The answer is the exit code: 1 if
/// a ratio is above its limit.
int runWithRatios(int argc, char** argv, const std::vector<Ratio>& ratios);

} // namespace mox::bench
