// Colours in monochrome pixels.
#pragma once

#include "host/graphics/bitmap.h"

namespace mox::host {

/// White for what is nearer to it than to black, as bitmaps store it; the fourth byte is 0.
constexpr Pixel blackOrWhite(Pixel pixel) noexcept {
    const unsigned sum = (pixel & 0xFF) + (pixel >> 8 & 0xFF) + (pixel >> 16 & 0xFF);
    return sum > 382 ? 0xFFFFFF : 0;
}

} // namespace mox::host
