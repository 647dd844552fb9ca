// Colours as hue, saturation and lightness, in fixed-point numbers.
#pragma once

#include "drawing/pixelroutines/hsl.h"

#include <cstdint>

namespace mox::server {

/// 1.0: the numbers have 20 bits behind the point. Products are made in 64 bits.
inline constexpr std::int64_t hslOne = 1 << 20;

/// The change in fixed-point numbers; a hue counts from 0 (between blue and red) to below 6.
struct HslSettings {
    explicit HslSettings(const HslChange& change);

    std::optional<std::int64_t> hue;
    std::optional<std::int64_t> saturation;
    std::optional<std::int64_t> factor;
};

/// How dark the weakest and how bright the strongest colour of a pixel becomes.
struct HslRange {
    std::int64_t low;
    std::int64_t high;
    /// Both are the lightness, and all three colours with them.
    bool isGrey;
};
/// From the strongest and the weakest colour of the pixel.
HslRange hslRange(const HslSettings& settings, int most, int least);

/// The colours of a hue within a range. The fourth byte is 0.
std::uint32_t hslColor(HslRange range, std::int64_t hue);

/// What a pixel becomes, by the rule.
std::uint32_t hslPixel(const HslSettings& settings, std::uint32_t pixel);

/// A value as a byte, rounded.
std::uint32_t hslByte(std::int64_t value);

} // namespace mox::server
