#include "host/graphics/wire_graphics.h"
#include "host/icons/icons.h"
#include "host/icons/imagelist.h"
#include "host/machine/wiring.h"

namespace mox::host {

namespace {

constexpr std::int32_t highlightColor = 13;

bool drawFromList(Machine& machine, platform::Handle handle, std::int32_t index, platform::Handle hdc, POINT place,
                  std::uint32_t style) {
    const auto list = machine.handles.get<ImageList>(handle);
    const auto icon = list ? list->at(index) : nullptr;
    const auto context = machine.graphics.context(hdc);
    return icon && context && drawListed(*context, *icon, place, style, machine.user32.GetSysColor(highlightColor));
}

} // namespace

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
    machine.comctl32.ImageList_Draw = [&](auto list, auto index, auto hdc, auto x, auto y, auto style) {
        return drawFromList(machine, list, index, hdc, {x, y}, style);
    };
}

} // namespace mox::host
