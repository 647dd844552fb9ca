#pragma once

#include "drawing/pixelroutines/pixelwork.h"

namespace mox::server {

/// Darker below 0, brighter above; below -255 counts as -255. False, and nothing done, for 256 and more.
bool brightness(const PixelWork& work, Integer factor, Vectors vectors = bestVectors());

} // namespace mox::server
