// The colours of bitmaps that bring none.
#pragma once

#include "host/graphics/bitmap.h"

namespace mox::host {

/// 2^n colours for 1, 4 or 8 bits a pixel: black and white; the sixteen of a plain screen; twenty for surfaces and text around a
/// cube of six steps in each channel. Empty for more bits.
std::vector<Pixel> standardColors(int bitsPerPixel);

} // namespace mox::host
