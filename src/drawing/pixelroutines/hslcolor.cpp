#include "drawing/pixelroutines/hslcolor.h"

#include <algorithm>
#include <cmath>

namespace mox::server {

namespace {

/// Pure blue is 1, pure green 3, pure red 5.
std::int64_t hueOf(int blue, int green, int red, int most, int difference) {
    const auto between = [&](std::int64_t pure, std::int64_t above, std::int64_t below) {
        return pure * hslOne + (above - below) * hslOne / difference;
    };
    if (most == blue && green != most) {
        return between(1, green, red);
    }
    if ((most == blue || most == green) && red != most) {
        return between(3, red, blue);
    }
    return between(5, blue, green);
}

} // namespace

HslSettings::HslSettings(const HslChange& change) {
    if (change.hue) {
        const int step = (*change.hue + 213) % 255;
        hue = static_cast<std::int64_t>(std::nearbyint(383 * step / 255.0)) * 16384;
    }
    if (change.saturation) {
        saturation = *change.saturation * 4096;
    }
    if (change.brightness) {
        factor = *change.brightness * 8192;
    }
}

HslRange hslRange(const HslSettings& settings, int most, int least) {
    const int sum = most + least;
    const int room = sum < 255 ? sum : 510 - sum;
    const std::int64_t saturation = settings.saturation ? *settings.saturation : room == 0 ? 0 : (most - least) * hslOne / room;
    std::int64_t lightness = sum * (hslOne / 2) / 255;
    if (settings.factor) {
        lightness = lightness * *settings.factor / hslOne;
    }
    lightness = std::min(lightness, hslOne);
    if (saturation == 0) {
        return {lightness, lightness, true};
    }
    const std::int64_t low = lightness >= hslOne / 2 ? lightness - (hslOne - lightness) * saturation / hslOne
                                                     : (hslOne - saturation) * lightness / hslOne;
    return {low, 2 * lightness - low, false};
}

std::uint32_t hslByte(std::int64_t value) {
    return static_cast<std::uint32_t>(std::min<std::int64_t>((value * 255 + hslOne / 2) / hslOne, 255));
}

std::uint32_t hslOrder(std::int64_t hue) {
    // By the whole part of the hue.
    static constexpr std::array<std::uint32_t, 6> orders{
        colorOf(hslHigh, hslLow, hslMiddle), colorOf(hslHigh, hslMiddle, hslLow), colorOf(hslMiddle, hslHigh, hslLow),
        colorOf(hslLow, hslHigh, hslMiddle), colorOf(hslLow, hslMiddle, hslHigh), colorOf(hslMiddle, hslLow, hslHigh)};
    return orders[static_cast<std::size_t>(hue / hslOne)];
}

std::int64_t hslPart(std::int64_t hue) {
    const std::int64_t fraction = hue % hslOne;
    return hue / hslOne % 2 == 0 ? hslOne - fraction : fraction;
}

std::uint32_t hslColor(HslRange range, std::int64_t hue) {
    std::array<std::uint32_t, 3> bytes;
    bytes[hslMiddle] = hslByte(range.low + hslPart(hue) * (range.high - range.low) / hslOne);
    bytes[hslLow] = hslByte(range.low);
    bytes[hslHigh] = hslByte(range.high);
    const std::uint32_t order = hslOrder(hue);
    return colorOf(bytes[blueOf(order)], bytes[greenOf(order)], bytes[redOf(order)]);
}

std::uint32_t hslPixel(const HslSettings& settings, std::uint32_t pixel) {
    const auto blue = static_cast<int>(blueOf(pixel));
    const auto green = static_cast<int>(greenOf(pixel));
    const auto red = static_cast<int>(redOf(pixel));
    const int most = std::max({blue, green, red});
    const int least = std::min({blue, green, red});
    const HslRange range = hslRange(settings, most, least);
    if (range.isGrey) {
        const std::uint32_t grey = hslByte(range.low);
        return colorOf(grey, grey, grey);
    }
    const std::int64_t hue = settings.hue    ? *settings.hue
                             : most == least ? (range.low + range.high) / 2
                                             : hueOf(blue, green, red, most, most - least);
    return hslColor(range, hue);
}

} // namespace mox::server
