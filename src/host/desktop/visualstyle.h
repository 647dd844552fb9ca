// The machine's own visual style.
#pragma once

#include "host/graphics/devicecontext.h"

#include <optional>
#include <string_view>

namespace mox::host {

/// What of the style was opened.
struct Theme {
    enum class Kind { globals, explorerBar };
    Kind kind = Kind::globals;
};

/// The first class of a list, separated by semicolons and without regard to case, that the style knows; the colours of the system
/// ("GLOBALS") and task panes ("EXPLORERBAR") are.
std::optional<Theme> themeOf(std::u16string_view classList);

/// Colours by the index of GetSysColor; 0 for others.
platform::COLORREF themeColor(std::int32_t index) noexcept;

/// The size in pixels that a part of a class is best drawn in; none if the class has no such part.
std::optional<SIZE> themePartSize(const Theme& theme, std::int32_t part) noexcept;

/// Draws a part into a rectangle, but nothing outside of the other one, both in logical units. False if the class has no such
/// part, or if it cannot be drawn.
bool drawThemePart(DeviceContext& context, const Theme& theme, std::int32_t part, const RECT& area, const RECT& clip);

} // namespace mox::host
