#include "support/testmachine.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace mox::test {

namespace {

using namespace platform;

struct GraphicsObjectsTest : testing::Test {
    TestMachine machine;
    Gdi32& gdi = machine->gdi32;
};

TEST_F(GraphicsObjectsTest, selectsOneOfEachKindAndGivesTheOneBefore) {
    const Handle hdc = gdi.CreateCompatibleDC(0);
    const Handle pen = gdi.CreatePen(PS_DOT, 3, 0x112233);
    const Handle brush = gdi.CreateSolidBrush(0x445566);
    const Handle bitmap = gdi.CreateCompatibleBitmap(hdc, 4, 4);
    EXPECT_EQ(gdi.SelectObject(hdc, pen), gdi.GetStockObject(BLACK_PEN));
    EXPECT_EQ(gdi.SelectObject(hdc, brush), gdi.GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(gdi.SelectObject(hdc, gdi.GetStockObject(DEFAULT_GUI_FONT)), gdi.GetStockObject(SYSTEM_FONT));
    const Handle first = gdi.SelectObject(hdc, bitmap);
    EXPECT_NE(first, 0);
    EXPECT_EQ(gdi.SelectObject(hdc, first), bitmap);
    EXPECT_EQ(gdi.SelectObject(hdc, gdi.GetStockObject(NULL_PEN)), pen);
    for (const Handle none : {0, -1, hdc, 12345}) {
        EXPECT_EQ(gdi.SelectObject(hdc, none), 0);
        EXPECT_EQ(gdi.SelectObject(none == hdc ? pen : none, pen), 0);
    }
    EXPECT_TRUE(gdi.DeleteObject(brush)); // lives on in the context
    EXPECT_FALSE(gdi.DeleteObject(brush));
    EXPECT_TRUE(gdi.DeleteObject(pen));
    EXPECT_TRUE(gdi.DeleteObject(bitmap));
    EXPECT_TRUE(gdi.DeleteObject(gdi.GetStockObject(BLACK_PEN)));
    EXPECT_NE(gdi.SelectObject(hdc, gdi.GetStockObject(BLACK_PEN)), 0);
    EXPECT_TRUE(gdi.DeleteDC(hdc));
    EXPECT_FALSE(gdi.DeleteDC(hdc));
}

TEST_F(GraphicsObjectsTest, holdsABitmapInOneContextAtATime) {
    const Handle one = gdi.CreateCompatibleDC(0);
    const Handle two = gdi.CreateCompatibleDC(one);
    const Handle screen = gdi.CreateDCA("display", "", "", {});
    const Handle bitmap = gdi.CreateCompatibleBitmap(one, 4, 4);
    const Handle first = gdi.SelectObject(one, bitmap);
    EXPECT_EQ(gdi.SelectObject(one, bitmap), bitmap);
    EXPECT_EQ(gdi.SelectObject(two, bitmap), 0);
    EXPECT_EQ(gdi.SelectObject(screen, bitmap), 0);
    EXPECT_FALSE(gdi.DeleteObject(bitmap));
    EXPECT_EQ(gdi.SelectObject(one, first), bitmap);
    EXPECT_EQ(gdi.SelectObject(two, bitmap), first);
    EXPECT_TRUE(gdi.DeleteDC(two));
    EXPECT_TRUE(gdi.DeleteObject(bitmap));
    EXPECT_TRUE(gdi.DeleteDC(one));
    EXPECT_TRUE(gdi.DeleteDC(screen));
    EXPECT_EQ(gdi.CreateDCA("PRINTER", "", "", {}), 0);
    EXPECT_EQ(gdi.CreateCompatibleDC(screen), 0);
}

TEST_F(GraphicsObjectsTest, savesAndRestoresTheState) {
    const Handle hdc = gdi.CreateCompatibleDC(0);
    EXPECT_FALSE(gdi.RestoreDC(hdc, -1));
    EXPECT_EQ(gdi.SaveDC(hdc), 1);
    EXPECT_EQ(gdi.SetTextColor(hdc, 0x10203), 0U);
    EXPECT_EQ(gdi.SetBkMode(hdc, TRANSPARENT), OPAQUE);
    EXPECT_EQ(gdi.SaveDC(hdc), 2);
    EXPECT_EQ(gdi.SetROP2(hdc, R2_XORPEN), R2_COPYPEN);
    EXPECT_EQ(gdi.SetStretchBltMode(hdc, HALFTONE), BLACKONWHITE);
    EXPECT_FALSE(gdi.RestoreDC(hdc, 3));
    EXPECT_FALSE(gdi.RestoreDC(hdc, 0));
    EXPECT_FALSE(gdi.RestoreDC(hdc, -3));
    EXPECT_TRUE(gdi.RestoreDC(hdc, -1));
    EXPECT_EQ(gdi.GetROP2(hdc), R2_COPYPEN);
    EXPECT_EQ(gdi.GetStretchBltMode(hdc), BLACKONWHITE);
    EXPECT_EQ(gdi.GetTextColor(hdc), 0x10203U);
    EXPECT_TRUE(gdi.RestoreDC(hdc, 1));
    EXPECT_EQ(gdi.GetTextColor(hdc), 0U);
    EXPECT_EQ(gdi.GetBkMode(hdc), OPAQUE);
    EXPECT_FALSE(gdi.RestoreDC(hdc, 1));
    // Values that are no modes change nothing.
    EXPECT_EQ(gdi.SetROP2(hdc, 17), 0);
    EXPECT_EQ(gdi.SetBkMode(hdc, 3), 0);
    EXPECT_EQ(gdi.SetStretchBltMode(hdc, 5), 0);
    EXPECT_EQ(gdi.GetROP2(hdc), R2_COPYPEN);
    EXPECT_EQ(gdi.GetBkColor(4711), CLR_INVALID);
    EXPECT_TRUE(gdi.DeleteDC(hdc));
}

TEST_F(GraphicsObjectsTest, tellsWhatAnObjectIsMadeOf) {
    const Handle pen = gdi.CreatePen(PS_INSIDEFRAME, 5, 0x112233);
    const Handle odd = gdi.CreatePen(99, -5, 1);
    const Handle brush = gdi.CreateBrushIndirect({BS_HATCHED, 0x445566, 4});
    LOGPEN logPen;
    LOGBRUSH logBrush;
    LOGFONTA font;
    EXPECT_EQ(gdi.GetObjectA(pen, bytesOf(logPen)), static_cast<std::int32_t>(sizeof logPen));
    EXPECT_EQ(logPen.lopnStyle, 6U);
    EXPECT_EQ(logPen.lopnWidth.x, 5);
    EXPECT_EQ(logPen.lopnColor, 0x112233U);
    EXPECT_NE(gdi.GetObjectA(odd, bytesOf(logPen)), 0);
    EXPECT_EQ(logPen.lopnStyle, 0U);
    EXPECT_EQ(logPen.lopnWidth.x, 5);
    EXPECT_NE(gdi.GetObjectA(brush, bytesOf(logBrush)), 0);
    EXPECT_EQ(logBrush.lbHatch, 4);
    EXPECT_EQ(gdi.GetObjectA(gdi.GetStockObject(SYSTEM_FONT), bytesOf(font)), 60);
    EXPECT_STREQ(font.lfFaceName.data(), "System");
    std::array<std::byte, 4> little{};
    EXPECT_EQ(gdi.GetObjectA(pen, little), 0);
    EXPECT_EQ(gdi.GetObjectA(0, bytesOf(font)), 0);
    EXPECT_EQ(gdi.CreateBrushIndirect({BS_PATTERN, 0, 99}), 0);
    EXPECT_EQ(gdi.CreateBrushIndirect({BS_HATCHED, 0, 6}), 0);
    EXPECT_EQ(gdi.CreateBrushIndirect({77, 0, 0}), 0);
    EXPECT_EQ(gdi.GetStockObject(9), 0);
    EXPECT_EQ(gdi.GetStockObject(-1), 0);
    for (const Handle object : {pen, odd, brush}) {
        EXPECT_TRUE(gdi.DeleteObject(object));
    }
}

} // namespace

} // namespace mox::test
