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

// What the three colours of a pixel are: the two ends of its range, and a value between.
inline constexpr std::uint32_t hslMiddle = 0;
inline constexpr std::uint32_t hslLow = 1;
inline constexpr std::uint32_t hslHigh = 2;

/// Which of them blue, green and red of a hue are.
std::uint32_t hslOrder(std::int64_t hue);
/// How far above the low end, in parts of the range, the value between is.
std::int64_t hslPart(std::int64_t hue);

/// The colours of a hue within a range. The fourth byte is 0.
std::uint32_t hslColor(HslRange range, std::int64_t hue);

/// What a pixel becomes, by the rule.
std::uint32_t hslPixel(const HslSettings& settings, std::uint32_t pixel);

/// A value as a byte, rounded.
std::uint32_t hslByte(std::int64_t value);

} // namespace mox::server
