// What repeats without end over an area: hatches and patterns.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace mox::host {

/// Hatches are squares of so many pixels.
inline constexpr int hatchSide = 8;
/// Its rows, the left pixel in the highest bit.
using HatchBits = std::array<std::uint8_t, hatchSide>;

/// The rows of a hatch by its `HS_` number; the nearest one for a number that is none.
inline const HatchBits& hatchBits(std::int32_t hatch) noexcept {
    static constexpr std::array<HatchBits, 6> hatches{{
        {0x00, 0x00, 0x00, 0xFF, 0x00, 0x00, 0x00, 0x00}, // horizontal
        {0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08}, // vertical
        {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01}, // down to the right
        {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80}, // up to the right
        {0x08, 0x08, 0x08, 0xFF, 0x08, 0x08, 0x08, 0x08}, // cross
        {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81}, // diagonal cross
    }};
    return hatches[static_cast<std::size_t>(std::clamp(hatch, 0, 5))];
}

/// The place of a coordinate in a repetition of that size that begins at `origin`, 0 to `size` - 1.
inline int placeIn(int coordinate, int origin, int size) noexcept {
    const auto place = static_cast<int>((std::int64_t{coordinate} - origin) % size);
    return place < 0 ? place + size : place;
}

} // namespace mox::host
