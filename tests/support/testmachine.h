// A machine for one test.
#pragma once

#include "support/testclock.h"

#include "host/machine/machine.h"
#include "host/machine/temporaryfolder.h"

#include <chrono>
#include <filesystem>
#include <memory>

namespace mox::test {

/// The present machine for as long as it lives: a home of its own in a temporary folder, a clock that the test moves. At its end
/// the machine before it is the present one again, and every handle that is still open fails the test.
class TestMachine {
public:
    /// What the configuration leaves open is the test's: the home, the trash, the clock.
    explicit TestMachine(host::MachineConfig config = {});
    ~TestMachine();
    TestMachine(const TestMachine&) = delete;
    TestMachine& operator=(const TestMachine&) = delete;

    host::Machine& machine() noexcept { return *machine_; }
    host::Machine* operator->() noexcept { return machine_.get(); }

    /// A folder for the test's own use, removed at the end. The home is below it and is not made before the machine needs it.
    const std::filesystem::path& folder() const noexcept { return folder_.path(); }
    const std::filesystem::path& home() const noexcept { return machine_->config().home; }

    /// Moves the test's clock; nothing runs.
    void advance(std::chrono::milliseconds time) { clock_->advance(static_cast<std::uint64_t>(time.count())); }

private:
    host::TemporaryFolder folder_;
    std::shared_ptr<TestClock> clock_ = std::make_shared<TestClock>();
    std::unique_ptr<host::Machine> machine_;
    host::Machine* before_;
};

} // namespace mox::test
