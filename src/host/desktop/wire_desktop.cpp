#include "host/graphics/wire_graphics.h"
#include "host/machine/wiring.h"

namespace mox::host {

void wireDesktop(Machine& machine) {
    static_cast<void>(machine);
}

} // namespace mox::host
