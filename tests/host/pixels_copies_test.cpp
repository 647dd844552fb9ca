#include "pixels_model.h"

#include "host/graphics/rastercanvas.h"

#include <gtest/gtest.h>

#include <chrono>

namespace mox::test {

namespace {

using namespace host;
using platform::SRCCOPY;
using Kind = ImageCopy::Kind;

std::vector<Pixel> someColors(std::size_t count) {
    std::vector<Pixel> colors{0x000000, 0xFFFFFF, 0x0000FF, 0xFF0000, 0x00FF00, 0x808080, 0xC0C0C0, 0x123456};
    while (colors.size() < count) {
        colors.push_back(static_cast<Pixel>(colors.size() * 0x10507 & 0xFFFFFF));
    }
    colors.resize(count);
    return colors;
}

const BitmapFormat formats[] = {
    {.bitsPerPixel = 32},
    {.bitsPerPixel = 32, .isSection = true, .isTopDown = false},
    {.bitsPerPixel = 32, .isSection = true, .masks = {0xFF, 0xFF00, 0xFF0000}},
    {.bitsPerPixel = 24, .isSection = true, .isTopDown = false},
    {.bitsPerPixel = 16, .masks = masks565},
    {.bitsPerPixel = 8, .isSection = true, .colors = someColors(256)},
    {.bitsPerPixel = 4, .colors = someColors(16)},
    {.bitsPerPixel = 1},
    {.bitsPerPixel = 1, .isSection = true, .colors = {0xFF0000, 0x00FF00}},
};
constexpr std::size_t formatCount = std::size(formats);
constexpr std::size_t monochrome = 7;

/// Random pixels, often the few colours that decide something.
std::shared_ptr<Bitmap> randomBitmap(BitmapFormat format, int width, int height, std::mt19937& random) {
    format.width = width;
    format.height = height;
    auto bitmap = Bitmap::create(std::move(format));
    std::vector<Pixel> row(static_cast<std::size_t>(width));
    for (int y = 0; y < height; ++y) {
        for (Pixel& pixel : row) {
            const Pixel few[] = {0, 0xFFFFFF, 0x0000FF, 0x44FF0000};
            pixel = random() % 2 == 0 ? few[random() % 4] : static_cast<Pixel>(random());
        }
        bitmap->write(0, y, row);
    }
    return bitmap;
}

Region randomClip(int width, int height, std::mt19937& random) {
    const auto below = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)); };
    Region clip;
    if (below(3) == 0) {
        return Region(RECT{0, 0, width, height});
    }
    for (int i = below(4); i >= 0; --i) {
        const RECT box{below(width), below(height), 0, 0};
        clip.unite(Region(RECT{box.left, box.top, box.left + 1 + below(width), box.top + 1 + below(height)}));
    }
    return clip; // may reach beyond the bitmap
}

/// Makes the copy and compares with the model. Shows the first difference.
void expectAsModel(const std::shared_ptr<Bitmap>& target, const ImageCopy& copy, const Region& clip, const std::string& what) {
    const Picture expected = CopyModel(*target, copy).result(clip);
    ASSERT_TRUE(RasterCanvas(target).copy(copy, clip)) << what;
    const Picture got(*target);
    for (int y = 0; y < got.height; ++y) {
        for (int x = 0; x < got.width; ++x) {
            ASSERT_EQ(got.at(x, y), expected.at(x, y))
                << what << "\nat " << x << ", " << y << " of " << got.width << " x " << got.height << ", "
                << target->bitsPerPixel() << " bits\ntarget " << copy.target.x << ' ' << copy.target.y << ' ' << copy.target.cx
                << ' ' << copy.target.cy << "\nsource " << copy.area.x << ' ' << copy.area.y << ' ' << copy.area.cx << ' '
                << copy.area.cy << " of " << copy.source->width() << " x " << copy.source->height() << ", "
                << copy.source->bitsPerPixel() << " bits\nmode " << copy.stretchMode << std::hex << ", rop " << copy.rop;
        }
    }
}

class Cases {
public:
    explicit Cases(unsigned seed) : random(seed) {}

    int between(int least, int most) { return least + static_cast<int>(random() % static_cast<unsigned>(most - least + 1)); }
    std::shared_ptr<Bitmap> bitmap(std::size_t format) {
        return randomBitmap(formats[format], between(1, 40), between(1, 12), random);
    }
    /// Of a bitmap's size, often reaching beyond it.
    SignedRect area(const Bitmap& bitmap, bool isMirrored) {
        SignedRect area{between(-4, bitmap.width()), between(-4, bitmap.height()), between(1, bitmap.width() + 6),
                        between(1, bitmap.height() + 6)};
        if (isMirrored && between(0, 1) == 0) {
            area = {area.x + area.cx, area.y, -area.cx, area.cy};
        }
        if (isMirrored && between(0, 1) == 0) {
            area = {area.x, area.y + area.cy, area.cx, -area.cy};
        }
        return area;
    }
    Paint paint() {
        Paint result;
        result.brush.color = 0x123456;
        result.textColor = 0x112233;
        result.backColor = 0x445566;
        if (between(0, 2) != 0) {
            result.brush.style = platform::BS_PATTERN;
            result.brush.pattern = bitmap(static_cast<std::size_t>(between(0, formatCount - 1)));
            result.origin = {between(-50, 50), between(-50, 50)};
        }
        return result;
    }
    ImageCopy copy(Kind kind, const Bitmap& target, std::shared_ptr<const Bitmap> source, bool isStretched) {
        ImageCopy result;
        result.kind = kind;
        result.target = area(target, isStretched);
        result.area = area(*source, isStretched);
        if (!isStretched) {
            result.area.cx = result.target.cx;
            result.area.cy = result.target.cy;
        }
        result.source = std::move(source);
        result.stretchMode = between(1, 4);
        result.paint = paint();
        result.textColor = 0x0000FF;
        result.backColor = 0x654321;
        result.sourceBackColor = between(0, 1) == 0 ? 0xFFFFFF : 0xFF0000;
        result.transparentColor = between(0, 1) == 0 ? 0xFFFFFF : 0xFF0000;
        result.blend.SourceConstantAlpha = static_cast<std::uint8_t>(between(0, 3) == 0 ? 255 : between(0, 255));
        result.blend.AlphaFormat = static_cast<std::uint8_t>(between(0, 1));
        return result;
    }

    std::mt19937 random;
};

TEST(PixelsCopiesTest, combinesByEveryRasterOperation) {
    Cases cases(1);
    for (std::uint32_t table = 0; table < 256; ++table) {
        for (const std::size_t format : {std::size_t{0}, monochrome, std::size_t{cases.random() % formatCount}}) {
            const auto target = cases.bitmap(format);
            ImageCopy copy = cases.copy(Kind::raster, *target, cases.bitmap(cases.random() % formatCount), false);
            copy.rop = table << 16 | (cases.random() & 0x4000FFFF); // the rest says nothing
            // Without a source all of the target is filled; the model samples one all the same.
            if (((table >> 2 ^ table) & 0x33) == 0) {
                copy.area = {0, 0, copy.target.cx, copy.target.cy};
                copy.source = randomBitmap(formats[0], copy.target.cx, copy.target.cy, cases.random);
            }
            expectAsModel(target, copy, randomClip(target->width(), target->height(), cases.random), "raster");
            if (HasFatalFailure()) {
                return;
            }
        }
    }
}

TEST(PixelsCopiesTest, copiesBetweenAllFormats) {
    Cases cases(2);
    for (std::size_t to = 0; to < formatCount; ++to) {
        for (std::size_t from = 0; from < formatCount; ++from) {
            for (int turn = 0; turn < 24; ++turn) {
                const auto target = cases.bitmap(to);
                const Kind kinds[] = {Kind::raster, Kind::transparent, Kind::blend};
                ImageCopy copy = cases.copy(kinds[turn % 3], *target, cases.bitmap(from), turn % 2 == 0);
                const Region clip = randomClip(target->width(), target->height(), cases.random);
                expectAsModel(target, copy, clip, "formats " + std::to_string(from) + " to " + std::to_string(to));
                if (HasFatalFailure()) {
                    return;
                }
            }
        }
    }
}

TEST(PixelsCopiesTest, stretchesInEveryModeAndMirrors) {
    Cases cases(3);
    for (int turn = 0; turn < 1500; ++turn) {
        const auto target = cases.bitmap(0);
        ImageCopy copy = cases.copy(turn % 5 == 0 ? Kind::blend : Kind::raster, *target,
                                    cases.bitmap(turn % 3 == 0 ? cases.random() % formatCount : 0), true);
        if (turn % 4 == 0) { // exact factors
            const int factors[] = {1, 2, 3};
            const int factor = factors[cases.between(0, 2)];
            copy.area.cx = copy.target.cx * (turn % 8 == 0 ? factor : -factor);
            copy.area.cy = std::abs(copy.target.cy) * factor;
        }
        expectAsModel(target, copy, randomClip(target->width(), target->height(), cases.random), "stretch");
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(PixelsCopiesTest, halvesAsTheMeanSays) {
    Cases cases(4);
    for (int turn = 0; turn < 60; ++turn) {
        const auto source = randomBitmap(formats[turn % 2], 60, 20, cases.random);
        const auto target = randomBitmap(formats[turn % 3 == 0 ? 3 : 0], 40, 12, cases.random);
        ImageCopy copy;
        copy.source = source;
        copy.stretchMode = platform::HALFTONE;
        copy.target = {cases.between(-5, 8), cases.between(-5, 4), cases.between(1, 29), cases.between(1, 9)};
        copy.area = {cases.between(0, 2), cases.between(0, 2), 2 * copy.target.cx, 2 * copy.target.cy};
        expectAsModel(target, copy, randomClip(40, 12, cases.random), "halve");
    }
}

TEST(PixelsCopiesTest, copiesWithinOneBitmap) {
    constexpr POINT directions[] = {{-1, -1}, {0, -1}, {1, -1}, {-1, 0}, {0, 0}, {1, 0}, {-1, 1}, {0, 1}, {1, 1}};
    Cases cases(5);
    for (const std::size_t format : {0, 1, 3, 5, 6, 7}) {
        for (const POINT& direction : directions) {
            for (int turn = 0; turn < 12; ++turn) {
                const auto bitmap = randomBitmap(formats[format], 37, 23, cases.random);
                ImageCopy copy = cases.copy(Kind::raster, *bitmap, bitmap, false);
                const int far = turn % 3 == 0 ? 11 : 2;
                const bool isWhole = turn % 2 == 0; // whole rows, which move at once
                copy.area = {isWhole ? 0 : 12, 8, isWhole ? 37 : 13, 11};
                copy.target = {copy.area.x + direction.x * far, copy.area.y + direction.y * far, copy.area.cx, copy.area.cy};
                copy.rop = turn % 4 < 2 ? SRCCOPY : platform::SRCINVERT;
                copy.kind = turn > 9 ? Kind::transparent : Kind::raster;
                if (turn == 8) {
                    copy.area.cx += 3; // stretched
                    copy.area.cy -= 3;
                }
                if (turn == 9) {
                    copy.area = {copy.area.x, copy.area.y + copy.area.cy, copy.area.cx, -copy.area.cy};
                }
                const Region clip = turn % 4 < 3 ? Region(bitmap->bounds()) : randomClip(37, 23, cases.random);
                expectAsModel(bitmap, copy, clip,
                              "direction " + std::to_string(direction.x) + ", " + std::to_string(direction.y));
                if (HasFatalFailure()) {
                    return;
                }
            }
        }
    }
}

TEST(PixelsCopiesTest, copiesBetweenPartsOfOneBitmap) {
    Cases cases(7);
    for (int turn = 0; turn < 120; ++turn) {
        const auto whole = randomBitmap(formats[0], 30, 20, cases.random);
        const RECT areas[] = {{0, 0, 30, 20}, {3, 2, 24, 17}, {5, 1, 30, 20}};
        const RECT to = areas[turn % 3];
        const auto target = Bitmap::part(whole, to);
        const auto source = turn % 5 == 0 ? whole : Bitmap::part(whole, areas[cases.between(0, 2)]);
        const Picture before(*whole);
        ImageCopy copy = cases.copy(turn % 7 == 0 ? Kind::transparent : Kind::raster, *target, source, turn % 4 == 0);
        copy.rop = turn % 2 == 0 ? SRCCOPY : platform::SRCINVERT;
        expectAsModel(target, copy, randomClip(target->width(), target->height(), cases.random), "parts");
        const Picture after(*whole);
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 30; ++x) {
                const bool isInside = x >= to.left && x < to.right && y >= to.top && y < to.bottom;
                ASSERT_TRUE(isInside || after.at(x, y) == before.at(x, y)) << x << ", " << y;
            }
        }
    }
}

TEST(PixelsCopiesTest, takesHugeExtentsWithoutOverflowOrDelay) {
    constexpr std::int32_t far = 1 << 28;
    const SignedRect all[] = {{-far, -far, 2 * far, 2 * far},
                              {far, far, -2 * far, -2 * far},
                              {-far, -far, far + 5, far + 5},
                              {-3, -3, far, far},
                              {far, far, 1, 1},
                              {-far, 0, far + 1, 3},
                              {0, 0, 7, 3}};
    std::mt19937 random(6);
    const auto source = randomBitmap(formats[0], 9, 5, random);
    const auto start = std::chrono::steady_clock::now();
    for (const SignedRect& target : all) {
        for (const SignedRect& area : all) {
            for (const int mode : {1, 2, 3, 4}) {
                const auto bitmap = randomBitmap(formats[0], 8, 8, random);
                ImageCopy copy;
                copy.source = source;
                copy.target = target;
                copy.area = area;
                copy.stretchMode = mode;
                const bool isSmall = area.cx == 7 && target.cx == 7;
                if (mode == platform::COLORONCOLOR || isSmall) {
                    expectAsModel(bitmap, copy, Region(bitmap->bounds()), "huge");
                } else {
                    EXPECT_TRUE(RasterCanvas(bitmap).copy(copy, Region(RECT{-far, -far, far, far})));
                }
            }
        }
    }
    // Nothing that wraps.
    for (const SignedRect& area : {SignedRect{-0x7FFFFFFF - 1, 0, 4, 4}, {0, 0x7FFFFFFF, 4, 4}, {0, 0, -0x7FFFFFFF - 1, 4}}) {
        const auto bitmap = Bitmap::create(8, 8);
        ImageCopy copy;
        copy.source = bitmap;
        copy.target = {1, 1, 4, 4};
        copy.area = area;
        EXPECT_FALSE(RasterCanvas(bitmap).copy(copy, Region(bitmap->bounds())));
        copy.target = area;
        copy.area = {1, 1, 4, 4};
        EXPECT_FALSE(RasterCanvas(bitmap).copy(copy, Region(bitmap->bounds())));
    }
    // A source of 2^31 - 1 pixels in one row.
    const auto wide = Bitmap::create({.width = 0x7FFFFFFF, .height = 1, .bitsPerPixel = 1});
    const auto bitmap = Bitmap::create(4, 1);
    ImageCopy copy;
    copy.source = wide;
    copy.target = {0, 0, 4, 1};
    copy.area = {0, 0, far, 1};
    EXPECT_TRUE(RasterCanvas(bitmap).copy(copy, Region(bitmap->bounds())));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(PixelsCopiesTest, fillsByHatches) {
    // The six hatches on white, and then with a ground that leaves what is there.
    const char* const rows[] = {
        "........ ....#... #....... .......# ....#... #......#", "........ ....#... .#...... ......#. ....#... .#....#.",
        "........ ....#... ..#..... .....#.. ....#... ..#..#..", "######## ....#... ...#.... ....#... ######## ...##...",
        "........ ....#... ....#... ...#.... ....#... ...##...", "........ ....#... .....#.. ..#..... ....#... ..#..#..",
        "........ ....#... ......#. .#...... ....#... .#....#.", "........ ....#... .......# #....... ....#... #......#",
    };
    for (const bool isTransparent : {false, true}) {
        for (int hatch = 0; hatch < 6; ++hatch) {
            const auto bitmap = Bitmap::create(13, 11);
            ImageCopy copy;
            copy.rop = platform::PATCOPY;
            copy.target = {0, 0, 13, 11};
            copy.paint.brush = {platform::BS_HATCHED, 0x0000FF, hatch};
            copy.paint.origin = {3, -2};
            copy.paint.isTransparent = isTransparent;
            ASSERT_TRUE(RasterCanvas(bitmap).copy(copy, Region(bitmap->bounds())));
            for (int y = 0; y < 11; ++y) {
                for (int x = 0; x < 13; ++x) {
                    const bool isLine = rows[(y + 2) % 8][hatch * 9 + (x + 5) % 8] == '#';
                    EXPECT_EQ(bitmap->pixels(y)[x], isLine          ? 0xFF0000
                                                    : isTransparent ? 0
                                                                    : 0xFFFFFF)
                        << hatch << ": " << x << ", " << y;
                }
            }
        }
    }
}

TEST(PixelsCopiesTest, drawsNothingWithoutWhatItNeeds) {
    constexpr Pixel white = 0xFFFFFF;
    const auto bitmap = Bitmap::create(3, 3);
    ImageCopy copy;
    copy.target = copy.area = {0, 0, 3, 3};
    const Region clip(bitmap->bounds());
    RasterCanvas canvas(bitmap);
    EXPECT_FALSE(canvas.copy(copy, clip));
    copy.kind = Kind::transparent;
    copy.rop = platform::WHITENESS;
    EXPECT_FALSE(canvas.copy(copy, clip));
    copy.kind = Kind::raster;
    copy.rop = platform::PATCOPY;
    copy.paint.brush.style = platform::BS_NULL;
    EXPECT_TRUE(canvas.copy(copy, clip));
    copy.rop = platform::WHITENESS;
    EXPECT_TRUE(canvas.copy(copy, Region()));
    copy.target.cx = 0;
    EXPECT_TRUE(canvas.copy(copy, clip));
    EXPECT_EQ(Picture(*bitmap).pixels, std::vector<Pixel>(9));
    copy.target.cx = 2;
    EXPECT_TRUE(canvas.copy(copy, clip));
    EXPECT_EQ(Picture(*bitmap).pixels, (std::vector<Pixel>{white, white, 0, white, white, 0, white, white, 0}));
}

} // namespace

} // namespace mox::test
