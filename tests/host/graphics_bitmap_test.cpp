#include "host/graphics/bitmap.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace mox::test {

namespace {

using host::Bitmap;
using host::BitmapFormat;
using host::Pixel;

TEST(BitmapTest, refusesSizesThatItCannotHold) {
    constexpr int most = std::numeric_limits<int>::max();
    for (const BitmapFormat& format : {BitmapFormat{0, 1, 32}, BitmapFormat{1, 0, 32}, BitmapFormat{-4, 4, 32},
                                       BitmapFormat{most, most, 32}, BitmapFormat{most, 1, 32}, BitmapFormat{32768, 16384, 32},
                                       BitmapFormat{4, 4, 2}, BitmapFormat{4, 4, 0}, BitmapFormat{4, 4, 48}}) {
        EXPECT_EQ(Bitmap::create(format), nullptr) << format.width << " x " << format.height << ", " << format.bitsPerPixel;
    }
    EXPECT_NE(Bitmap::create({.width = most, .height = 1, .bitsPerPixel = 1}), nullptr);
}

TEST(BitmapTest, keepsPixelsAsWellAsItsDepthAllows) {
    const std::vector<Pixel> colors{0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0x808080};
    const std::vector<Pixel> given{0x000000, 0xFFFFFF, 0xFE0302, 0x04F900, 0x112233, 0x7F7F80, 0x0000FF};
    struct Case {
        BitmapFormat format;
        std::vector<Pixel> kept;
    };
    const Case cases[] = {
        {{.bitsPerPixel = 32}, given},
        {{.bitsPerPixel = 24}, given},
        {{.bitsPerPixel = 24, .isSection = true, .isTopDown = false}, given},
        {{.bitsPerPixel = 32, .isSection = true, .masks = {0xFF, 0xFF00, 0xFF0000}}, given},
        {{.bitsPerPixel = 16, .masks = host::masks555}, {0, 0xFFFFFF, 0xFF0000, 0x00F700, 0x102131, 0x7B7B84, 0xFF}},
        {{.bitsPerPixel = 16, .masks = host::masks565}, {0, 0xFFFFFF, 0xFF0400, 0x00FB00, 0x102031, 0x7B7D84, 0xFF}},
        {{.bitsPerPixel = 8, .isSection = true, .colors = colors}, {0, 0xFFFFFF, 0xFF0000, 0x00FF00, 0, 0x808080, 0xFF}},
        {{.bitsPerPixel = 4, .isSection = true, .colors = colors}, {0, 0xFFFFFF, 0xFF0000, 0x00FF00, 0, 0x808080, 0xFF}},
        {{.bitsPerPixel = 1, .isSection = true, .colors = {0xFF0000, 0x00FF00}},
         {0xFF0000, 0xFF0000, 0xFF0000, 0x00FF00, 0x00FF00, 0xFF0000, 0xFF0000}},
        {{.bitsPerPixel = 1}, {0, 0xFFFFFF, 0, 0, 0, 0, 0}},
    };
    for (const Case& expected : cases) {
        BitmapFormat format = expected.format;
        format.width = 11;
        format.height = 3;
        const auto bitmap = Bitmap::create(format);
        ASSERT_NE(bitmap, nullptr);
        bitmap->write(3, 1, given);
        std::vector<Pixel> all(11);
        bitmap->read(0, 1, all);
        for (std::size_t place = 0; place < all.size(); ++place) {
            const bool isGiven = place >= 3 && place < 3 + given.size();
            const Pixel empty = format.bitsPerPixel <= 8 && format.isSection ? format.colors[0] : 0;
            EXPECT_EQ(all[place], isGiven ? expected.kept[place - 3] : empty) << format.bitsPerPixel << " bits, pixel " << place;
        }
        for (const int other : {0, 2}) {
            std::vector<Pixel> row(11);
            bitmap->read(0, other, row);
            EXPECT_EQ(row, std::vector<Pixel>(11, row[0])) << format.bitsPerPixel << " bits, row " << other;
        }
    }
}

TEST(BitmapTest, storesRowsInItsOrder) {
    for (const bool isTopDown : {true, false}) {
        const auto bitmap =
            Bitmap::create({.width = 3, .height = 2, .bitsPerPixel = 8, .isSection = true, .isTopDown = isTopDown});
        ASSERT_EQ(bitmap->bytes().size(), 8U);
        *bitmap->row(0) = std::byte{7};
        EXPECT_EQ(bitmap->bytes()[isTopDown ? 0 : 4], std::byte{7});
    }
}

} // namespace

} // namespace mox::test
