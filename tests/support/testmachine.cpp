#include "support/testmachine.h"

#include <gtest/gtest.h>

#include <utility>

namespace mox::test {

TestMachine::TestMachine(host::MachineConfig config) : folder_(testing::TempDir(), "mox-test-") {
    if (config.home.empty()) {
        config.home = folder_.path() / "home";
        config.isDurable = false;
    }
    if (config.trash.empty()) {
        config.trash = folder_.path() / "trash";
    }
    if (!config.clock) {
        config.clock = clock_;
    }
    machine_ = std::make_unique<host::Machine>(std::move(config));
    before_ = host::Machine::exchange(machine_.get());
}

TestMachine::~TestMachine() {
    for (const auto& [kind, count] : machine_->handles.count()) {
        ADD_FAILURE() << count << " open handle(s) of kind \"" << kind << "\" at the end of the machine";
    }
    host::Machine::exchange(before_);
}

} // namespace mox::test
