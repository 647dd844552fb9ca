// The routines that look at one pixel at a time, HSL apart.
#include "drawing/pixelroutines_support.h"

#include "drawing/pixelroutines/blackandwhite.h"
#include "drawing/pixelroutines/brightness.h"
#include "drawing/pixelroutines/contrast.h"
#include "drawing/pixelroutines/grayscale.h"
#include "drawing/pixelroutines/invert.h"
#include "drawing/pixelroutines/rgb.h"

#include <cmath>
#include <numeric>

namespace mox::test {

using namespace server;

namespace {

/// A model that treats the three colours alike and keeps the fourth byte.
Model eachColor(const std::function<int(int value)>& function) {
    return [=](const Pixels& pixels, std::size_t x, std::size_t y) {
        std::uint32_t result = pixels.at(x, y) & 0xFF000000;
        for (int which = 0; which < 3; ++which) {
            result += static_cast<std::uint32_t>(function(pixels.byte(x, y, which))) << 8 * which;
        }
        return result;
    };
}

/// What a routine makes of one pixel, at every level the same.
std::uint32_t onePixel(const Routine& routine, std::uint32_t pixel) {
    const std::uint32_t result = runRoutine(routine, {1, 1, {pixel}}, Vectors::none).at(0);
    for (const auto level : levels()) {
        EXPECT_EQ(runRoutine(routine, {1, 1, {pixel}}, level).at(0), result) << static_cast<int>(level);
    }
    return result;
}

Routine invertRoutine() {
    return [](const PixelWork& work, Vectors vectors) { invert(work, vectors); };
}
Routine rgbRoutine(RgbOffsets offsets) {
    return [=](const PixelWork& work, Vectors vectors) { rgb(work, offsets, vectors); };
}
Routine grayRoutine(GrayFactors factors) {
    return [=](const PixelWork& work, Vectors vectors) { grayScale(work, factors, vectors); };
}
Routine twoColors(Byte threshold, std::uint32_t black, std::uint32_t white) {
    return [=](const PixelWork& work, Vectors vectors) { blackAndWhite(work, threshold, black, white, vectors); };
}
Routine brightnessRoutine(int factor) {
    return [=](const PixelWork& work, Vectors vectors) { brightness(work, static_cast<Integer>(factor), vectors); };
}
Routine contrastRoutine(int factor) {
    return [=](const PixelWork& work, Vectors vectors) { contrast(work, static_cast<Integer>(factor), vectors); };
}

TEST(PixelRoutines, Invert) {
    expectModel("invert", invertRoutine(), eachColor([](int value) { return 255 - value; }));
}

TEST(PixelRoutines, Rgb) {
    const RgbOffsets cases[] = {{}, {20, 0, 0}, {0, 130, 7}, {255, 255, 255}, {1, 2, 3, true}, {255, 128, 200, true}};
    for (const RgbOffsets& offsets : cases) {
        const int added[] = {offsets.blue, offsets.green, offsets.red};
        expectModel("red " + std::to_string(offsets.red), rgbRoutine(offsets),
                    [&](const Pixels& pixels, std::size_t x, std::size_t y) {
                        int result = 0;
                        for (int which = 2; which >= 0; --which) {
                            const int sum = pixels.byte(x, y, which) + added[which];
                            result = result * 256 + (sum <= 255 ? sum : offsets.wrap ? sum - 256 : 255);
                        }
                        return static_cast<std::uint32_t>(result);
                    });
    }
    EXPECT_EQ(onePixel(rgbRoutine({20, 0, 0}), 0x77FA0000), 0x00FF0000u);
    EXPECT_EQ(onePixel(rgbRoutine({20, 0, 0, true}), 0x77FA0000), 0x000E0000u);
}

TEST(PixelRoutines, GrayScale) {
    const GrayFactors cases[] = {{},
                                 {0, 0, 0},
                                 {1000, 0, 0},
                                 {333, 333, 334},
                                 {600, 600, 600},
                                 {0, 0, 71},
                                 {618, 618, 617},
                                 {1000, 1000, 1000},
                                 {-71, 707, 222},
                                 {200000, 300000, 400000},
                                 {-1, -1, -1},
                                 {1853, 1, 0},
                                 {2147483647, 2147483647, 2147483647},
                                 {1853, 1853, 1853}};
    for (const GrayFactors& factors : cases) {
        const std::int64_t weights[] = {factors.first, factors.second, factors.third};
        expectModel("first " + std::to_string(factors.first), grayRoutine(factors),
                    [&](const Pixels& pixels, std::size_t x, std::size_t y) {
                        std::int64_t sum = 0;
                        for (int which = 0; which < 3; ++which) {
                            sum += weights[which] * pixels.byte(x, y, which);
                        }
                        const auto quotient = std::div(static_cast<std::int32_t>(sum), 1000).quot;
                        const auto grey = static_cast<std::uint32_t>(quotient & 0xFF);
                        return grey * 0x010101 + (static_cast<std::uint32_t>(quotient) << 8 & 0xFF000000);
                    });
    }
    EXPECT_EQ(onePixel(grayRoutine({}), 0xFFFFFFFF), 0x00FFFFFFu);
    EXPECT_EQ(onePixel(grayRoutine({}), 0x000000FF), 0x00121212u);
}

TEST(PixelRoutines, BlackAndWhite) {
    for (const int threshold : {0, 1, 127, 128, 255}) {
        expectModel("threshold " + std::to_string(threshold), twoColors(static_cast<Byte>(threshold), 0x102030, 0xFFEEDD),
                    [&](const Pixels& pixels, std::size_t x, std::size_t y) {
                        const int sum = 71 * pixels.byte(x, y, 0) + 707 * pixels.byte(x, y, 1) + 222 * pixels.byte(x, y, 2);
                        return sum / 1000 < threshold ? 0x102030u : 0xFFEEDDu;
                    });
    }
    EXPECT_EQ(onePixel(twoColors(128, 1, 2), 0x7F7F7F), 1u);
    EXPECT_EQ(onePixel(twoColors(128, 1, 2), 0x808080), 2u);
    EXPECT_EQ(onePixel(twoColors(0, 1, 2), 0), 2u);
}

TEST(PixelRoutines, Brightness) {
    for (const int factor : {-32768, -300, -255, -254, -100, -1, 0, 1, 50, 128, 254, 255}) {
        const double slope = (255.0 - std::min(255, std::abs(factor))) / 256;
        expectModel("factor " + std::to_string(factor), brightnessRoutine(factor), eachColor([&](int value) {
                        return (factor < 0 ? 1 : factor) + static_cast<int>(std::floor(value * slope));
                    }));
    }
    EXPECT_EQ(onePixel(brightnessRoutine(0), 0x7F0201FF), 0x7F0100FEu);
    EXPECT_EQ(onePixel(brightnessRoutine(255), 0x00FF1100), 0x00FFFFFFu);
    EXPECT_EQ(onePixel(brightnessRoutine(-255), 0x00FF1100), 0x00010101u);
}

TEST(PixelRoutines, Contrast) {
    for (const int factor : {-32768, -51, -50, -49, -20, 0, 3, 50, 100, 200, 1000, 20000, 32700}) {
        const auto power = static_cast<std::int16_t>(std::max(factor, -50) + 91);
        const double gain = std::exp(power / 30.0) / 20 - 0.05f;
        std::vector<double> sums(257, gain);
        sums[0] = -128 * gain;
        std::partial_sum(sums.begin(), sums.end(), sums.begin());
        expectModel("factor " + std::to_string(factor), contrastRoutine(factor), eachColor([&](int value) {
                        return static_cast<int>(std::clamp(std::nearbyint(sums.at(value + 1)) + 127, 0.0, 255.0));
                    }));
    }
    EXPECT_EQ(onePixel(contrastRoutine(0), 0x4200FF7F), 0x4201FE7Fu);
    EXPECT_EQ(onePixel(contrastRoutine(0), 0x00800000), 0x00800101u);
    EXPECT_EQ(onePixel(contrastRoutine(-50), 0x0000FFFF), 0x006C9292u);
    // Beyond all numbers it gives what it gives, but does not fail.
    onePixel(contrastRoutine(32676), 0x00123456);
}

// Vectors take many pixels at once: every length and every distance from a cache line.
TEST(PixelRoutines, LengthsAndPlaces) {
    const Routine routines[] = {invertRoutine(),      rgbRoutine({1, 2, 3}), rgbRoutine({1, 2, 3, true}), grayRoutine({}),
                                brightnessRoutine(9), contrastRoutine(9),    twoColors(100, 7, 8)};
    for (const Routine& routine : routines) {
        for (std::size_t length = 0; length <= 70; ++length) {
            const Pixels pixels = randomPixels(length, 1);
            const auto expected = runRoutine(routine, pixels, Vectors::none);
            for (const auto level : levels()) {
                for (std::size_t offset = 0; offset < 16; ++offset) {
                    ASSERT_EQ(runRoutine(routine, pixels, level, offset), expected) << length << " pixels at " << offset;
                }
            }
        }
    }
}

// Large targets are written past the caches.
TEST(PixelRoutines, LargePictures) {
    const Pixels pixels = randomPixels(2111, 1001);
    const Routine routines[] = {invertRoutine(),      rgbRoutine({1, 2, 3}), grayRoutine({}),
                                brightnessRoutine(9), contrastRoutine(9),    twoColors(100, 7, 8)};
    for (const Routine& routine : routines) {
        const auto expected = runRoutine(routine, pixels, Vectors::none);
        for (const auto level : levels()) {
            EXPECT_TRUE(runRoutine(routine, pixels, level, 5) == expected) << &routine - routines;
        }
    }
}

} // namespace

} // namespace mox::test
