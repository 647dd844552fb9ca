// Regions in the bytes of a record.
#pragma once

#include "host/graphics/region.h"
#include "host/metafiles/recordreader.h"

#include <cstddef>
#include <span>
#include <vector>

namespace mox::host {

/// The rectangles of a region. Throws `BrokenRecord`.
std::vector<RECT> readRegion(std::span<const std::byte> data);
std::vector<std::byte> writeRegion(const Region& region);
/// All of them in one, in a time that does not grow with the square of their number.
Region united(std::span<const RECT> areas);
/// The part of a region that is at most so far from its outside.
Region frameOf(const Region& region, std::int32_t width, std::int32_t height);

} // namespace mox::host
