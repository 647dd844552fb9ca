// The typeface of a device context, and how its pixels lie in logical units.
#pragma once

#include "host/fonts/typeface.h"
#include "host/graphics/devicecontext.h"

#include <cmath>
#include <memory>
#include <string_view>

namespace mox::host {

struct TextSetting {
    /// Null if there are no fonts.
    std::shared_ptr<const Typeface> typeface;
    /// Logical units of one pixel along the line and across it.
    double unitsAlong = 1;
    double unitsAcross = 1;

    explicit operator bool() const noexcept { return typeface != nullptr; }
    std::int32_t toUnitsAlong(double pixels) const noexcept {
        return static_cast<std::int32_t>(std::lround(pixels * unitsAlong));
    }
    std::int32_t toUnitsAcross(double pixels) const noexcept {
        return static_cast<std::int32_t>(std::lround(pixels * unitsAcross));
    }
};

/// For the selected font, or another one.
TextSetting textSetting(const DeviceContext& context);
TextSetting textSetting(const DeviceContext& context, const platform::LOGFONTA& font);

/// In logical units.
SIZE textExtent(const TextSetting& setting, std::u16string_view text);
platform::TEXTMETRICA textMetrics(const TextSetting& setting);

} // namespace mox::host
