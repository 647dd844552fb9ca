#pragma once

#include "drawing/pixelroutines/pixelwork.h"

namespace mox::server {

/// A pixel becomes `black` where its grey value is below `threshold`, else `white`.
void blackAndWhite(const PixelWork& work, Byte threshold, std::uint32_t black, std::uint32_t white,
                   Vectors vectors = bestVectors());

} // namespace mox::server
