// The routines that know where a pixel lies: relief and neon.
#include "drawing/pixelroutines_support.h"

#include "drawing/pixelroutines/emboss.h"
#include "drawing/pixelroutines/neon.h"

#include <cmath>
#include <numbers>

namespace mox::test {

using namespace server;

namespace {

Routine embossRoutine(int direction) {
    return [=](const PixelWork& work, Vectors vectors) { emboss(work, static_cast<Byte>(direction), vectors); };
}
Routine neonRoutine(int factor, int mode, bool grey) {
    return [=](const PixelWork& work, Vectors vectors) {
        neon(work, static_cast<Byte>(factor), static_cast<Byte>(mode), grey, vectors);
    };
}

TEST(PixelRoutines, Emboss) {
    // By direction: around the pixel from the lower left one, counterclockwise, below being the row before.
    static constexpr std::string_view horizontal = "-0+++0--";
    static constexpr std::string_view vertical = "---0+++0";
    const auto step = [](char sign) { return sign == '-' ? -1 : sign == '+' ? 1 : 0; };
    for (int direction = 0; direction < 17; ++direction) {
        const int dx = step(horizontal[static_cast<std::size_t>(direction % 8)]);
        const int dy = step(vertical[static_cast<std::size_t>(direction % 8)]);
        expectModel("direction " + std::to_string(direction), embossRoutine(direction),
                    [&](const Pixels& pixels, std::size_t x, std::size_t y) {
                        const bool isInner = x > 0 && y > 0 && x + 1 < pixels.width && y + 1 < pixels.height;
                        std::uint32_t result = pixels.at(x, y);
                        for (int which = 0; isInner && which < 3; ++which) {
                            const int rise = pixels.byte(x + dx, y + dy, which) - pixels.byte(x - dx, y - dy, which);
                            const int value = rise < 0 ? 127 : rise > 128 ? 255 : rise + 127;
                            result = (result & ~(0xFFu << 8 * which)) | static_cast<std::uint32_t>(value) << 8 * which;
                        }
                        return result;
                    });
    }
}

TEST(PixelRoutines, EmbossOfSmallAndFlatPictures) {
    const Pixels narrow = randomPixels(2, 100);
    const Pixels flat{5, 4, std::vector<std::uint32_t>(20, 0x55C0FFEE)};
    for (const auto level : levels()) {
        EXPECT_EQ(runRoutine(embossRoutine(1), narrow, level), narrow.values);
        const auto relief = runRoutine(embossRoutine(9), flat, level);
        EXPECT_EQ(std::ranges::count(relief, 0x557F7F7Fu), 6);
        EXPECT_EQ(std::ranges::count(relief, 0x55C0FFEEu), 14);
    }
}

TEST(PixelRoutines, Neon) {
    const auto wave = [](int factor, int mode, std::int64_t angle) {
        const auto position = static_cast<double>((factor + (angle & 0xFF)) & 0xFF);
        const double cosine = 127 * std::cos(position * (2 * std::numbers::pi / 255));
        const long value = std::lrint(std::fabs(mode % 4 == 0 ? cosine - 127 : cosine));
        return static_cast<std::uint32_t>(mode % 2 == 1 && value < 128 ? value + 128 : value);
    };
    struct Case {
        int factor;
        int mode;
        bool grey;
    };
    static constexpr Case cases[] = {{10, 0, false}, {10, 1, false}, {10, 2, false},  {10, 3, false},  {0, 0, true},
                                     {77, 2, true},  {255, 1, true}, {128, 4, false}, {200, 255, true}};
    for (const Case& one : cases) {
        const int factor = one.factor;
        const int mode = one.mode;
        const bool grey = one.grey;
        expectModel("factor " + std::to_string(factor) + ", mode " + std::to_string(mode), neonRoutine(factor, mode, grey),
                    [&](const Pixels& pixels, std::size_t x, std::size_t y) {
                        const auto rows = static_cast<std::int64_t>(pixels.height - y);
                        const auto columns = static_cast<std::int64_t>(pixels.width - x);
                        const std::uint32_t blue = wave(factor, mode, pixels.byte(x, y, 0) + rows);
                        const std::uint32_t green = wave(factor, mode, pixels.byte(x, y, 1) - columns);
                        const std::uint32_t red = wave(factor, mode, pixels.byte(x, y, 2) + rows);
                        const std::uint32_t value = (71 * blue + 707 * green + 222 * red) / 1000;
                        return grey ? value * 0x010101 : (pixels.at(x, y) & 0xFF000000) + blue + green * 256 + red * 65536;
                    });
    }
}

TEST(PixelRoutines, NeonModesThatAreOne) {
    const Pixels pixels = randomPixels(50, 30);
    for (const auto level : levels()) {
        EXPECT_EQ(runRoutine(neonRoutine(5, 1, false), pixels, level), runRoutine(neonRoutine(5, 3, false), pixels, level));
        // A place where all angles are 0, and so is what the curve of mode 0 gives.
        EXPECT_EQ(runRoutine(neonRoutine(0, 0, false), {1, 1, {0x99FF01FF}}, level).at(0), 0x99000000u);
    }
}

TEST(PixelRoutines, PlacesOfLargePictures) {
    const Pixels pixels = randomPixels(2111, 1001);
    for (const Routine& routine : {embossRoutine(4), neonRoutine(10, 0, false), neonRoutine(10, 1, true)}) {
        const auto expected = runRoutine(routine, pixels, Vectors::none);
        for (const auto level : levels()) {
            EXPECT_TRUE(runRoutine(routine, pixels, level, 7) == expected);
        }
    }
}

TEST(PixelRoutines, PlacesOfEveryWidth) {
    for (std::size_t width = 0; width <= 70; ++width) {
        const Pixels pixels = randomPixels(width, 4);
        for (const Routine& routine : {embossRoutine(0), embossRoutine(4), neonRoutine(1, 2, false), neonRoutine(1, 0, true)}) {
            const auto expected = runRoutine(routine, pixels, Vectors::none);
            for (const auto level : levels()) {
                for (std::size_t offset = 0; offset < 16; ++offset) {
                    ASSERT_EQ(runRoutine(routine, pixels, level, offset), expected) << width << " at " << offset;
                }
            }
        }
    }
}

} // namespace

} // namespace mox::test
