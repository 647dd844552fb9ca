// The colours of the system.
#pragma once

#include "automation/objects/export.h"

#include "platform/gditypes.h"

namespace mox::host {

// Places in the list, as far as the machine itself draws with them.
inline constexpr std::int32_t colorBackground = 1;
inline constexpr std::int32_t colorActiveCaption = 2;
inline constexpr std::int32_t colorWindow = 5;
inline constexpr std::int32_t colorWindowFrame = 6;
inline constexpr std::int32_t colorActiveBorder = 10;

/// Of the usual scheme, by index from 0 to 30; 0 for others.
MOX_API platform::COLORREF systemColor(std::int32_t index) noexcept;

} // namespace mox::host
