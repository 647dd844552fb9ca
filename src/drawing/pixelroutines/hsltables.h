// What becomes of pixels by their strongest and weakest colour, for whole pictures.
#pragma once

#include "drawing/pixelroutines/hslcolor.h"

#include <vector>

namespace mox::server {

/// The place of a pixel in the tables below.
constexpr std::size_t hslIndex(std::size_t most, std::size_t least) noexcept {
    return most << 8 | least;
}

/// With a hue that is given, all colours follow from the strongest and the weakest one.
std::vector<std::uint32_t> hslColors(const HslSettings& settings);

/// With the hue of each pixel, its strongest colour becomes the high end of a range, the weakest the low end, and the one between
/// stays between in proportion.
struct HslRanges {
    explicit HslRanges(const HslSettings& settings);

    /// In bits 0 to 31 the width of the range, in bits 32 to 63 its low end times 255 and half a unit more, so that the bits from
    /// 20 on of such a number are the byte.
    std::vector<std::uint64_t> ranges;
    /// What the grey pixels become, which have no hue, by their value.
    std::array<std::uint32_t, 256> greys;
};

/// Does what `hsl` does with vectors of the level `vectors`, by tables that cost as much as some ten thousand pixels.
void hslByTables(const PixelWork& work, const HslSettings& settings, Vectors vectors);

} // namespace mox::server
