// Bitmap files: every depth, packed or not, and damaged ones.
#include "pictures_files.h"

#include "host/pictures/bmpfile.h"
#include "host/pictures/imagefile.h"
#include "host/pictures/pngfile.h"

#include <gtest/gtest.h>

namespace mox::test {

namespace {

using host::Bitmap;
using host::ImageError;
using host::Pixel;

std::vector<Pixel> pixelsOf(const Bitmap& bitmap) {
    std::vector<Pixel> pixels(static_cast<std::size_t>(bitmap.width() * bitmap.height()));
    for (int y = 0; y < bitmap.height(); ++y) {
        bitmap.read(
            0, y,
            std::span(pixels).subspan(static_cast<std::size_t>(y * bitmap.width()), static_cast<std::size_t>(bitmap.width())));
    }
    for (Pixel& pixel : pixels) {
        pixel &= 0xFFFFFF;
    }
    return pixels;
}

bool isRefused(std::span<const std::byte> file, ImageError::Kind kind = ImageError::Kind::invalid) {
    try {
        host::readImage(file);
        return false;
    } catch (const ImageError& error) {
        return error.kind() == kind;
    }
}

struct Case {
    const char* name;
    Bytes file;
    int bits;
    std::vector<Pixel> pixels;
};

constexpr Pixel red = 0xFF0000;
constexpr Pixel green = 0x00FF00;
constexpr Pixel blue = 0x0000FF;
constexpr Pixel white = 0xFFFFFF;

/// All of two rows with three pixels: red, green, blue above white, black, red.
const std::vector<Pixel> usual{red, green, blue, white, 0, red};

std::vector<Case> bitmapFiles() {
    const std::initializer_list<unsigned> palette{0, red, green, blue, white};
    const Bytes rows24 = bytesOf({255, 255, 255, 0, 0, 0, 0, 0, 255, 0, 0, 0, 0, 0, 255, 0, 255, 0, 255, 0, 0, 0, 0, 0});
    const Bytes rows24Down = bytesOf({0, 0, 255, 0, 255, 0, 255, 0, 0, 0, 0, 0, 255, 255, 255, 0, 0, 0, 0, 0, 255, 0, 0, 0});
    const Bytes core = FileMaker()
                           .text("BM")
                           .u32({0, 0, 14 + 12 + 6})
                           .u32({12})
                           .u16({3, 1, 1, 1})
                           .u8({0xFF, 0, 0, 0, 0xFF, 0})
                           .u8({0b01000000, 0, 0, 0})
                           .bytes();
    const Bytes v4 = FileMaker()
                         .text("BM")
                         .u32({0, 0, 14 + 108})
                         .u32({108, 1, 1})
                         .u16({1, 32})
                         .u32({3, 0, 0, 0, 0, 0, 0xFF, 0xFF00, 0xFF0000, 0xFF000000})
                         .add(Bytes(52))
                         .u8({1, 2, 3, 4})
                         .bytes();
    return {
        {"1 bit",
         bmpOf(3, 2, 1, 0, {red, green}, bytesOf({0b01000000, 0, 0, 0, 0b10100000, 0, 0, 0})),
         1,
         {green, red, green, red, green, red}},
        {"4 bits", bmpOf(3, 2, 4, 0, palette, bytesOf({0x40, 0x10, 0, 0, 0x12, 0x30, 0, 0})), 4, usual},
        {"8 bits", bmpOf(3, 2, 8, 0, palette, bytesOf({4, 0, 1, 0, 1, 2, 3, 0})), 8, usual},
        {"16 bits", bmpOf(3, 1, 16, 0, {}, bytesOf({0x00, 0x7C, 0xE0, 0x03, 0x1F, 0x00, 0, 0})), 16, {red, green, blue}},
        {"16 bits by masks",
         bmpOf(3, 1, 16, 3, {0xF800, 0x7E0, 0x1F}, bytesOf({0x00, 0xF8, 0xE0, 0x07, 0x1F, 0x00, 0, 0})),
         16,
         {red, green, blue}},
        {"24 bits", bmpOf(3, 2, 24, 0, {}, rows24), 24, usual},
        {"24 bits from the top", bmpOf(3, -2, 24, 0, {}, rows24Down), 24, usual},
        {"32 bits", bmpOf(2, 1, 32, 0, {}, bytesOf({1, 2, 3, 4, 255, 0, 0, 255})), 32, {0x030201, blue}},
        {"32 bits by masks", v4, 32, {0x010203}},
        {"the short header", core, 1, {blue, green, blue}},
        // run of 2 green, 1 blue, end of line; 3 literals, filled up; end
        {"8 bits packed",
         bmpOf(3, 2, 8, 1, palette, bytesOf({2, 2, 1, 3, 0, 0, 0, 3, 4, 1, 0, 0, 0, 1})),
         8,
         {white, red, 0, green, green, blue}},
        // a step of one row and one pixel, then a run that crosses the edge
        {"8 bits packed with a step",
         bmpOf(3, 2, 8, 1, palette, bytesOf({0, 2, 1, 1, 9, 4, 0, 1})),
         8,
         {0, white, white, 0, 0, 0}},
        // run of 3 alternating red and green; literals white, black, red, filled up
        {"4 bits packed",
         bmpOf(3, 2, 4, 2, palette, bytesOf({3, 0x12, 0, 0, 0, 3, 0x40, 0x10, 0, 1})),
         4,
         {white, 0, red, red, green, red}},
    };
}

TEST(BitmapFiles, areReadInAllDepths) {
    for (const Case& file : bitmapFiles()) {
        SCOPED_TRACE(file.name);
        const auto bitmap = host::readBmp(file.file);
        EXPECT_EQ(bitmap->bitsPerPixel(), file.bits);
        EXPECT_EQ(pixelsOf(*bitmap), file.pixels);
    }
}

TEST(BitmapFiles, areWrittenAsTheyWereRead) {
    for (const Case& file : bitmapFiles()) {
        SCOPED_TRACE(file.name);
        const Bytes written = host::writeBmp(*host::readBmp(file.file));
        const auto again = host::readBmp(written);
        EXPECT_EQ(again->bitsPerPixel(), file.bits);
        EXPECT_EQ(pixelsOf(*again), file.pixels);
    }
    // The fourth byte of a pixel is not lost.
    const auto bitmap = host::readBmp(bmpOf(1, 1, 32, 0, {}, bytesOf({1, 2, 3, 4})));
    EXPECT_EQ(host::readBmp(host::writeBmp(*bitmap))->pixels(0)[0], 0x04030201u);
}

TEST(BitmapFiles, writtenFromBitmapsOfTheDevice) {
    for (const int bits : {1, 16, 24, 32}) {
        const auto bitmap = Bitmap::create(
            {.width = 3, .height = 2, .bitsPerPixel = bits, .masks = bits == 16 ? host::masks565 : host::ChannelMasks()});
        const std::vector<Pixel> row{white, 0, white};
        bitmap->write(0, 1, row);
        EXPECT_EQ(pixelsOf(*host::readBmp(host::writeBmp(*bitmap))), (std::vector<Pixel>{0, 0, 0, white, 0, white})) << bits;
    }
}

TEST(BitmapFiles, cutAnywhereAreRefused) {
    for (const Case& file : bitmapFiles()) {
        const std::size_t padding = std::string_view(file.name).find("packed") != std::string_view::npos ? 0 : 3;
        for (std::size_t size = 0; size < file.file.size(); ++size) {
            const auto cut = std::span(file.file).first(size);
            if (size + padding < file.file.size()) {
                EXPECT_TRUE(isRefused(cut)) << file.name << " cut to " << size;
            } else if (!isRefused(cut)) {
                EXPECT_EQ(pixelsOf(*host::readBmp(cut)), file.pixels) << file.name; // only filling is missing
            }
        }
    }
}

TEST(BitmapFiles, withAbsurdHeadersAskForNoMemory) {
    const Bytes pixel = bytesOf({0, 0, 0, 0});
    const struct {
        const char* name;
        Bytes file;
        ImageError::Kind kind = ImageError::Kind::invalid;
    } cases[] = {
        {"no width", bmpOf(0, 1, 24, 0, {}, pixel)},
        {"no height", bmpOf(1, 0, 24, 0, {}, pixel)},
        {"width below 0", bmpOf(-1, 1, 24, 0, {}, pixel)},
        {"more than there is", bmpOf(10000, 10000, 24, 0, {}, pixel)},
        {"far too wide", bmpOf(0x7FFFFFFF, 0x7FFFFFFF, 32, 0, {}, pixel), ImageError::Kind::tooLarge},
        {"the least height", bmpOf(1, static_cast<int>(0x80000000), 32, 0, {}, pixel), ImageError::Kind::tooLarge},
        {"packed to nothing", bmpOf(20000, 20000, 8, 1, {0}, bytesOf({0, 1}))},
        {"packed from the top", bmpOf(1, -1, 8, 1, {0}, bytesOf({1, 0, 0, 1}))},
        {"packed in the wrong depth", bmpOf(1, 1, 4, 1, {0}, bytesOf({1, 0, 0, 1}))},
        {"2 bits", bmpOf(1, 1, 2, 0, {0}, pixel)},
        {"64 bits", bmpOf(1, 1, 64, 0, {}, pixel)},
        {"masks over each other", bmpOf(1, 1, 32, 3, {0xFF, 0xFF, 0xFF0000}, pixel)},
        {"masks with holes", bmpOf(1, 1, 32, 3, {0xF0F, 0xF000, 0xFF0000}, pixel)},
        {"masks beyond the pixel", bmpOf(1, 1, 16, 3, {0xFF0000, 0xFF00, 0xFF}, pixel)},
        {"another packing", bmpOf(1, 1, 24, 4, {}, pixel)},
    };
    for (const auto& [name, file, kind] : cases) {
        EXPECT_TRUE(isRefused(file, kind)) << name;
    }
    // More colours than fit are none that matter.
    EXPECT_EQ(pixelsOf(*host::readBmp(bmpOf(1, 1, 8, 0, {red, green}, bytesOf({1, 0, 0, 0})))), std::vector<Pixel>{green});
}

TEST(BitmapFiles, becomePngAndComeBack) {
    for (const Case& file : bitmapFiles()) {
        SCOPED_TRACE(file.name);
        const Bytes png = host::writePng(*host::readBmp(file.file));
        EXPECT_EQ(pixelsOf(*host::readBitmap(png)), file.pixels);
        for (const std::size_t size : {std::size_t{0}, std::size_t{8}, std::size_t{24}, std::size_t{33}, png.size() / 2}) {
            EXPECT_TRUE(isRefused(std::span(png).first(size))) << size;
        }
    }
}

} // namespace

} // namespace mox::test
