#include "support/faultsweep.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <exception>
#include <optional>
#include <string>

namespace mox::test {

namespace {

constexpr std::uint64_t mostCalls = 2000;
constexpr int mostFailingRuns = 4;

struct Fault {
    std::uint64_t call;
    bool onwards;
};

struct Outcome {
    bool isHit = false;
    bool isFailed = false;
};

std::string describe(const std::optional<Fault>& fault, const std::string& operation) {
    if (!fault) {
        return "without faults: ";
    }
    return (operation.empty() ? "with no call" : "with " + operation) + " failing at call " + std::to_string(fault->call) +
           (fault->onwards ? " and all calls from there on: " : ": ");
}

/// One run, whose failures are held back until it is known which operation failed.
Outcome run(const std::function<void(FaultRun&)>& body, const std::optional<Fault>& fault) {
    testing::TestPartResultArray results;
    std::string operation;
    {
        const testing::ScopedFakeTestPartResultReporter reporter(
            testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &results);
        TestMachine machine;
        std::optional<platform::FaultPlan> plan;
        if (fault) {
            plan.emplace(fault->call, fault->onwards);
        }
        FaultRun faultRun(machine, plan ? &*plan : nullptr);
        try {
            body(faultRun);
        } catch (const std::exception& error) {
            ADD_FAILURE() << "the body throws: " << error.what();
        }
        if (faultRun.faulted()) {
            operation = plan->operation()->fullName();
        }
    }
    Outcome outcome{!operation.empty(), false};
    for (int i = 0; i < results.size(); ++i) {
        const testing::TestPartResult& result = results.GetTestPartResult(i);
        if (result.failed()) {
            outcome.isFailed = true;
            ADD_FAILURE_AT(result.file_name() ? result.file_name() : "", result.line_number())
                << describe(fault, operation) << result.message();
        }
    }
    return outcome;
}

} // namespace

void sweepFaults(const std::function<void(FaultRun& run)>& body) {
    if (run(body, std::nullopt).isFailed) {
        return;
    }
    int failingRuns = 0;
    for (std::uint64_t call = 0; call < mostCalls; ++call) {
        bool isHit = false;
        for (const bool onwards : {false, true}) {
            const Outcome outcome = run(body, Fault{call, onwards});
            isHit = isHit || outcome.isHit;
            failingRuns += outcome.isFailed ? 1 : 0;
        }
        if (!isHit) {
            return;
        }
        if (failingRuns >= mostFailingRuns) {
            ADD_FAILURE() << "the sweep ends early, at call " << call;
            return;
        }
    }
    ADD_FAILURE() << "the sweep does not end: more than " << mostCalls << " calls";
}

} // namespace mox::test
