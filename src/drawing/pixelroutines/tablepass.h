// A table for the three colours of every pixel.
#pragma once

#include "drawing/pixelroutines/pixelwork.h"

namespace mox::server {

/// Looks each colour up and copies the fourth byte.
void applyTable(const PixelWork& work, const ByteTable& table, Vectors vectors);

} // namespace mox::server
