#include "host/desktop/screen.h"
#include "host/machine/wiring.h"
#include "host/runtime/codefile.h"
#include "host/runtime/randomnumbers.h"
#include "host/text/lowercase.h"

#include "automation/objects/apartment.h"

#include <unistd.h>

namespace mox::host {

void wireRuntime(Machine& machine) {
    platform::Runtime& runtime = machine.runtime;
    runtime.ThreadID = [] { return static_cast<std::uint32_t>(gettid()); };
    runtime.AppPath = [&](auto code) { return machine.files.toDrivePath(fileOfCode(code).parent_path()); };
    runtime.LCase = [](auto text) { return lowerCase(text); };
    runtime.ScreenTwipsPerPixelX = [] { return twipsPerPixel; };
    runtime.ScreenTwipsPerPixelY = [] { return twipsPerPixel; };
    runtime.Randomize = [&] {
        Apartment::state<RandomNumbers>(&machine).seed(static_cast<std::uint32_t>(machine.clock().now()));
        return true;
    };
    runtime.Rnd = [&] { return Apartment::state<RandomNumbers>(&machine).next(); };
}

} // namespace mox::host
