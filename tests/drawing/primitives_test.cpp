#include "drawing/drawing_support.h"

#include <tuple>

namespace mox::test {

namespace {

using Rows = std::vector<std::string>;

class PrimitivesTest : public DrawingTest {
protected:
    /// Fails unless a context is as it was when it was made.
    void expectUntouched(Long hdc) {
        auto& gdi32 = machine->gdi32;
        const auto expectStock = [&](std::int32_t index) {
            const platform::Handle stock = gdi32.GetStockObject(index);
            EXPECT_EQ(gdi32.SelectObject(hdc, stock), stock) << index;
        };
        expectStock(platform::BLACK_PEN);
        expectStock(platform::WHITE_BRUSH);
        expectStock(platform::SYSTEM_FONT);
        EXPECT_EQ(gdi32.GetBkColor(hdc), 0xFFFFFFU);
        EXPECT_EQ(gdi32.GetTextColor(hdc), 0U);
        EXPECT_EQ(gdi32.GetBkMode(hdc), platform::OPAQUE);
        EXPECT_EQ(gdi32.GetStretchBltMode(hdc), platform::HALFTONE);
    }
};

TEST_F(PrimitivesTest, keepsItsChildren) {
    EXPECT_EQ(drawing.BitmapFilter().get(), drawing.BitmapFilter().get());
    EXPECT_EQ(drawing.Colors().get(), drawing.Colors().get());
    EXPECT_EQ(drawing.Font().get(), drawing.Font().get());
    EXPECT_EQ(drawing.ScreenShot().get(), drawing.ScreenShot().get());
}

TEST_F(PrimitivesTest, fillsRectangles) {
    const auto target = buffer(6, 4);
    const Long hdc = target.hDC();
    drawing.FillRect2(hdc, 1, 1, 4, 3, 0x0000FF);
    RECT area{-5, 3, 2, 9};
    drawing.FillRect(hdc, area, std::numeric_limits<Long>::min() + 8); // the colour of window text, black
    drawing.FillRect2(hdc, 5, 3, 5, 9, 0x00FF00);
    EXPECT_EQ(rows(hdc, 6, 4, usualLetters), (Rows{"......", ".rrr..", ".rrr..", "##...."}));
    expectUntouched(hdc);
    drawing.FillRect2(0, 0, 0, 5, 5, 0);
}

TEST_F(PrimitivesTest, drawsLinesUpToTheirEnd) {
    struct Row {
        std::tuple<Long, Long, Long, Long, Long> line;
        Rows drawn;
    };
    const Row lines[] = {
        {{0, 1, 5, 1, 1}, {"......", "#####.", "......", "......", "......"}},
        {{5, 1, 0, 1, 1}, {"......", ".#####", "......", "......", "......"}},
        {{1, 0, 1, 9, 1}, {".#....", ".#....", ".#....", ".#....", ".#...."}},
        {{0, 0, 4, 4, 1}, {"#.....", ".#....", "..#...", "...#..", "......"}},
        {{4, 4, 0, 0, 0}, {"......", ".#....", "..#...", "...#..", "....#."}},
        {{2, 2, 2, 2, 1}, {"......", "......", "......", "......", "......"}},
    };
    for (const auto& [line, drawn] : lines) {
        const auto target = buffer(6, 5);
        const auto [x1, y1, x2, y2, width] = line;
        EXPECT_TRUE(static_cast<bool>(drawing.DrawLine(target.hDC(), x1, y1, x2, y2, width)));
        EXPECT_EQ(rows(target.hDC(), 6, 5, usualLetters), drawn) << x1 << ", " << y1 << " to " << x2 << ", " << y2;
        platform::POINT position;
        machine->gdi32.GetCurrentPositionEx(target.hDC(), position);
        EXPECT_EQ(position, (platform::POINT{x2, y2}));
        expectUntouched(target.hDC());
    }
    const auto target = buffer(9, 7);
    EXPECT_TRUE(static_cast<bool>(drawing.DrawLine(target.hDC(), 0, 3, 8, 3, 3, 0x0000FF)));
    EXPECT_EQ(pixel(target.hDC(), 4, 1), 0xFFFFFF);
    EXPECT_EQ(pixel(target.hDC(), 4, 2), 0x0000FF);
    EXPECT_EQ(pixel(target.hDC(), 4, 4), 0x0000FF);
    EXPECT_EQ(pixel(target.hDC(), 4, 5), 0xFFFFFF);
    EXPECT_FALSE(static_cast<bool>(drawing.DrawLine(0, 0, 0, 5, 5)));
}

TEST_F(PrimitivesTest, drawsRectangles) {
    struct Row {
        RECT area;
        Long border;
        bool isFilled;
        bool result;
        Rows drawn;
    };
    const Row rectangles[] = {
        {{1, 1, 6, 5}, 0, false, false, {"........", "........", "........", "........", "........", "........"}},
        {{1, 1, 6, 5}, 0, true, true, {"........", ".ggggg..", ".ggggg..", ".ggggg..", ".ggggg..", "........"}},
        {{1, 1, 6, 5}, -3, true, true, {"........", ".ggggg..", ".ggggg..", ".ggggg..", ".ggggg..", "........"}},
        {{1, 1, 6, 5}, 1, true, true, {"........", ".rrrrr..", ".rgggr..", ".rgggr..", ".rrrrr..", "........"}},
        {{1, 1, 6, 5}, 1, false, true, {"........", ".rrrrr..", ".r...r..", ".r...r..", ".rrrrr..", "........"}},
        {{0, 0, 8, 6}, 2, true, true, {"rrrrrrrr", "rrrrrrrr", "rrggggrr", "rrggggrr", "rrrrrrrr", "rrrrrrrr"}},
    };
    for (const auto& [area, border, isFilled, result, drawn] : rectangles) {
        for (const bool isRecord : {false, true}) {
            const auto target = buffer(8, 6);
            RECT given = area;
            const Boolean answer = isRecord ? drawing.DrawRect(target.hDC(), given, border, 0x0000FF, isFilled, 0x00FF00)
                                            : drawing.DrawRect2(target.hDC(), area.Left, area.Top, area.Right, area.Bottom,
                                                                border, 0x0000FF, isFilled, 0x00FF00);
            EXPECT_EQ(static_cast<bool>(answer), result) << border;
            EXPECT_EQ(rows(target.hDC(), 8, 6, usualLetters), drawn) << border;
            expectUntouched(target.hDC());
        }
    }
}

TEST_F(PrimitivesTest, makesCheckeredBrushes) {
    struct Row {
        Long pattern;
        Long square;
        Long side;
    };
    for (const auto& [pattern, square, side] : {Row{8, 8, 128}, Row{0, 1, 16}, Row{16, 16, 256}, Row{17, 17, 136},
                                                Row{33, 33, 132}, Row{65, 65, 130}, Row{300, 256, 512}}) {
        Long red = 0x0000FF;
        Long blue = 0xFF0000;
        const Long brush = drawing.CreatePatternBrush(red, blue, pattern);
        ASSERT_NE(brush, 0);
        const auto target = buffer(side + 5, square + 2);
        EXPECT_TRUE(machine->user32.FillRect(target.hDC(), {0, 0, side + 5, square + 2}, brush));
        for (const Long x : {0, square - 1, square, 2 * square - 1, side - 1, side, side + 4}) {
            const bool isRed = x / square % 2 == 0;
            EXPECT_EQ(pixel(target.hDC(), x, 0), isRed ? red : blue) << pattern << " at " << x;
            EXPECT_EQ(pixel(target.hDC(), x, square), isRed ? blue : red) << pattern << " at " << x;
        }
        EXPECT_TRUE(machine->gdi32.DeleteObject(brush));
    }
}

TEST(PrimitivesFaultsTest, leaveNothingOpen) {
    sweepFaults([](FaultRun& run) {
        const moxDrawing drawing{server::create<TRL_OBKR_MOX::_moxDrawing>()};
        const auto target = drawing.CreateOffscreenBuffer(8, 8);
        const bool isLine = static_cast<bool>(drawing.DrawLine(target.hDC(), 0, 0, 5, 5));
        const bool isRectangle = static_cast<bool>(drawing.DrawRect2(target.hDC(), 0, 0, 5, 5, 1, 0, True));
        drawing.FillRect2(target.hDC(), 0, 0, 5, 5, 0);
        EXPECT_TRUE(run.faulted() || (isLine && isRectangle));
    });
    sweepFaults([](FaultRun& run) {
        const moxDrawing drawing{server::create<TRL_OBKR_MOX::_moxDrawing>()};
        Long red = 0x0000FF;
        Long blue = 0xFF0000;
        const Long brush = drawing.CreatePatternBrush(red, blue, 100);
        EXPECT_TRUE(run.faulted() || brush != 0);
        if (brush != 0) {
            run.machine()->gdi32.DeleteObject(brush);
        }
    });
}

} // namespace

} // namespace mox::test
