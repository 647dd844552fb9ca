#include "host/graphics/wire_graphics.h"
#include "host/icons/icons.h"
#include "host/machine/wiring.h"

namespace mox::host {

void wireIcons(Machine& machine) {
    Icons& icons = machine.icons;
    platform::User32& user32 = machine.user32;
    user32.LoadIconA = [&](auto module, auto resource) { return module == 0 ? icons.load(resource) : 0; };
    user32.CreateIconIndirect = [&](const auto& info) { return icons.create(info); };
    user32.GetIconInfo = [&](auto icon, auto& info) { return icons.info(icon, info); };
    user32.DestroyIcon = [&](auto icon) { return icons.destroy(icon); };
    user32.DrawIconEx = [&](auto hdc, auto x, auto y, auto icon, auto cx, auto cy, auto, auto brush, auto flags) {
        return icons.draw(hdc, {x, y, cx, cy}, icon, brush, flags);
    };
}

} // namespace mox::host
