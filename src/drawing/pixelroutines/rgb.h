#pragma once

#include "drawing/pixelroutines/pixelwork.h"

namespace mox::server {

/// Adds an offset to each colour, held to 255, or modulo 256 where it wraps; the fourth byte becomes 0.
struct RgbOffsets {
    Byte red = 0;
    Byte green = 0;
    Byte blue = 0;
    bool wrap = false;
};
void rgb(const PixelWork& work, const RgbOffsets& offsets, Vectors vectors = bestVectors());

} // namespace mox::server
