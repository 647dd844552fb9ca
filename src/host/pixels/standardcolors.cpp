#include "host/pixels/standardcolors.h"

#include <algorithm>
#include <array>

namespace mox::host {

namespace {

constexpr std::array<Pixel, 16> sixteen{0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
                                        0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
// The halves of the twenty stand at both ends of the table.
constexpr std::array<Pixel, 10> firstTen{0x000000, 0x800000, 0x008000, 0x808000, 0x000080,
                                         0x800080, 0x008080, 0xC0C0C0, 0xC0DCC0, 0xA6CAF0};
constexpr std::array<Pixel, 10> lastTen{0xFFFBF0, 0xA0A0A4, 0x808080, 0xFF0000, 0x00FF00,
                                        0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};

std::vector<Pixel> twentyAndCube() {
    constexpr Pixel steps = 6;
    constexpr Pixel step = 51;
    std::vector<Pixel> colors(256);
    auto place = std::ranges::copy(firstTen, colors.begin()).out;
    for (Pixel red = 0; red < steps; ++red) {
        for (Pixel green = 0; green < steps; ++green) {
            for (Pixel blue = 0; blue < steps; ++blue) {
                *place++ = red * step << 16 | green * step << 8 | blue * step;
            }
        }
    }
    std::ranges::copy(lastTen, colors.end() - lastTen.size());
    return colors;
}

} // namespace

std::vector<Pixel> standardColors(int bitsPerPixel) {
    switch (bitsPerPixel) {
    case 1:
        return {0, 0xFFFFFF};
    case 4:
        return {sixteen.begin(), sixteen.end()};
    case 8:
        return twentyAndCube();
    default:
        return {};
    }
}

} // namespace mox::host
