#include "drawing/pixelroutines_support.h"

#include "drawing/pixelroutines/hsl.h"
#include "drawing/pixelroutines/hslcolor.h"

namespace mox::test {

using namespace server;

namespace {

Routine hslRoutine(const HslChange& change) {
    return [=](const PixelWork& work, Vectors vectors) { hsl(work, change, vectors); };
}

std::string nameOf(const HslChange& change) {
    const auto text = [](const std::optional<Byte>& value) { return value ? std::to_string(*value) : "-"; };
    return "hue " + text(change.hue) + ", saturation " + text(change.saturation) + ", brightness " + text(change.brightness);
}

constexpr HslChange changes[] = {
    {{}, {}, {}},   {{}, {}, 0},    {{}, {}, 64},  {{}, {}, 128}, {{}, {}, 200}, {{}, {}, 255}, {{}, 0, {}},
    {{}, 1, {}},    {{}, 128, {}},  {{}, 255, {}}, {0, {}, {}},   {20, {}, {}},  {41, {}, {}},  {42, {}, {}},
    {100, {}, {}},  {170, {}, {}},  {255, {}, {}}, {0, 128, {}},  {90, 255, {}}, {150, 3, 77},  {{}, 100, 150},
    {{}, 255, 255}, {20, 100, 150}, {230, {}, 33}, {60, 0, 128},
};

/// The same by shares: each colour lies between the ends of a range as it lay between the other two, or as a hue has it that is
/// a point on a curve for each colour.
std::uint32_t modelOf(const HslChange& change, const Pixels& pixels, std::size_t x, std::size_t y) {
    using Fixed = __int128;
    constexpr Fixed one = 1 << 20;
    const Fixed colors[] = {pixels.byte(x, y, 0), pixels.byte(x, y, 1), pixels.byte(x, y, 2)};
    const Fixed most = std::max({colors[0], colors[1], colors[2]});
    const Fixed least = std::min({colors[0], colors[1], colors[2]});
    const Fixed room = std::min<Fixed>(most + least, 510 - most - least);
    const Fixed own = room == 0 ? 0 : (most - least) * one / room;
    const Fixed saturation = change.saturation ? Fixed(*change.saturation) << 12 : own;
    const Fixed factor = change.brightness ? Fixed(*change.brightness) << 13 : one;
    const Fixed lightness = std::min(one, ((most + least) * (one / 2) / 255) * factor / one);
    const Fixed low =
        lightness < one / 2 ? (one - saturation) * lightness / one : lightness - (one - lightness) * saturation / one;
    const Fixed high = 2 * lightness - low;

    // On a circle of six, blue is full from 0 to 2, green from 2 to 4, red from 4 to 6, and each comes and goes within one.
    const auto share = [&](Fixed hue, int which) {
        const Fixed distance = (hue - 2 * which * one + 6 * one) % (6 * one);
        const Fixed rising = std::clamp<Fixed>(distance - 5 * one, 0, one);
        const Fixed falling = std::clamp<Fixed>(3 * one - distance, 0, one);
        return std::max(rising, falling);
    };
    std::uint32_t result = pixels.at(x, y) & 0xFF000000;
    for (int which = 0; which < 3; ++which) {
        Fixed part = 0;
        if (change.hue) {
            const int step = (*change.hue + 213) % 255;
            part = share(Fixed((2 * 383 * step + 255) / 510) << 14, which);
        } else if (most == least) {
            part = share(lightness, which);
        } else {
            part = (colors[which] - least) * one / (most - least);
        }
        const Fixed value = saturation == 0 ? lightness : low + part * (high - low) / one;
        result |= static_cast<std::uint32_t>((value * 255 + one / 2) / one) << 8 * which;
    }
    return result;
}

TEST(PixelRoutinesHsl, Model) {
    for (const HslChange& change : changes) {
        expectModel(nameOf(change), hslRoutine(change),
                    [&](const Pixels& pixels, std::size_t x, std::size_t y) { return modelOf(change, pixels, x, y); });
    }
}

TEST(PixelRoutinesHsl, SinglePixels) {
    static constexpr struct {
        HslChange change;
        std::uint32_t pixel;
        std::uint32_t result;
    } cases[] = {
        {{0, {}, {}}, 0x000000FF, 0x00FF0000},    // blue becomes red
        {{{}, 128, {}}, 0xAA646464, 0xAA6F3296},  // a grey pixel gets the hue of its lightness
        {{{}, 0, {}}, 0x11FF0000, 0x11808080},    //
        {{{}, {}, 255}, 0x00808080, 0x00FFFFFF},  //
        {{{}, {}, 128}, 0x77123456, 0x77123456},  //
        {{{}, {}, 0}, 0x77123456, 0x77000000},    //
        {{{}, 128, {}}, 0x00000000, 0x00000000},  //
        {{{}, 128, 255}, 0x00FFFFFF, 0x00FFFFFF}, //
    };
    for (const auto& [change, pixel, result] : cases) {
        for (const auto level : levels()) {
            EXPECT_EQ(runRoutine(hslRoutine(change), {1, 1, {pixel}}, level).at(0), result)
                << nameOf(change) << std::hex << " of " << pixel;
        }
    }
}

// The rule itself, where the routine need not apply it.
TEST(PixelRoutinesHsl, NoChangeKeepsEveryColor) {
    const HslSettings none({});
    for (std::uint32_t pixel = 0; pixel <= 0xFFFFFF; pixel += 37) {
        ASSERT_EQ(hslPixel(none, pixel), pixel);
    }
}

// All strongest and weakest colours with some between: at each level the same.
TEST(PixelRoutinesHsl, AllRanges) {
    Pixels pixels;
    for (std::uint32_t most = 0; most < 256; ++most) {
        for (std::uint32_t least = 0; least <= most; ++least) {
            for (std::uint32_t part = 0; part < 5; ++part) {
                const std::uint32_t between = least + (most - least) * part / 4;
                const std::uint32_t orders[] = {colorOf(most, between, least), colorOf(between, most, least),
                                                colorOf(least, between, most)};
                pixels.values.push_back(orders[(most + least + part) % 3]);
            }
        }
    }
    pixels.width = pixels.values.size();
    pixels.height = 1;
    for (const HslChange& change : changes) {
        const auto expected = runRoutine(hslRoutine(change), pixels, Vectors::none);
        for (const auto level : levels()) {
            EXPECT_TRUE(runRoutine(hslRoutine(change), pixels, level, 3) == expected) << nameOf(change);
        }
    }
}

TEST(PixelRoutinesHsl, LengthsAndPlaces) {
    for (const HslChange& change : {HslChange{{}, {}, 200}, HslChange{{}, 90, {}}, HslChange{9, {}, {}}, HslChange{9, 9, 99}}) {
        for (std::size_t length = 0; length <= 70; ++length) {
            const Pixels pixels = randomPixels(length, 1);
            const auto expected = runRoutine(hslRoutine(change), pixels, Vectors::none);
            for (const auto level : levels()) {
                for (std::size_t offset = 0; offset < 16; ++offset) {
                    ASSERT_EQ(runRoutine(hslRoutine(change), pixels, level, offset), expected) << length << " at " << offset;
                }
            }
        }
    }
}

} // namespace

} // namespace mox::test
