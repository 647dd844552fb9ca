#pragma once

namespace mox::host {

class Machine;

/// The bodies of the operations of the shell.
void wireShell(Machine& machine);

} // namespace mox::host
