#include "support/faultsweep.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mox::test {

namespace {

using namespace platform;

/// The failures of a sweep, which do not count as those of the test.
std::vector<std::string> failuresOf(const std::function<void(FaultRun&)>& body) {
    constexpr std::string_view head = "Failed\n";
    testing::TestPartResultArray results;
    {
        const testing::ScopedFakeTestPartResultReporter reporter(
            testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &results);
        sweepFaults(body);
    }
    std::vector<std::string> messages;
    for (int i = 0; i < results.size(); ++i) {
        std::string message = results.GetTestPartResult(i).message();
        EXPECT_TRUE(message.starts_with(head)) << message;
        messages.push_back(message.substr(head.size()));
    }
    return messages;
}

/// The kind of code that is swept: opens, works, closes, and says whether it went well.
bool countsProcesses(int& count) {
    const Handle snapshot = kernel32().CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == invalidHandle) {
        return false;
    }
    PROCESSENTRY32 entry;
    entry.dwSize = 296;
    count = kernel32().Process32First(snapshot, entry) ? 1 : 0;
    kernel32().CloseHandle(snapshot);
    return count > 0;
}

TEST(FaultSweepTest, letsEachCallFailOnceAndForGood) {
    // The answers of three operations in every run: which fail is exactly known.
    std::vector<std::string> runs;
    sweepFaults([&](FaultRun& run) {
        std::string answers;
        answers += runtime().ThreadID() != 0 ? "+" : "-";
        answers += runtime().Randomize() ? "+" : "-";
        answers += runtime().ScreenTwipsPerPixelX() != 0 ? "+" : "-";
        EXPECT_EQ(run.faulted(), answers != "+++");
        runs.push_back(answers);
    });
    EXPECT_EQ(runs, (std::vector<std::string>{"+++", "-++", "---", "+-+", "+--", "++-", "++-", "+++", "+++"}));
}

TEST(FaultSweepTest, givesEachRunAMachineOfItsOwn) {
    std::vector<std::filesystem::path> homes;
    sweepFaults([&](FaultRun& run) {
        EXPECT_EQ(&host::Machine::current(), &run.machine().machine());
        homes.push_back(run.machine().home());
        runtime().ThreadID();
    });
    ASSERT_EQ(homes.size(), 5u);
    EXPECT_NE(homes[0], homes[1]);
}

TEST(FaultSweepTest, passesWhatReportsItsFailures) {
    sweepFaults([](FaultRun& run) {
        int count = 0;
        EXPECT_TRUE(countsProcesses(count) ? count == 1 : run.faulted());
    });
}

TEST(FaultSweepTest, findsAFailureThatIsTakenForSuccess) {
    const auto failures = failuresOf([](FaultRun&) {
        PROCESSENTRY32 entry;
        entry.dwSize = 296;
        const Handle snapshot = kernel32().CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
        kernel32().Process32First(snapshot, entry); // the planted fault: nobody looks at the answer
        kernel32().CloseHandle(snapshot);
        EXPECT_GT(entry.th32ProcessID, 0u);
    });
    ASSERT_EQ(failures.size(), 5u);
    EXPECT_TRUE(failures[0].starts_with("with kernel32.CreateToolhelp32Snapshot failing at call 0: ")) << failures[0];
    EXPECT_TRUE(failures[1].starts_with("with kernel32.CreateToolhelp32Snapshot failing at call 0 and all calls from there on: "))
        << failures[1];
    EXPECT_TRUE(failures[2].starts_with("with kernel32.Process32First failing at call 1: ")) << failures[2];
    EXPECT_NE(failures[2].find("entry.th32ProcessID"), std::string::npos);
    EXPECT_EQ(failures[4], "the sweep ends early, at call 1");
}

TEST(FaultSweepTest, findsAHandleThatLeaksOnTheWayOut) {
    const auto failures = failuresOf([](FaultRun& run) {
        const Handle snapshot = kernel32().CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
        PROCESSENTRY32 entry;
        entry.dwSize = 296;
        if (snapshot == invalidHandle || !kernel32().Process32First(snapshot, entry)) {
            EXPECT_TRUE(run.faulted());
            return; // the planted fault: the snapshot stays open
        }
        kernel32().CloseHandle(snapshot);
    });
    ASSERT_EQ(failures.size(), 2u); // a CloseHandle that fails is no leak of the body
    EXPECT_EQ(failures[0], "with kernel32.Process32First failing at call 1: Failed\n1 open handle(s) of kind \"snapshot\" at the "
                           "end of the machine");
}

TEST(FaultSweepTest, reportsExceptionsOfTheBody) {
    const auto failures = failuresOf([](FaultRun&) {
        if (runtime().ThreadID() == 0) {
            throw std::runtime_error("no thread");
        }
    });
    ASSERT_EQ(failures.size(), 2u);
    EXPECT_EQ(failures[0], "with runtime.ThreadID failing at call 0: Failed\nthe body throws: no thread");
}

TEST(FaultSweepTest, stopsAtABodyThatFailsByItself) {
    int runs = 0;
    const auto failures = failuresOf([&](FaultRun&) {
        ++runs;
        EXPECT_EQ(runtime().ThreadID(), 0u);
    });
    EXPECT_EQ(runs, 1);
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_TRUE(failures[0].starts_with("without faults: ")) << failures[0];
}

} // namespace

} // namespace mox::test
