// Lines of text: their sizes, their places, their qualities.
#include "fonts_support.h"

#include <array>
#include <limits>

namespace mox::test {

namespace {

using namespace platform;

constexpr std::string_view sample = "Hamburgefonstiv 1234";

TEST(TextSizeTest, followsTheHeightThatWasAskedFor) {
    struct Case {
        int height;
        std::string_view face;
        int cell;
        int em;
    };
    // Metric-compatible with the fonts of these names.
    const Case cases[] = {
        {-11, "Arial", 13, 11},       {-12, "Arial", 14, 12},
        {-13, "Arial", 15, 13},       {-16, "Arial", 19, 16},
        {-100, "Arial", 113, 100},    {16, "Arial", 16, 14},
        {0, "Arial", 16, 14},         {1, "Arial", 2, 1},
        {-16, "Courier New", 19, 16}, {-16, "times new roman", 19, 16},
        {-1, "Arial", 2, 1},          {100, "Arial", 100, 89},
    };
    TextBoard board;
    for (const Case& expected : cases) {
        board.select({.height = expected.height, .face = expected.face});
        const TEXTMETRICA metrics = board.metrics();
        EXPECT_EQ(metrics.tmHeight, expected.cell) << expected.face << " " << expected.height;
        EXPECT_EQ(metrics.tmHeight - metrics.tmInternalLeading, expected.em) << expected.face << " " << expected.height;
        EXPECT_EQ(metrics.tmHeight, metrics.tmAscent + metrics.tmDescent);
        if (expected.height > 0) {
            EXPECT_LE(metrics.tmHeight, std::max(expected.height, 2));
        }
        SIZE size;
        EXPECT_TRUE(board.machine->gdi32.GetTextExtentPoint32A(board.hdc, "Ag", size));
        EXPECT_EQ(size.cy, metrics.tmHeight);
    }
}

TEST(TextSizeTest, isMadeOfTheAdvancesOfTheCharacters) {
    TextBoard board;
    board.select({.height = -16, .face = "Courier New"});
    const int one = board.widthOf("i");
    EXPECT_EQ(one, 10); // 0.6 of the em
    EXPECT_EQ(board.widthOf("W"), one);
    EXPECT_EQ(board.widthOf("mixed Text"), 10 * one);
    EXPECT_EQ(board.widthOf(""), 0);
    EXPECT_EQ(board.widthOf("\x01\x0A\x0D\x7F"), 0); // control characters draw nothing
    EXPECT_EQ(board.metrics().tmPitchAndFamily & 0xF1, FF_MODERN);
    EXPECT_EQ(board.metrics().tmAveCharWidth, one);
    board.select({.height = -16, .face = "Courier New", .weight = FW_BOLD});
    EXPECT_EQ(board.widthOf("W"), one); // there is a bold one
    EXPECT_EQ(board.metrics().tmWeight, FW_BOLD);
    board.select({.height = -100, .face = "Arial"});
    EXPECT_EQ(board.widthOf("0"), 56); // 0.556 of the em
    EXPECT_EQ(board.metrics().tmPitchAndFamily & 0xF1, FF_SWISS | 1);
    const int natural = board.widthOf(sample);
    board.select({.height = -100, .face = "Arial", .width = 2 * board.metrics().tmAveCharWidth});
    EXPECT_NEAR(board.widthOf(sample), 2 * natural, 20);
    board.select({.height = -100, .face = "Times New Roman"});
    EXPECT_EQ(board.metrics().tmPitchAndFamily & 0xF1, FF_ROMAN | 1);
}

TEST(TextSizeTest, agreesWithWhatIsDrawnAtEveryAngle) {
    TextBoard board(500, 500);
    for (const std::uint32_t quality : {ANTIALIASED_QUALITY, NONANTIALIASED_QUALITY, CLEARTYPE_QUALITY}) {
        for (const int angle : {0, 300, 450, 900, 1370, 1800, 2250, 2700, 3599, -300, 4050}) {
            // "H" has its stems near its sides, so the ink tells how long the line is.
            const std::string text = "HHHHHHHHHHHH";
            board.select({.height = -20, .angle = angle, .quality = quality});
            const int width = board.widthOf(text);
            board.clear();
            ASSERT_TRUE(board.textOut(250, 250, text));
            const double radians = angle * 3.14159265358979 / 1800;
            double least = 1e9;
            double most = -1e9;
            double highest = 1e9;
            double lowest = -1e9;
            board.look([&](int x, int y, host::Pixel value) {
                if ((value & 0xFF) < 0x80) {
                    const double along = (x + 0.5 - 250) * std::cos(radians) - (y + 0.5 - 250) * std::sin(radians);
                    const double down = (x + 0.5 - 250) * std::sin(radians) + (y + 0.5 - 250) * std::cos(radians);
                    least = std::min(least, along - 0.5);
                    most = std::max(most, along + 0.5);
                    highest = std::min(highest, down - 0.5);
                    lowest = std::max(lowest, down + 0.5);
                }
            });
            // The side bearings of "H" are 0.08 of the em, 1.6 pixels.
            const double tolerance = quality == NONANTIALIASED_QUALITY && angle % 900 != 0 ? 1.3 : 1;
            EXPECT_NEAR(least, 1.6, tolerance) << angle << ", quality " << quality;
            EXPECT_NEAR(most, width - 1.6, tolerance) << angle << ", quality " << quality;
            EXPECT_NEAR(lowest, board.metrics().tmAscent, tolerance) << angle << ", quality " << quality;
            EXPECT_NEAR(lowest - highest, 14.3, tolerance + 0.3) << angle << ", quality " << quality;
        }
    }
}

TEST(TextSizeTest, survivesEverySize) {
    TextBoard board(60, 40);
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    for (const int height : {least, -100000, -3000, -700, 100000, most, 5000, 1, -1}) {
        for (const int width : {0, 1, most, least}) {
            for (const int angle : {0, 450, most, least}) {
                board.select({.height = height, .angle = angle, .weight = FW_BOLD, .isItalic = true, .width = width});
                EXPECT_GT(board.metrics().tmHeight, 0) << height;
                EXPECT_GE(board.widthOf("Wide"), 0) << height;
                EXPECT_TRUE(board.textOut(-2, 20, "Wide")) << height << " " << width << " " << angle;
                EXPECT_TRUE(board.textOut(most, least, "Wide"));
            }
        }
    }
    // A letter that is larger than its surface is drawn as far as it is there.
    board.clear();
    board.select({.height = -3000});
    const int stem = 3000 * 10 / 100;
    EXPECT_TRUE(board.textOut(-stem, -1500, "H"));
    EXPECT_EQ(board.pixel(20, 20), 0U);
    EXPECT_EQ(board.colors().count(0xFFFFFF), 0U);
}

TEST(TextPlaceTest, liesAboutItsPointByItsAlignment) {
    TextBoard board(200, 120);
    board.select({.height = -20});
    const std::string_view text = "HH";
    const int width = board.widthOf(text);
    const TEXTMETRICA metrics = board.metrics();
    board.textOut(100, 60, text);
    const RECT plain = board.ink(true);
    struct Case {
        std::uint32_t align;
        int dx;
        int dy;
    };
    const Case cases[] = {{0, 0, 0},
                          {host::TA_RIGHT, -width, 0},
                          {host::TA_CENTER, -width / 2, 0},
                          {host::TA_BOTTOM, 0, -metrics.tmHeight},
                          {host::TA_BASELINE, 0, -metrics.tmAscent},
                          {host::TA_RIGHT | host::TA_BASELINE, -width, -metrics.tmAscent}};
    for (const Case& expected : cases) {
        board.clear();
        board.context().state().textAlign = expected.align;
        board.textOut(100, 60, text);
        const RECT moved = board.ink(true);
        EXPECT_EQ(moved, (RECT{plain.left + expected.dx, plain.top + expected.dy, plain.right + expected.dx,
                               plain.bottom + expected.dy}))
            << expected.align;
    }
    board.context().state().textAlign = host::TA_UPDATECP;
    board.context().state().position = {10, 20};
    board.clear();
    board.textOut(100, 60, text);
    EXPECT_EQ(board.context().state().position, (POINT{10 + width, 20}));
    EXPECT_EQ(board.ink(true).left, plain.left - 90);
}

TEST(TextPlaceTest, keepsToTheDistancesThatAreGiven) {
    TextBoard board;
    board.select({.height = -20});
    const std::array<std::int32_t, 2> distances{60, 40};
    EXPECT_TRUE(board.context().extTextOut({10, 10}, 0, {}, u"HH", distances));
    const RECT both = board.ink(true);
    board.clear();
    board.textOut(10, 10, "H");
    const RECT one = board.ink(true);
    EXPECT_EQ(both, (RECT{one.left, one.top, one.right + 60, one.bottom}));
}

TEST(TextPlaceTest, isClipped) {
    TextBoard board;
    board.select({.height = -20});
    EXPECT_TRUE(board.context().extTextOut({0, 0}, host::ETO_CLIPPED, {5, 4, 30, 12}, u"HHHHHHHH", {}));
    const RECT ink = board.ink();
    EXPECT_GE(ink.left, 5);
    EXPECT_LE(ink.right, 30);
    EXPECT_GE(ink.top, 4);
    EXPECT_EQ(ink.bottom, 12);
    board.clear();
    host::Region region(RECT{0, 0, 20, 10});
    region.unite(host::Region(RECT{40, 10, 60, 30}));
    board.context().state().clip = region;
    board.textOut(0, 0, "HHHHHHHH");
    EXPECT_FALSE(board.isClear());
    board.look([&](int x, int y, host::Pixel value) {
        EXPECT_TRUE(value == 0xFFFFFF || region.contains(POINT{x, y})) << x << " " << y;
    });
    board.clear();
    board.context().state().clip = host::Region();
    EXPECT_TRUE(board.textOut(0, 0, "HHHHHHHH"));
    EXPECT_TRUE(board.isClear());
}

TEST(TextLookTest, dependsOnTheQuality) {
    TextBoard board;
    board.select({.quality = NONANTIALIASED_QUALITY});
    board.textOut(5, 5, sample);
    EXPECT_EQ(board.colors(), (std::set<host::Pixel>{0, 0xFFFFFF}));
    for (const std::uint32_t quality : {DEFAULT_QUALITY, ANTIALIASED_QUALITY}) {
        board.clear();
        board.select({.quality = quality});
        board.textOut(5, 5, sample);
        EXPECT_GT(board.colors().size(), 10U);
        for (const host::Pixel color : board.colors()) {
            EXPECT_EQ(color & 0xFF, color >> 16) << "not grey";
        }
    }
    const double grey = board.darkness();
    board.clear();
    board.select({.quality = CLEARTYPE_QUALITY});
    board.textOut(5, 5, sample);
    const auto colors = board.colors();
    EXPECT_GT(std::ranges::count_if(colors, [](host::Pixel color) { return (color & 0xFF) != color >> 16; }), 10);
    EXPECT_NEAR(board.darkness() / grey, 1, 0.05);
}

TEST(TextLookTest, isBolderAndSlanted) {
    TextBoard board(400, 60);
    const auto darkness = [&](const FontWish& wish) {
        board.clear();
        board.select(wish);
        board.textOut(5, 5, sample);
        return board.darkness();
    };
    const double plain = darkness({.height = -30});
    EXPECT_GT(darkness({.height = -30, .weight = FW_BOLD}), plain * 1.2);
    // A font without a bold one or an italic one of its own.
    const std::string_view single = "DejaVu Math TeX Gyre";
    const double singlePlain = darkness({.height = -30, .face = single});
    const int width = board.widthOf("HHHH");
    EXPECT_GT(darkness({.height = -30, .face = single, .weight = FW_BOLD}), singlePlain);
    // Only where that font is there, its letters have to be made bolder here.
    EXPECT_LE(board.widthOf("HHHH"), width + 16);
    EXPECT_NE(board.metrics().tmItalic, 255);
    darkness({.height = -30, .isItalic = true});
    EXPECT_EQ(board.metrics().tmItalic, 255);
}

TEST(TextLookTest, drawsOnEveryDepth) {
    const host::BitmapFormat formats[] = {{.bitsPerPixel = 1},
                                          {.bitsPerPixel = 4, .isSection = true, .colors = {0, 0xFFFFFF, 0x808080, 0xFF0000}},
                                          {.bitsPerPixel = 8, .isSection = true, .colors = {0, 0xFFFFFF, 0x404040, 0xC0C0C0}},
                                          {.bitsPerPixel = 16, .masks = host::masks565},
                                          {.bitsPerPixel = 24},
                                          {.bitsPerPixel = 32, .isSection = true, .isTopDown = false},
                                          {.bitsPerPixel = 32, .isSection = true, .masks = {0xFF, 0xFF00, 0xFF0000}}};
    TextBoard plain(200, 30);
    plain.select({.height = -20});
    plain.textOut(3, 3, sample);
    for (host::BitmapFormat format : formats) {
        format.width = 200;
        format.height = 30;
        TextBoard board(format);
        board.select({.height = -20});
        EXPECT_TRUE(board.textOut(3, 3, sample));
        EXPECT_NEAR(board.darkness(), plain.darkness(), plain.darkness() / 5) << format.bitsPerPixel;
        plain.look([&](int x, int y, host::Pixel value) {
            if (value == 0 || value == 0xFFFFFF) {
                EXPECT_EQ(board.pixel(x, y), value) << format.bitsPerPixel;
            }
        });
    }
}

TEST(TextLookTest, leavesTheFourthByteAlone) {
    TextBoard board(60, 30);
    for (int y = 0; y < 30; ++y) {
        std::fill_n(board.bitmap->pixels(y), 60, 0x5AFFFFFF);
    }
    for (const std::uint32_t quality : {ANTIALIASED_QUALITY, CLEARTYPE_QUALITY, NONANTIALIASED_QUALITY}) {
        board.select({.height = -20, .quality = quality});
        board.machine->gdi32.SetTextColor(board.hdc, 0x3060C0);
        board.textOut(3, 3, "Text");
    }
    bool isColored = false;
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 60; ++x) {
            EXPECT_EQ(board.bitmap->pixels(y)[x] >> 24, 0x5AU);
            isColored |= board.pixel(x, y) == 0xC06030;
        }
    }
    EXPECT_TRUE(isColored);
}

} // namespace

} // namespace mox::test
