// Wall times of whole pieces of work against each other, also of other programs.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace mox::bench {

/// One line of the result: the time of `measured` over that of `unit`, which must not exceed `limit`.
struct Comparison {
    std::string what;
    std::function<void()> measured;
    std::function<void()> unit;
    double limit;
    /// Done before each turn of either, and not measured.
    std::function<void()> prepare = [] {};
};

/// Runs each pair in turns, several times, and prints the ratios of the medians. The answer is the exit code: 1 if a ratio is
/// above its limit. Work that throws ends the program.
int compareWallTimes(const std::vector<Comparison>& comparisons);

/// Runs a command line and waits for its end. Throws `std::runtime_error` if it fails.
void runCommand(const std::string& commandLine);

} // namespace mox::bench
