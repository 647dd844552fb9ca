// uxtheme: visual styles.
#pragma once

#include "platform/gditypes.h"
#include "platform/operation.h"

#include <string_view>

namespace mox::platform {

/// Sizes of a part of a style.
inline constexpr std::int32_t TS_MIN = 0;
inline constexpr std::int32_t TS_TRUE = 1;
inline constexpr std::int32_t TS_DRAW = 2;

/// The answers of the drawing operations are statuses, below 0 on failure.
struct Uxtheme : SystemLibrary {
    Uxtheme() : SystemLibrary("uxtheme") {}

    Operation<bool()> IsThemeActive{*this, "IsThemeActive", false};
    Operation<bool()> IsAppThemed{*this, "IsAppThemed", false};
    /// 0 if the style knows none of the classes, which are separated by semicolons.
    Operation<Handle(Handle window, std::u16string_view classList)> OpenThemeData{*this, "OpenThemeData", 0};
    Operation<std::int32_t(Handle theme)> CloseThemeData{*this, "CloseThemeData", -1, givesBack};
    /// A colour by the index of GetSysColor.
    Operation<COLORREF(Handle theme, std::int32_t index)> GetThemeSysColor{*this, "GetThemeSysColor", 0};
    Operation<std::int32_t(Handle theme, Handle hdc, std::int32_t part, std::int32_t state, const RECT& area, std::int32_t kind,
                           SIZE& size)>
        GetThemePartSize{*this, "GetThemePartSize", -1};
    Operation<std::int32_t(Handle theme, Handle hdc, std::int32_t part, std::int32_t state, const RECT& area, const RECT& clip)>
        DrawThemeBackground{*this, "DrawThemeBackground", -1};
};

/// Of the present machine.
MOX_API Uxtheme& uxtheme();

} // namespace mox::platform
