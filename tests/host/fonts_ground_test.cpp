// What lies behind, below and through text, in whichever direction it runs.
#include "fonts_support.h"

namespace mox::test {

namespace {

using namespace platform;

TEST(TextGroundTest, isFilledWhereTheTextIs) {
    TextBoard board;
    board.select({.height = -20});
    const Handle hdc = board.hdc;
    board.machine->gdi32.SetBkMode(hdc, OPAQUE);
    board.machine->gdi32.SetBkColor(hdc, 0x0000FF);
    const int width = board.widthOf("HHH");
    const int height = board.metrics().tmHeight;
    EXPECT_TRUE(board.textOut(30, 40, "HHH"));
    EXPECT_EQ(board.ink(), (RECT{30, 40, 30 + width, 40 + height}));
    EXPECT_EQ(board.pixel(30, 40), 0xFF0000U);
    // All of a rectangle, and nothing of the text outside it.
    board.clear();
    EXPECT_TRUE(board.context().extTextOut({30, 40}, host::ETO_OPAQUE | host::ETO_CLIPPED, {10, 20, 50, 80}, u"HHH", {}));
    EXPECT_EQ(board.ink(), (RECT{10, 20, 50, 80}));
    board.clear();
    EXPECT_TRUE(board.context().extTextOut({}, host::ETO_OPAQUE, {10, 20, 50, 80}, u"", {}));
    EXPECT_EQ(board.colors(), (std::set<host::Pixel>{0xFF0000, 0xFFFFFF}));
    // Turned with the text.
    for (const int angle : {450, 900, 1800}) {
        board.clear();
        board.select({.height = -20, .angle = angle});
        EXPECT_TRUE(board.textOut(100, 60, "HHH"));
        int count = 0;
        board.look([&](int, int, host::Pixel value) { count += value != 0xFFFFFF; });
        EXPECT_NEAR(count, board.widthOf("HHH") * height, 60) << angle;
    }
}

TEST(TextGroundTest, hasLinesBelowAndThroughTheText) {
    TextBoard board;
    board.select({.height = -40, .isUnderlined = true});
    const int width = board.widthOf("  ");
    const int baseline = 20 + board.metrics().tmAscent;
    EXPECT_TRUE(board.textOut(30, 20, "  "));
    const RECT below = board.ink();
    EXPECT_EQ(below.left, 30);
    EXPECT_EQ(below.right, 30 + width);
    EXPECT_GT(below.top, baseline);
    EXPECT_NEAR(below.bottom - below.top, 3, 1); // a fifteenth of the em or so
    EXPECT_NE(board.metrics().tmUnderlined, 0);
    board.clear();
    board.select({.height = -40, .isStruckOut = true});
    EXPECT_TRUE(board.textOut(30, 20, "  "));
    const RECT through = board.ink();
    EXPECT_NEAR(through.top, baseline - 10, 3); // about half the height of small letters
    EXPECT_EQ(through.right, 30 + width);
    board.clear();
    board.select({.height = -40, .angle = 900, .isUnderlined = true});
    EXPECT_TRUE(board.textOut(20, 95, "  "));
    const RECT turned = board.ink();
    EXPECT_NEAR(turned.left, 20 + board.metrics().tmAscent + (below.top - baseline), 1);
    EXPECT_NEAR(turned.bottom - turned.top, width, 2);
}

TEST(TextGroundTest, followsTheMapping) {
    TextBoard board(300, 200);
    board.select({.height = -20});
    const int width = board.widthOf("HHHH");
    host::DeviceState& state = board.context().state();
    // Units of half a pixel: as large in units, half as large in pixels.
    state.windowExtent = {2, 2};
    EXPECT_NEAR(board.widthOf("HHHH"), width, 5);
    EXPECT_NEAR(board.metrics().tmHeight, 24, 2);
    EXPECT_TRUE(board.textOut(40, 40, "HHHH"));
    const RECT small = board.ink(true);
    EXPECT_NEAR(small.right - small.left, width / 2, 3);
    EXPECT_NEAR(small.left, 20, 2);
    state.windowExtent = {1, 1};
    // A world that is three times as wide as high stretches the letters.
    state.world = {3, 0, 0, 1, 0, 0};
    board.clear();
    EXPECT_TRUE(board.textOut(5, 10, "HHHH"));
    const RECT wide = board.ink(true);
    EXPECT_NEAR(wide.right - wide.left, 3 * width, 12);
    EXPECT_NEAR(wide.bottom - wide.top, 14, 2);
    // One that is turned turns the text.
    state.world = {0, -1, 1, 0, 100, 150};
    board.clear();
    EXPECT_TRUE(board.textOut(0, 0, "HHHH"));
    const RECT turned = board.ink(true);
    EXPECT_NEAR(turned.bottom - turned.top, width, 5);
    EXPECT_LE(turned.bottom, 150);
    EXPECT_GE(turned.left, 100);
}

} // namespace

} // namespace mox::test
