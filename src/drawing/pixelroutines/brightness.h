#pragma once

#include "drawing/pixelroutines/pixelwork.h"

namespace mox::server {

/// The largest factor that there is.
inline constexpr Integer mostBrightness = 255;
/// Darker below 0, brighter above, up to `mostBrightness`; below -255 counts as -255. Copies the fourth byte.
void brightness(const PixelWork& work, Integer factor, Vectors vectors = bestVectors());

} // namespace mox::server
