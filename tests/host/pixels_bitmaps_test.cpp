#include "support/testmachine.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace mox::test {

namespace {

using namespace platform;
using Bytes = std::vector<std::byte>;

Bytes randomBytes(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    Bytes bytes(size);
    for (std::byte& byte : bytes) {
        byte = static_cast<std::byte>(random());
    }
    return bytes;
}

BITMAPINFO infoOf(std::int32_t width, std::int32_t height, int depth) {
    BITMAPINFO info;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biBitCount = static_cast<std::uint16_t>(depth);
    return info;
}

struct PixelsBitmapsTest : testing::Test {
    TestMachine machine;
    Gdi32& gdi = machine->gdi32;
    Handle hdc = gdi.CreateCompatibleDC(0);

    void TearDown() override { EXPECT_TRUE(gdi.DeleteDC(hdc)); }

    /// Width, height and depth; deletes the bitmap.
    std::array<int, 3> factsOf(Handle bitmap) {
        BITMAP facts;
        if (gdi.GetObjectA(bitmap, bytesOf(facts)) == 0) {
            return {};
        }
        EXPECT_TRUE(gdi.DeleteObject(bitmap));
        return {facts.bmWidth, facts.bmHeight, facts.bmBitsPixel};
    }
};

using Facts = std::array<int, 3>;

TEST_F(PixelsBitmapsTest, makesBitmapsForTheContext) {
    constexpr int most = std::numeric_limits<int>::max();
    struct Case {
        int cx, cy;
        Facts facts;
    };
    const Case cases[] = {
        {5, 7, {5, 7, 32}}, {0, 7, {1, 1, 1}},  {7, 0, {1, 1, 1}}, {-1, 7, {}},        {7, -1, {}},
        {most, most, {}},   {40000, 40000, {}}, {most, 1, {}},     {-4, 0, {1, 1, 1}},
    };
    const Handle screen = gdi.CreateDCA("DISPLAY", "", "", {});
    for (const Case& expected : cases) {
        EXPECT_EQ(factsOf(gdi.CreateCompatibleBitmap(screen, expected.cx, expected.cy)), expected.facts)
            << expected.cx << " x " << expected.cy;
    }
    EXPECT_EQ(gdi.CreateCompatibleBitmap(0, 4, 4), 0);
    EXPECT_EQ(gdi.CreateCompatibleBitmap(4711, 4, 4), 0);
    // The first bitmap of a memory context is monochrome.
    EXPECT_EQ(factsOf(gdi.CreateCompatibleBitmap(hdc, 4, 4)), (Facts{4, 4, 1}));
    const Handle bitmap = gdi.CreateBitmap(4, 4, 1, 8, {});
    const Handle before = gdi.SelectObject(hdc, bitmap);
    EXPECT_EQ(factsOf(gdi.CreateCompatibleBitmap(hdc, 4, 4)), (Facts{4, 4, 32}));
    EXPECT_EQ(gdi.SelectObject(hdc, before), bitmap);
    EXPECT_TRUE(gdi.DeleteObject(bitmap));
    EXPECT_TRUE(gdi.DeleteDC(screen));
}

TEST_F(PixelsBitmapsTest, makesBitmapsOfBytes) {
    struct Case {
        int depth;
        std::size_t rowBytes; // of 9 pixels
    };
    for (const Case& expected : {Case{1, 2}, {4, 6}, {8, 10}, {16, 18}, {24, 28}, {32, 36}}) {
        const auto depth = static_cast<std::uint32_t>(expected.depth);
        const Bytes bits = randomBytes(expected.rowBytes * 3, depth);
        EXPECT_EQ(gdi.CreateBitmap(9, 3, 1, depth, std::span(bits).first(bits.size() - 1)), 0) << depth;
        const Handle bitmap = gdi.CreateBitmap(9, 3, 1, depth, bits);
        const auto pixels = machine->graphics.bitmap(bitmap);
        ASSERT_NE(pixels, nullptr) << depth;
        EXPECT_EQ(0, std::memcmp(pixels->row(0), bits.data(), expected.rowBytes)) << depth;
        EXPECT_EQ(0, std::memcmp(pixels->row(2), bits.data() + 2 * expected.rowBytes, expected.rowBytes)) << depth;
        EXPECT_EQ(factsOf(bitmap), (Facts{9, 3, expected.depth}));
    }
    EXPECT_EQ(factsOf(gdi.CreateBitmap(0, 9, 1, 32, {})), (Facts{1, 1, 1}));
    struct Refused {
        int cx, cy;
        std::uint32_t planes, depth;
    };
    for (const Refused& refused : {Refused{4, 4, 0, 32},
                                   {4, 4, 2, 32},
                                   {4, 4, 1, 0},
                                   {4, 4, 1, 2},
                                   {4, 4, 1, 64},
                                   {-4, 4, 1, 32},
                                   {4, -4, 1, 32},
                                   {4, 4, 1, 0xFFFFFFFF},
                                   {65536, 65536, 1, 32}}) {
        EXPECT_EQ(gdi.CreateBitmap(refused.cx, refused.cy, refused.planes, refused.depth, {}), 0) << refused.depth;
    }
}

TEST_F(PixelsBitmapsTest, refusesDamagedHeaders) {
    using Damage = void (*)(BITMAPINFO&);
    const Damage damages[] = {
        [](BITMAPINFO& info) { info.bmiHeader.biSize = 0; },
        [](BITMAPINFO& info) { info.bmiHeader.biSize = 39; },
        [](BITMAPINFO& info) { info.bmiHeader.biSize = 0xFFFFFFFF; },
        [](BITMAPINFO& info) { info.bmiHeader.biWidth = 0; },
        [](BITMAPINFO& info) { info.bmiHeader.biWidth = -3; },
        [](BITMAPINFO& info) { info.bmiHeader.biHeight = 0; },
        [](BITMAPINFO& info) { info.bmiHeader.biHeight = std::numeric_limits<std::int32_t>::min(); },
        [](BITMAPINFO& info) { info.bmiHeader.biPlanes = 0; },
        [](BITMAPINFO& info) { info.bmiHeader.biPlanes = 3; },
        [](BITMAPINFO& info) { info.bmiHeader.biBitCount = 2; },
        [](BITMAPINFO& info) { info.bmiHeader.biBitCount = 33; },
        [](BITMAPINFO& info) { info.bmiHeader.biCompression = BI_RLE8; },
        [](BITMAPINFO& info) { info.bmiHeader.biCompression = 77; },
        [](BITMAPINFO& info) { info.bmiHeader.biCompression = BI_BITFIELDS; }, // no masks
        [](BITMAPINFO& info) {
            info.bmiHeader.biCompression = BI_BITFIELDS; // overlapping
            info.bmiColors = {0xFF, 0x1FF, 0xFF0000};
        },
        [](BITMAPINFO& info) {
            info.bmiHeader.biCompression = BI_BITFIELDS; // with a gap
            info.bmiColors = {0xFF, 0xFD00, 0xFF0000};
        },
        [](BITMAPINFO& info) {
            info.bmiHeader.biCompression = BI_BITFIELDS; // wider than the pixels
            info.bmiHeader.biBitCount = 16;
            info.bmiColors = {0xFF, 0xFF00, 0xFF0000};
        },
        [](BITMAPINFO& info) {
            info.bmiHeader.biCompression = BI_BITFIELDS; // masks of a depth that has none
            info.bmiHeader.biBitCount = 24;
            info.bmiColors = {0xFF, 0xFF00, 0xFF0000};
        },
    };
    const Handle bitmap = gdi.CreateBitmap(4, 4, 1, 32, {});
    for (std::size_t number = 0; number < std::size(damages); ++number) {
        BITMAPINFO info = infoOf(4, 4, 32);
        damages[number](info);
        std::byte* bits = nullptr;
        EXPECT_EQ(gdi.CreateDIBSection(hdc, info, DIB_RGB_COLORS, bits), 0) << "damage " << number;
        EXPECT_EQ(bits, nullptr);
        Bytes place(4096, std::byte{0x5A});
        EXPECT_EQ(gdi.GetDIBits(hdc, bitmap, 0, 4, place, info, DIB_RGB_COLORS), 0) << "damage " << number;
        EXPECT_EQ(place, Bytes(4096, std::byte{0x5A}));
    }
    std::byte* bits = nullptr;
    EXPECT_EQ(gdi.CreateDIBSection(hdc, infoOf(4, 4, 32), 1, bits), 0);
    EXPECT_EQ(gdi.CreateDIBSection(hdc, infoOf(65536, 65536, 32), DIB_RGB_COLORS, bits), 0);
    EXPECT_EQ(gdi.CreateDIBSection(hdc, infoOf(0x7FFFFFFF, 0x7FFFFFFF, 1), DIB_RGB_COLORS, bits), 0);
    EXPECT_TRUE(gdi.DeleteObject(bitmap));
}

struct DibFormat {
    int depth;
    std::array<std::uint32_t, 3> masks{};
};
constexpr DibFormat dibFormats[] = {{1}, {4}, {8}, {16}, {16, {0xF800, 0x7E0, 0x1F}}, {24}, {32}, {32, {0xFF, 0xFF00, 0xFF0000}}};

BITMAPINFO infoOf(const DibFormat& format, std::int32_t width, std::int32_t height) {
    BITMAPINFO info = infoOf(width, height, format.depth);
    if (format.masks[0] != 0) {
        info.bmiHeader.biCompression = BI_BITFIELDS;
        std::ranges::copy(format.masks, info.bmiColors.begin());
    } else if (format.depth <= 8) {
        for (std::uint32_t i = 0; i < 256; ++i) {
            info.bmiColors[i] = i * 0x010305 * (255 >> format.depth | 1) & 0xFFFFFF;
        }
    }
    return info;
}

TEST_F(PixelsBitmapsTest, givesTheBytesOfSectionsBackInTheirFormat) {
    for (const DibFormat& format : dibFormats) {
        for (const std::int32_t width : {1, 7, 16, 33}) {
            for (const std::int32_t height : {3, -3}) {
                const BITMAPINFO info = infoOf(format, width, height);
                std::byte* bits = nullptr;
                const Handle bitmap = gdi.CreateDIBSection(0, info, DIB_RGB_COLORS, bits);
                ASSERT_NE(bitmap, 0);
                const auto pixels = machine->graphics.bitmap(bitmap);
                const std::size_t rowBytes = (static_cast<std::size_t>(width * format.depth) + 31) / 32 * 4;
                ASSERT_EQ(pixels->bytes().size(), rowBytes * 3);
                ASSERT_EQ(pixels->bytes().data(), bits);
                // Written pixel by pixel, so that the unused bits stay 0.
                std::mt19937 random(static_cast<unsigned>(width));
                std::vector<host::Pixel> row(static_cast<std::size_t>(width));
                for (int y = 0; y < 3; ++y) {
                    for (host::Pixel& pixel : row) {
                        pixel = random() & 0xFFFFFF;
                    }
                    pixels->write(0, y, row);
                }
                BITMAPINFO asked = infoOf(format, width, height);
                if (format.depth <= 8) {
                    asked.bmiColors.fill(0xEEEEEE); // filled in
                }
                Bytes got(rowBytes * 3);
                ASSERT_EQ(gdi.GetDIBits(hdc, bitmap, 0, 3, got, asked, DIB_RGB_COLORS), 3);
                EXPECT_EQ(0, std::memcmp(got.data(), bits, got.size())) << format.depth << " bits, " << width << " x " << height;
                for (std::size_t color = 0; format.depth <= 8 && color < std::size_t{1} << format.depth; ++color) {
                    ASSERT_EQ(asked.bmiColors[color], info.bmiColors[color]);
                }
                // The other way up.
                BITMAPINFO turned = infoOf(format, width, -height);
                Bytes other(rowBytes * 3);
                ASSERT_EQ(gdi.GetDIBits(hdc, bitmap, 0, 3, other, turned, DIB_RGB_COLORS), 3);
                for (std::size_t y = 0; y < 3; ++y) {
                    EXPECT_EQ(0, std::memcmp(other.data() + y * rowBytes, bits + (2 - y) * rowBytes, rowBytes));
                }
                EXPECT_TRUE(gdi.DeleteObject(bitmap));
            }
        }
    }
}

/// The largest difference of a channel.
unsigned farthest(host::Pixel a, host::Pixel b) {
    unsigned most = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const int difference = static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF);
        most = std::max(most, static_cast<unsigned>(std::abs(difference)));
    }
    return most;
}

TEST_F(PixelsBitmapsTest, convertsEveryDepthToEveryOther) {
    const std::vector<host::Pixel> given{0x000000, 0xFFFFFF, 0x0000FF, 0xFF0000, 0x00FF00, 0xFFFF00, 0x808080};
    for (const DibFormat& from : dibFormats) {
        BITMAPINFO info = infoOf(from, 7, 2);
        std::ranges::copy(given, info.bmiColors.begin());
        if (from.masks[0] != 0) {
            std::ranges::copy(from.masks, info.bmiColors.begin());
        }
        std::byte* bits = nullptr;
        const Handle bitmap = gdi.CreateDIBSection(0, info, DIB_RGB_COLORS, bits);
        const auto pixels = machine->graphics.bitmap(bitmap);
        pixels->write(0, 1, given);
        std::vector<host::Pixel> source(7);
        pixels->read(0, 1, source);
        for (const DibFormat& to : dibFormats) {
            BITMAPINFO asked = infoOf(to, 7, 2);
            Bytes got(256, std::byte{0xEE});
            ASSERT_EQ(gdi.GetDIBits(hdc, bitmap, 0, 1, got, asked, DIB_RGB_COLORS), 1);
            // A section of the answer's format shows the colours that came out.
            std::byte* shownBits = nullptr;
            asked.bmiHeader.biHeight = 1;
            const Handle shown = gdi.CreateDIBSection(0, asked, DIB_RGB_COLORS, shownBits);
            const auto shownPixels = machine->graphics.bitmap(shown);
            std::ranges::copy_n(got.begin(), static_cast<std::ptrdiff_t>(shownPixels->bytes().size()), shownBits);
            std::vector<host::Pixel> result(7);
            shownPixels->read(0, 0, result);
            for (std::size_t place = 0; place < 7; ++place) {
                // Gray lies between the steps of 16 bits, and the pure colours are in every table but that of two.
                const bool isExact = to.depth >= 24 || (to.depth <= 8 && from.depth <= to.depth);
                const unsigned most = isExact ? 0 : to.depth == 1 ? 255 : place == 6 ? 8 : 0;
                EXPECT_LE(farthest(result[place], source[place]), most) << from.depth << " to " << to.depth << ", " << place;
            }
            if (to.depth == 1 && from.depth > 1) {
                EXPECT_EQ(result[0], 0U);
                EXPECT_EQ(result[1], 0xFFFFFFU);
                EXPECT_EQ(result[2], 0U);
                EXPECT_EQ(result[5], 0xFFFFFFU);
            }
            EXPECT_EQ(got[shownPixels->bytes().size()], std::byte{0xEE});
            EXPECT_TRUE(gdi.DeleteObject(shown));
        }
        EXPECT_TRUE(gdi.DeleteObject(bitmap));
    }
}

TEST_F(PixelsBitmapsTest, countsRowsFromTheBottomAndStaysInBounds) {
    // One byte a row tells which one it is, from the top.
    Bytes rows(5 * 4);
    for (std::size_t y = 0; y < 5; ++y) {
        rows[4 * y] = static_cast<std::byte>(y + 1);
    }
    const Handle bitmap = gdi.CreateBitmap(1, 5, 1, 32, rows);
    struct Case {
        std::uint32_t start, lines;
        int height;
        std::size_t space; // in rows
        std::int32_t answer;
        std::vector<int> got;
    };
    const Case cases[] = {
        {0, 5, 5, 5, 5, {5, 4, 3, 2, 1}}, {0, 5, -5, 5, 5, {1, 2, 3, 4, 5}}, {1, 2, 5, 2, 2, {4, 3}}, {1, 2, -5, 3, 2, {3, 4, 0}},
        {3, 99, 5, 2, 2, {2, 1}},         {3, 0xFFFFFFFF, -5, 2, 2, {1, 2}}, {0, 0, 5, 1, 0, {0}},    {5, 1, 5, 1, 0, {0}},
        {0xFFFFFFFF, 2, 5, 2, 0, {0, 0}}, {0, 5, 5, 4, 0, {0, 0, 0, 0}},     {2, 3, 5, 2, 0, {0, 0}},
    };
    for (const Case& expected : cases) {
        BITMAPINFO info = infoOf(1, expected.height, 32);
        Bytes place(expected.space * 4);
        EXPECT_EQ(gdi.GetDIBits(hdc, bitmap, expected.start, expected.lines, place, info, 0), expected.answer)
            << expected.start << ", " << expected.lines << ", " << expected.height;
        for (std::size_t y = 0; y < expected.space; ++y) {
            EXPECT_EQ(std::to_integer<int>(place[4 * y]), expected.got[y]) << expected.start << ", row " << y;
        }
    }
    // Wider and narrower pictures.
    BITMAPINFO wide = infoOf(3, 5, 24);
    Bytes place(12, std::byte{0x77});
    EXPECT_EQ(gdi.GetDIBits(hdc, bitmap, 0, 1, place, wide, 0), 1);
    EXPECT_EQ(place[0], std::byte{5});
    EXPECT_EQ(place[3], std::byte{0});
    BITMAPINFO info = infoOf(1, 5, 32);
    EXPECT_EQ(gdi.GetDIBits(hdc, bitmap, 0, 5, std::span(place).first(3), info, 0), 0);
    EXPECT_EQ(gdi.GetDIBits(0, bitmap, 0, 1, place, info, 0), 0);
    EXPECT_EQ(gdi.GetDIBits(hdc, 0, 0, 1, place, info, 0), 0);
    EXPECT_EQ(gdi.GetDIBits(hdc, hdc, 0, 1, place, info, 0), 0);
    EXPECT_EQ(gdi.GetDIBits(hdc, bitmap, 0, 1, place, info, 1), 0);
    EXPECT_TRUE(gdi.DeleteObject(bitmap));
}

TEST_F(PixelsBitmapsTest, describesABitmapWithoutItsBits) {
    BITMAPINFO sectionInfo = infoOf(9, -4, 16);
    sectionInfo.bmiHeader.biCompression = BI_BITFIELDS;
    sectionInfo.bmiColors = {0xF800, 0x7E0, 0x1F};
    std::byte* bits = nullptr;
    const Handle section = gdi.CreateDIBSection(0, sectionInfo, 0, bits);
    const Handle plain = gdi.CreateBitmap(9, 4, 1, 24, {});
    BITMAPINFO info;
    EXPECT_EQ(gdi.GetDIBits(hdc, section, 0, 0, {}, info, 0), 4);
    EXPECT_EQ(info.bmiHeader.biWidth, 9);
    EXPECT_EQ(info.bmiHeader.biHeight, 4);
    EXPECT_EQ(info.bmiHeader.biBitCount, 16);
    EXPECT_EQ(info.bmiHeader.biCompression, BI_BITFIELDS);
    EXPECT_EQ(info.bmiHeader.biSizeImage, 80U);
    EXPECT_EQ(info.bmiColors[1], 0x7E0U);
    info = {};
    EXPECT_EQ(gdi.GetDIBits(hdc, plain, 0, 0, {}, info, 0), 4);
    EXPECT_EQ(info.bmiHeader.biBitCount, 24);
    EXPECT_EQ(info.bmiHeader.biCompression, BI_RGB);
    EXPECT_EQ(info.bmiHeader.biSizeImage, 112U);
    // With a depth: the colours, and how much there would be.
    info = infoOf(9, 4, 4);
    EXPECT_EQ(gdi.GetDIBits(hdc, plain, 0, 0, {}, info, 0), 4);
    EXPECT_EQ(info.bmiHeader.biSizeImage, 32U);
    EXPECT_EQ(info.bmiColors[15], 0xFFFFFFU);
    info.bmiHeader.biPlanes = 0;
    EXPECT_EQ(gdi.GetDIBits(hdc, plain, 0, 0, {}, info, 0), 0);
    EXPECT_TRUE(gdi.DeleteObject(section));
    EXPECT_TRUE(gdi.DeleteObject(plain));
}

TEST_F(PixelsBitmapsTest, copiesThroughContexts) {
    Bytes bits = randomBytes(8 * 6 * 4, 3);
    const Handle from = gdi.CreateBitmap(8, 6, 1, 32, bits);
    const Handle to = gdi.CreateBitmap(8, 6, 1, 32, {});
    const Handle other = gdi.CreateCompatibleDC(hdc);
    const Handle first = gdi.SelectObject(hdc, from);
    EXPECT_EQ(gdi.SelectObject(other, to), first);
    EXPECT_TRUE(gdi.BitBlt(other, 2, 1, 100, 100, hdc, 1, 2, SRCCOPY));
    const auto source = machine->graphics.bitmap(from);
    const auto target = machine->graphics.bitmap(to);
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 8; ++x) {
            const bool isIn = x >= 2 && y >= 1 && y + 1 < 6;
            EXPECT_EQ(target->pixels(y)[x], isIn ? source->pixels(y + 1)[x - 1] : 0) << x << ", " << y;
        }
    }
    EXPECT_FALSE(gdi.BitBlt(other, 0, 0, 1, 1, 0, 0, 0, SRCCOPY));
    EXPECT_FALSE(gdi.BitBlt(0, 0, 0, 1, 1, hdc, 0, 0, SRCCOPY));
    EXPECT_FALSE(gdi.BitBlt(other, 0, 0, 1, 1, 4711, 0, 0, SRCCOPY));
    EXPECT_TRUE(gdi.BitBlt(other, 0, 0, 8, 6, 0, 0, 0, WHITENESS));
    EXPECT_EQ(target->pixels(5)[7], 0xFFFFFFU);
    for (const Handle context : {hdc, other}) {
        EXPECT_NE(gdi.SelectObject(context, first), 0);
    }
    EXPECT_TRUE(gdi.DeleteDC(other));
    EXPECT_TRUE(gdi.DeleteObject(from));
    EXPECT_TRUE(gdi.DeleteObject(to));
}

} // namespace

} // namespace mox::test
