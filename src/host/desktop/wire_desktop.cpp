#include "host/desktop/systemcolors.h"
#include "host/desktop/windowcontexts.h"
#include "host/desktop/wire_themes.h"
#include "host/graphics/wire_graphics.h"
#include "host/machine/wiring.h"

namespace mox::host {

namespace {

/// Wraps around as the numbers of rectangles do.
std::int32_t moved(std::int32_t coordinate, std::int32_t distance) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(coordinate) + static_cast<std::uint32_t>(distance));
}

} // namespace

void wireDesktop(Machine& machine) {
    platform::User32& user32 = machine.user32;
    Graphics& graphics = machine.graphics;
    user32.GetDesktopWindow = [&] { return machine.desktop.desktopWindow(); };
    user32.GetWindowRect = [&](auto window, auto& area) { return machine.desktop.windowRect(window, area); };
    user32.GetDC = [&](auto window) { return takeContext(graphics, window, false); };
    // Regions are no objects of this machine, so there is none to clip by.
    user32.GetDCEx = [&](auto window, auto region, auto flags) {
        return region == 0 ? takeContext(graphics, window, (flags & platform::DCX_WINDOW) != 0) : 0;
    };
    user32.ReleaseDC = [&](auto, auto hdc) { return releaseContext(graphics, hdc); };
    user32.GetSysColor = [](auto index) { return systemColor(index); };
    user32.OffsetRect = [](auto& area, auto dx, auto dy) {
        area = {moved(area.left, dx), moved(area.top, dy), moved(area.right, dx), moved(area.bottom, dy)};
        return true;
    };
    wireThemes(machine);
}

} // namespace mox::host
