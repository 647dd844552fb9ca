#include "ratios.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace mox::bench {

namespace {

/// Collects the processor time of one iteration of each repetition: other programs on the machine disturb it least.
class Collector : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
                times_[run.run_name.function_name].push_back(run.cpu_accumulated_time / static_cast<double>(run.iterations));
            }
        }
    }
    double median(const std::string& name) {
        std::vector<double>& times = times_[name];
        std::ranges::sort(times);
        return times.empty() ? 0 : times[times.size() / 2];
    }

private:
    std::map<std::string, std::vector<double>> times_;
};

} // namespace

int runWithRatios(int argc, char** argv, const std::vector<Ratio>& ratios) {
    std::vector<char*> arguments(argv, argv + argc);
    std::string repetitions = "--benchmark_repetitions=7";
    std::string time = "--benchmark_min_time=0.05";
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    for (std::string* flag : {&repetitions, &time, &interleave}) {
        arguments.insert(arguments.begin() + 1, flag->data());
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);
    int failed = 0;
    for (const Ratio& ratio : ratios) {
        const double measured = collector.median(ratio.measured);
        const double unit = collector.median(ratio.unit) * ratio.scale;
        if (measured == 0 || unit == 0) {
            continue; // left out by a filter
        }
        const double value = measured / unit;
        const bool over = value > ratio.limit;
        failed |= over;
        std::printf("%-60s %8.2f  (limit %g)%s   [%.1f ns / %.1f ns]\n", ratio.what.c_str(), value, ratio.limit,
                    over ? "  OVER" : "", measured * 1e9, unit * 1e9);
    }
    return failed;
}

} // namespace mox::bench
