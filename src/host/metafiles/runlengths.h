// Pixels that are packed by their run lengths.
#pragma once

#include "host/graphics/bitmap.h"

#include <cstddef>
#include <span>

namespace mox::host {

/// Unpacks into a bitmap of 4 or 8 bits a pixel, whose rows the packed bytes fill from the bottom up. What lies outside is left
/// out; bytes that end early leave the rest as it is.
void unpackRunLengths(std::span<const std::byte> packed, Bitmap& bitmap);

} // namespace mox::host
