#include "host/machine/wiring.h"

namespace mox::host {

void wireShell32(Machine&) {}

} // namespace mox::host

mox::platform::Shell32& mox::platform::shell32() {
    return host::Machine::current().shell32;
}
