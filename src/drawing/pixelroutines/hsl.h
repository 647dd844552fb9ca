#pragma once

#include "drawing/pixelroutines/pixelwork.h"

#include <optional>

namespace mox::server {

/// What `hsl` sets; what is absent stays as each pixel has it.
struct HslChange {
    /// 0 is red, 85 blue, 170 green, 255 red again.
    std::optional<Byte> hue;
    /// 0 is grey.
    std::optional<Byte> saturation;
    /// Multiplies the lightness, with 128 as 1.
    std::optional<Byte> brightness;
};
/// Goes through hue, saturation and lightness and back, in fixed-point numbers. Copies the fourth byte.
void hsl(const PixelWork& work, const HslChange& change, Vectors vectors = bestVectors());

} // namespace mox::server
