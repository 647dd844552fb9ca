// The bodies of the operations of uxtheme.
#pragma once

namespace mox::host {

class Machine;

void wireThemes(Machine& machine);

} // namespace mox::host
