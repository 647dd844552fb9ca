// Makes every operation of the system fail in turn.
#pragma once

#include "support/testmachine.h"

#include "platform/operation.h"

#include <functional>

namespace mox::test {

/// One run of the body of a sweep, on a machine of its own.
class FaultRun {
public:
    FaultRun(TestMachine& machine, const platform::FaultPlan* plan) : machine_(machine), plan_(plan) {}

    TestMachine& machine() noexcept { return machine_; }
    /// True once an operation of this run was made to fail. Before that, and in the first run, only the right result is good
    /// enough.
    bool faulted() const noexcept { return plan_ && plan_->hit(); }

private:
    TestMachine& machine_;
    const platform::FaultPlan* plan_;
};

/// Runs `body` without faults, then letting its first call of an operation fail, once in one run and that and all later ones in
/// another, then its second call, and so on until there is no such call. The body expects with EXPECT_... that the result is
/// right, or the stated failure after a fault, and that nothing is half done; exceptions and open handles fail the test as well.
/// What fails is reported with the operation and the number of the call. The sweep ends early after a few failing runs, and fails
/// if the body makes 2000 calls.
void sweepFaults(const std::function<void(FaultRun& run)>& body);

} // namespace mox::test
