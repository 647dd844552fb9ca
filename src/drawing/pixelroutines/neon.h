#pragma once

#include "drawing/pixelroutines/pixelwork.h"

namespace mox::server {

/// Waves of colour: a cosine of each colour, shifted by `factor` and the place of the pixel. The low two bits of `mode` choose
/// the curve. Copies the fourth byte; with `grey` the result is grey, and the fourth byte 0.
void neon(const PixelWork& work, Byte factor, Byte mode, bool grey, Vectors vectors = bestVectors());

} // namespace mox::server
