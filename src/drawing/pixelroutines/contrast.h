#pragma once

#include "drawing/pixelroutines/pixelwork.h"

namespace mox::server {

/// More contrast the higher the factor is; below -50 it counts as -50. Copies the fourth byte.
void contrast(const PixelWork& work, Integer factor, Vectors vectors = bestVectors());

} // namespace mox::server
