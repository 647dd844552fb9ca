// The area that a wide pen covers.
#pragma once

#include "host/graphics/canvas.h"

namespace mox::host {

// Ends and joins of pens, as metafiles number them.
inline constexpr std::uint32_t endCapRound = 0x000;
inline constexpr std::uint32_t endCapSquare = 0x100;
inline constexpr std::uint32_t endCapFlat = 0x200;
inline constexpr std::uint32_t joinRound = 0x0000;
inline constexpr std::uint32_t joinBevel = 0x1000;
inline constexpr std::uint32_t joinMiter = 0x2000;

/// For filling by the winding rule. Lines run through the middle of their pixels, so that the outline of a horizontal one of an
/// odd width covers whole rows. A figure without length is a dot in the shape of the ends.
Path outlineOf(const Path& path, const Stroke& stroke);

} // namespace mox::host
