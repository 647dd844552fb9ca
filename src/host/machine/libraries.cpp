// The system libraries of the present machine.
#include "host/machine/machine.h"

namespace mox::platform {

Advapi32& advapi32() {
    return host::Machine::current().advapi32;
}

Comctl32& comctl32() {
    return host::Machine::current().comctl32;
}

Gdi32& gdi32() {
    return host::Machine::current().gdi32;
}

Kernel32& kernel32() {
    return host::Machine::current().kernel32;
}

Msimg32& msimg32() {
    return host::Machine::current().msimg32;
}

Ntdll& ntdll() {
    return host::Machine::current().ntdll;
}

Oleaut32& oleaut32() {
    return host::Machine::current().oleaut32;
}

Psapi& psapi() {
    return host::Machine::current().psapi;
}

Runtime& runtime() {
    return host::Machine::current().runtime;
}

Shell32& shell32() {
    return host::Machine::current().shell32;
}

User32& user32() {
    return host::Machine::current().user32;
}

Uxtheme& uxtheme() {
    return host::Machine::current().uxtheme;
}

Version& version() {
    return host::Machine::current().version;
}

} // namespace mox::platform
