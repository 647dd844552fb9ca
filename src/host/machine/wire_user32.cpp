#include "host/machine/systemversion.h"
#include "host/machine/wiring.h"

namespace mox::host {

void wireUser32(Machine& machine) {
    platform::User32& user32 = machine.user32;
    user32.MessageBoxA = [&](auto owner, auto text, auto caption, auto style) {
        return machine.dialogs.messageBox(owner, machine.codePage.toUtf8(text), machine.codePage.toUtf8(caption), style);
    };
    user32.GetSystemMetrics = [&](auto index) { return systemMetric(machine.config(), index); };
    // Timers of the thread alone: this machine has no windows that they could belong to.
    user32.SetTimer = [&](auto window, auto id, auto milliseconds, auto procedure) {
        return window == 0 ? machine.messageLoops.setTimer(milliseconds, std::move(procedure), id) : 0;
    };
    user32.KillTimer = [&](auto window, auto timer) { return window == 0 && machine.messageLoops.killTimer(timer); };
}

} // namespace mox::host
