#include "host/desktop/wire_themes.h"

#include "host/desktop/visualstyle.h"
#include "host/machine/wiring.h"

namespace mox::host {

namespace {

// Statuses of the operations.
constexpr std::int32_t done = 0;
constexpr auto badHandle = static_cast<std::int32_t>(0x80070006);
constexpr auto notFound = static_cast<std::int32_t>(0x80070490);
constexpr auto failed = static_cast<std::int32_t>(0x80004005);

} // namespace

void wireThemes(Machine& machine) {
    platform::Uxtheme& uxtheme = machine.uxtheme;
    Handles& handles = machine.handles;
    uxtheme.IsThemeActive = [&] { return machine.config().visualStyle; };
    uxtheme.IsAppThemed = [&] { return machine.config().visualStyle; };
    uxtheme.OpenThemeData = [&](auto, auto classList) {
        const auto theme = machine.config().visualStyle ? themeOf(classList) : std::nullopt;
        return theme ? handles.open<Theme>("theme", std::make_shared<Theme>(*theme)) : 0;
    };
    uxtheme.CloseThemeData = [&](auto theme) { return handles.close<Theme>(theme) ? done : badHandle; };
    uxtheme.GetThemeSysColor = [&](auto theme, auto index) {
        return handles.get<Theme>(theme) ? themeColor(index) : machine.user32.GetSysColor(index);
    };
    uxtheme.GetThemePartSize = [&](auto handle, auto, auto part, auto, const auto&, auto, auto& size) {
        const auto theme = handles.get<Theme>(handle);
        if (!theme) {
            return badHandle;
        }
        const auto found = themePartSize(*theme, part);
        size = found.value_or(platform::SIZE());
        return found ? done : notFound;
    };
    uxtheme.DrawThemeBackground = [&](auto handle, auto hdc, auto part, auto, const auto& area, const auto& clip) {
        const auto theme = handles.get<Theme>(handle);
        const auto context = machine.graphics.context(hdc);
        if (!theme || !context) {
            return badHandle;
        }
        if (!themePartSize(*theme, part)) {
            return notFound;
        }
        return drawThemePart(*context, *theme, part, area, clip) ? done : failed;
    };
}

} // namespace mox::host
