// The HSL routine with vectors, one source a width.
#pragma once

#include "drawing/pixelroutines/hslcolor.h"

namespace mox::server {

/// All of `hsl`, eight and sixteen pixels at a time.
void hsl256(const PixelWork& work, const HslSettings& settings);
void hsl512(const PixelWork& work, const HslSettings& settings);

} // namespace mox::server
