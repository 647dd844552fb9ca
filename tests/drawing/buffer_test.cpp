#include "drawing/drawing_support.h"

namespace mox::test {

namespace {

class BufferTest : public DrawingTest {};

TEST_F(BufferTest, isEmptyAtFirst) {
    const auto buffer = moxOffscreenBuffer{server::create<TRL_OBKR_MOX::_moxOffscreenBuffer>()};
    EXPECT_EQ(buffer.CX(), 16);
    EXPECT_EQ(buffer.CY(), 16);
    EXPECT_EQ(buffer.BackColor(), 0xFFFFFF);
    EXPECT_EQ(buffer.hDC(), 0);
    EXPECT_EQ(buffer.hBmp(), 0);
    buffer.Cls();
    EXPECT_FALSE(buffer.CreateOlePicture());
    Long zero = 0;
    Long size = 4;
    buffer.Render(zero, zero, zero, size, size);
}

TEST_F(BufferTest, hasItsColorEverywhere) {
    const auto buffer = this->buffer(100, 50, 0x0000FF);
    EXPECT_EQ(buffer.CX(), 100);
    EXPECT_EQ(buffer.CY(), 50);
    EXPECT_EQ(rows(buffer.hDC(), 100, 50, usualLetters), std::vector<std::string>(50, std::string(100, 'r')));
    EXPECT_EQ(machine->gdi32.GetStretchBltMode(buffer.hDC()), platform::HALFTONE);
    buffer.put_BackColor(0x00FF00);
    EXPECT_EQ(pixel(buffer.hDC(), 99, 49), 0x0000FF);
    buffer.Cls();
    EXPECT_EQ(pixel(buffer.hDC(), 99, 49), 0x00FF00);
    buffer.put_BackColor(std::numeric_limits<Long>::min() + 8);
    buffer.Cls();
    EXPECT_EQ(pixel(buffer.hDC(), 0, 0), static_cast<Long>(machine->user32.GetSysColor(8)));
}

TEST_F(BufferTest, losesItsContentWithEachInit) {
    const auto buffer = this->buffer(8, 8, 0x0000FF);
    const Long hdc = buffer.hDC();
    EXPECT_TRUE(static_cast<bool>(buffer.Init(4, 6)));
    EXPECT_NE(buffer.hDC(), hdc);
    EXPECT_EQ(buffer.CY(), 6);
    EXPECT_EQ(buffer.BackColor(), 0xFFFFFF);
    for (const auto& [cx, cy] : {std::pair{-1, 4}, std::pair{2147483647, 2147483647}}) {
        EXPECT_FALSE(static_cast<bool>(buffer.Init(cx, cy, 0x123456)));
        EXPECT_EQ(buffer.hDC(), 0);
        EXPECT_EQ(buffer.hBmp(), 0);
        EXPECT_EQ(buffer.CX(), 4);
        EXPECT_EQ(buffer.BackColor(), 0xFFFFFF);
    }
    EXPECT_TRUE(static_cast<bool>(buffer.Init(3, 3)));
}

TEST_F(BufferTest, rendersAsItIsOrStretched) {
    const auto source = buffer(4, 4, 0xFFFFFF);
    drawing.FillRect2(source.hDC(), 0, 0, 2, 2, 0x0000FF);
    const auto target = buffer(6, 6, 0);
    auto& gdi32 = machine->gdi32;
    gdi32.SetStretchBltMode(target.hDC(), platform::COLORONCOLOR);
    gdi32.StretchBlt.reset();
    Long hdc = target.hDC();
    Long x = 1;
    Long y = 2;
    Long cx = 3;
    Long cy = 2;
    Long zero = 0;
    Long cxSource = 0;
    Long cySource = 0;
    source.Render(hdc, x, y, cx, cy, zero, zero, cxSource, cySource);
    EXPECT_EQ(cxSource, 3);
    EXPECT_EQ(cySource, 2);
    EXPECT_EQ(gdi32.StretchBlt.calls(), 0U);
    EXPECT_EQ(rows(hdc, 6, 6, usualLetters),
              (std::vector<std::string>{"######", "######", "#rr.##", "#rr.##", "######", "######"}));

    x = 0;
    y = 0;
    cx = 4;
    cy = 6;
    cxSource = 4;
    cySource = 3;
    source.Render(hdc, x, y, cx, cy, zero, zero, cxSource, cySource);
    EXPECT_EQ(gdi32.StretchBlt.calls(), 1U);
    EXPECT_EQ(gdi32.GetStretchBltMode(hdc), platform::COLORONCOLOR);
    EXPECT_EQ(pixel(hdc, 0, 0), 0x0000FF);
    EXPECT_EQ(pixel(hdc, 3, 0), 0xFFFFFF);
    EXPECT_EQ(pixel(hdc, 0, 5), 0xFFFFFF);
}

TEST_F(BufferTest, givesPicturesOfItsParts) {
    const auto source = buffer(4, 3, 0xFFFFFF);
    drawing.FillRect2(source.hDC(), 1, 1, 3, 3, 0xFF0000);
    Long x = 1;
    Long zero = 0;
    Long cx = 0;
    Long cy = 0;
    const StdPicture whole = source.CreateOlePicture(zero, zero, cx, cy);
    EXPECT_EQ(cx, 4);
    EXPECT_EQ(cy, 3);
    EXPECT_EQ(whole.Type(), 1);
    EXPECT_EQ(drawing.PictureGetSize(whole), (Size{4, 3}));
    cx = 2;
    cy = 2;
    const StdPicture part = source.CreateOlePicture(x, zero, cx, cy);
    const auto target = buffer(5, 4, 0);
    EXPECT_TRUE(static_cast<bool>(drawing.DrawPicture(part, target.hDC(), 1, 1)));
    EXPECT_EQ(rows(target.hDC(), 5, 4, usualLetters), (std::vector<std::string>{"#####", "#..##", "#bb##", "#####"}));
}

TEST(BufferFaultsTest, leaveNothingOpen) {
    sweepFaults([](FaultRun& run) {
        const moxOffscreenBuffer buffer{server::create<TRL_OBKR_MOX::_moxOffscreenBuffer>()};
        const bool isReady = static_cast<bool>(buffer.Init(8, 8, 0x0000FF));
        EXPECT_EQ(isReady, buffer.hDC() != 0);
        EXPECT_EQ(isReady, buffer.hBmp() != 0);
        const StdPicture picture = buffer.CreateOlePicture();
        Long hdc = buffer.hDC();
        Long zero = 0;
        Long size = 4;
        Long half = 2;
        buffer.Render(hdc, zero, zero, size, size, zero, zero, half, half);
        if (!run.faulted()) {
            EXPECT_TRUE(isReady);
            EXPECT_TRUE(static_cast<bool>(picture));
        }
    });
}

} // namespace

} // namespace mox::test
