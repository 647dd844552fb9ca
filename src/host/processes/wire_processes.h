#pragma once

namespace mox::host {

class Machine;

/// The bodies of the operations on processes, threads and library files.
void wireProcesses(Machine& machine);

} // namespace mox::host
