#pragma once

#include "drawing/pixelroutines/pixelwork.h"

namespace mox::server {

/// Factors in thousandths, for the bytes in the order of memory: the first weighs blue.
struct GrayFactors {
    Long first = 71;
    Long second = 707;
    Long third = 222;
};
/// The weighted sum, of 32 bits, by 1000: its low byte in all colours, its bits 16 to 23 in the fourth byte.
void grayScale(const PixelWork& work, const GrayFactors& factors, Vectors vectors = bestVectors());

} // namespace mox::server
