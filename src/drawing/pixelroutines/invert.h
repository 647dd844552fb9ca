#pragma once

#include "drawing/pixelroutines/pixelwork.h"

namespace mox::server {

/// Flips the three colours of each pixel and copies the fourth byte.
void invert(const PixelWork& work, Vectors vectors = bestVectors());

} // namespace mox::server
