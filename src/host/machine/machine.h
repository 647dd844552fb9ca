// The machine that stands behind the platform's declarations.
#pragma once

#include "host/desktop/messageloops.h"
#include "host/files/files.h"
#include "host/machine/handles.h"
#include "host/machine/machineconfig.h"
#include "host/text/codepage.h"

#include "platform/kernel32.h"
#include "platform/psapi.h"
#include "platform/runtime.h"
#include "platform/shell32.h"
#include "platform/user32.h"

#include <functional>
#include <memory>

namespace mox::host {

/// All services of one machine and the operations that lead to them. A process has one present machine: made from the environment at its
/// first use, or configured before that; tests put their own in its place.
class MOX_API Machine {
public:
    explicit Machine(MachineConfig config);
    ~Machine();
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    /// The present machine.
    static Machine& current();
    /// What the present machine is going to be made of. Fails with a logic_error once there is one.
    static void configure(MachineConfig config);
    /// Puts a machine in the place of the present one, or back; gives the one before. For tests.
    static Machine* exchange(Machine* machine) noexcept;

    const MachineConfig& config() const noexcept { return config_; }

    /// The operation of that full name, `kernel32.FindFirstFileA`, without regard to case; null if there is none.
    platform::OperationBase* findOperation(std::string_view fullName);

private:
    const MachineConfig config_;

public:
    // Services. Each is small and stands for itself; the operations below forward to them.
    Handles handles;
    CodePage codePage;
    Files files;
    MessageLoops messageLoops;

    platform::Kernel32 kernel32;
    platform::Psapi psapi;
    platform::Runtime runtime;
    platform::Shell32 shell32;
    platform::User32 user32;
};

} // namespace mox::host
