// The machine that stands behind the platform's declarations.
#pragma once

#include "host/desktop/desktop.h"
#include "host/desktop/messageloops.h"
#include "host/dialogs/dialogs.h"
#include "host/files/files.h"
#include "host/fonts/fonts.h"
#include "host/graphics/graphics.h"
#include "host/icons/icons.h"
#include "host/icons/shellicons.h"
#include "host/machine/handles.h"
#include "host/machine/machineconfig.h"
#include "host/machine/temporaryfolder.h"
#include "host/registry/registry.h"
#include "host/text/codepage.h"

#include "platform/advapi32.h"
#include "platform/comctl32.h"
#include "platform/gdi32.h"
#include "platform/kernel32.h"
#include "platform/msimg32.h"
#include "platform/ntdll.h"
#include "platform/oleaut32.h"
#include "platform/psapi.h"
#include "platform/runtime.h"
#include "platform/shell32.h"
#include "platform/user32.h"
#include "platform/uxtheme.h"
#include "platform/version.h"

#include <array>
#include <optional>

namespace mox::host {

/// All services of one machine and the operations that lead to them. A process has one present machine: made from the environment
/// at its first use, or configured before that; tests put their own in its place.
class MOX_API Machine {
    // Before the services, which are made from them.
    std::optional<TemporaryFolder> temporaryHome_;
    const MachineConfig config_;

public:
    /// Throws `std::invalid_argument` for a code page that is not known.
    explicit Machine(MachineConfig config);
    /// No thread may be using the machine.
    ~Machine();
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    /// The present machine. Once made at its first use it stays for good, as objects of the program may end after all else; a
    /// temporary home goes with the process.
    static Machine& current();
    /// What the present machine is going to be made of. Fails with a logic_error once there is one.
    static void configure(MachineConfig config);
    /// Puts a machine in the place of the present one, or back; gives the one before. For tests.
    static Machine* exchange(Machine* machine) noexcept;

    /// With the home and the clock that serve where none are given.
    const MachineConfig& config() const noexcept { return config_; }
    /// True if the home is a temporary folder.
    bool isTemporary() const noexcept { return temporaryHome_.has_value(); }
    Clock& clock() const noexcept { return *config_.clock; }

    std::array<const platform::SystemLibrary*, 13> libraries() const noexcept;
    /// The operation of that full name, `kernel32.FindFirstFileA`, without regard to case; null if there is none.
    platform::OperationBase* findOperation(std::string_view fullName);

    // Services. Each is small and stands for itself; the operations below forward to them.
    Handles handles;
    CodePage codePage;
    Files files;
    Registry registry;
    MessageLoops messageLoops;
    Dialogs dialogs;
    Desktop desktop;
    Fonts fonts;
    Graphics graphics;
    Icons icons;
    ShellIcons shellIcons;

    platform::Advapi32 advapi32;
    platform::Comctl32 comctl32;
    platform::Gdi32 gdi32;
    platform::Kernel32 kernel32;
    platform::Msimg32 msimg32;
    platform::Ntdll ntdll;
    platform::Oleaut32 oleaut32;
    platform::Psapi psapi;
    platform::Runtime runtime;
    platform::Shell32 shell32;
    platform::User32 user32;
    platform::Uxtheme uxtheme;
    platform::Version version;
};

} // namespace mox::host
