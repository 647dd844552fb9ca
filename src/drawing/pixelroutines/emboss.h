#pragma once

#include "drawing/pixelroutines/pixelwork.h"

namespace mox::server {

/// A relief: each inner pixel shows how far the pixel on the side of `direction` (its low three bits: 0 lower left, on
/// counterclockwise to 7 left) is brighter than the one on the other side. The frame of one pixel and the fourth bytes stay.
/// The target must be apart from the source.
void emboss(const PixelWork& work, Byte direction, Vectors vectors = bestVectors());

} // namespace mox::server
