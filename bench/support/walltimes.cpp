#include "walltimes.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace mox::bench {

namespace {

double secondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double>& times) {
    std::ranges::sort(times);
    return times[times.size() / 2];
}

} // namespace

int compareWallTimes(const std::vector<Comparison>& comparisons) {
    constexpr int turns = 7;
    int failed = 0;
    for (const Comparison& comparison : comparisons) {
        std::vector<double> measured;
        std::vector<double> unit;
        for (int i = 0; i < turns; ++i) {
            comparison.prepare();
            unit.push_back(secondsOf(comparison.unit));
            comparison.prepare();
            measured.push_back(secondsOf(comparison.measured));
        }
        const double value = median(measured) / median(unit);
        const bool over = value > comparison.limit;
        failed |= over;
        std::printf("%-60s %8.2f  (limit %g)%s   [%.1f ms / %.1f ms]\n", comparison.what.c_str(), value, comparison.limit,
                    over ? "  OVER" : "", median(measured) * 1e3, median(unit) * 1e3);
    }
    return failed;
}

void runCommand(const std::string& commandLine) {
    if (std::system(commandLine.c_str()) != 0) {
        throw std::runtime_error("failed: " + commandLine);
    }
}

} // namespace mox::bench
