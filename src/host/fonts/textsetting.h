// The typeface of a device context, and how its pixels lie in logical units.
#pragma once

#include "host/fonts/typeface.h"
#include "host/graphics/devicecontext.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string_view>

namespace mox::host {

/// Rounded, and far enough from the ends of the numbers that sums of two do not wrap.
inline std::int32_t wholeUnits(double value) noexcept {
    constexpr double most = 1 << 30;
    return static_cast<std::int32_t>(std::lround(std::clamp(value, -most, most - 1)));
}

struct TextSetting {
    /// Null if there are no fonts.
    std::shared_ptr<const Typeface> typeface;
    /// Logical units of one pixel along the line and across it.
    double unitsAlong = 1;
    double unitsAcross = 1;

    explicit operator bool() const noexcept { return typeface != nullptr; }
    std::int32_t toUnitsAlong(double pixels) const noexcept { return wholeUnits(pixels * unitsAlong); }
    std::int32_t toUnitsAcross(double pixels) const noexcept { return wholeUnits(pixels * unitsAcross); }
};

/// For the selected font, or another one.
TextSetting textSetting(const DeviceContext& context);
TextSetting textSetting(const DeviceContext& context, const platform::LOGFONTA& font);

/// In logical units.
SIZE textExtent(const TextSetting& setting, std::u16string_view text);
platform::TEXTMETRICA textMetrics(const TextSetting& setting);

} // namespace mox::host
