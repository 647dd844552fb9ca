#include "support/faultsweep.h"
#include "support/testmachine.h"

#include "host/graphics/rastercanvas.h"

#include <gtest/gtest.h>

#include <vector>

namespace mox::test {

namespace {

using namespace platform;

/// A surface without pixels, as pages are.
class PageCanvas final : public host::Canvas {
public:
    host::RECT bounds() const override { return {0, 0, 100, 100}; }
    bool fill(const host::Region&, const host::Paint&, const host::Region&) override { return true; }
    bool fill(const host::Path&, host::FillRule, const host::Paint&, const host::Region&) override { return true; }
    bool stroke(const host::Path&, const host::Stroke&, const host::Region&) override { return true; }
    bool copy(const host::ImageCopy& copy, const host::Region&) override {
        last = copy;
        return true;
    }
    bool text(const host::TextRun&, const host::Region&) override { return true; }
    COLORREF pixel(host::POINT) const override { return CLR_INVALID; }
    COLORREF setPixel(host::POINT, COLORREF) override { return CLR_INVALID; }

    host::ImageCopy last;
};

/// A memory context with a bitmap.
class Surface {
public:
    Surface(TestMachine& machine, Handle bitmap) : machine_(machine), bitmap_(bitmap), hdc_(gdi().CreateCompatibleDC(0)) {
        before_ = gdi().SelectObject(hdc_, bitmap_);
    }
    Surface(TestMachine& machine, int cx, int cy, std::uint32_t depth = 32)
        : Surface(machine, machine->gdi32.CreateBitmap(cx, cy, 1, depth, {})) {}
    ~Surface() {
        EXPECT_EQ(gdi().SelectObject(hdc_, before_), bitmap_);
        EXPECT_TRUE(gdi().DeleteObject(bitmap_));
        EXPECT_TRUE(gdi().DeleteDC(hdc_));
    }
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    Handle hdc() const { return hdc_; }
    host::DeviceState& state() { return machine_->graphics.context(hdc_)->state(); }
    host::Bitmap& bitmap() { return *machine_->graphics.bitmap(bitmap_); }
    /// Each pixel of a row gets its number, from `first` on.
    void number(host::Pixel first = 1) {
        for (int y = 0; y < bitmap().height(); ++y) {
            for (int x = 0; x < bitmap().width(); ++x) {
                const host::Pixel pixel = first++;
                bitmap().write(x, y, {&pixel, 1});
            }
        }
    }
    void fill(host::Pixel pixel) {
        const std::vector<host::Pixel> row(static_cast<std::size_t>(bitmap().width()), pixel);
        for (int y = 0; y < bitmap().height(); ++y) {
            bitmap().write(0, y, row);
        }
    }
    std::vector<host::Pixel> row(int y) {
        std::vector<host::Pixel> pixels(static_cast<std::size_t>(bitmap().width()));
        bitmap().read(0, y, pixels);
        return pixels;
    }

private:
    Gdi32& gdi() const { return machine_->gdi32; }

    TestMachine& machine_;
    const Handle bitmap_;
    const Handle hdc_;
    Handle before_ = 0;
};

using Row = std::vector<host::Pixel>;

struct PixelsContextsTest : testing::Test {
    TestMachine machine;
    Gdi32& gdi = machine->gdi32;
    Msimg32& msimg = machine->msimg32;
};

TEST_F(PixelsContextsTest, mirrorsByTheSignsOfTheExtents) {
    Surface from(machine, 4, 1);
    Surface to(machine, 6, 1);
    from.number();
    struct Case {
        int x, cx, xSource, cxSource;
        Row row;
    };
    const Case cases[] = {
        {1, 4, 0, 4, {0, 1, 2, 3, 4, 0}},   {5, -4, 0, 4, {0, 4, 3, 2, 1, 0}}, {1, 4, 4, -4, {0, 4, 3, 2, 1, 0}},
        {5, -4, 4, -4, {0, 1, 2, 3, 4, 0}}, {0, 6, 1, 3, {2, 2, 3, 3, 4, 4}},  {6, -6, 1, 3, {4, 4, 3, 3, 2, 2}},
        {0, 2, 0, 4, {2, 4, 0, 0, 0, 0}},   {0, 0, 0, 4, {0, 0, 0, 0, 0, 0}},  {0, 4, 0, 0, {0, 0, 0, 0, 0, 0}},
    };
    EXPECT_EQ(gdi.SetStretchBltMode(to.hdc(), COLORONCOLOR), BLACKONWHITE);
    for (const Case& expected : cases) {
        to.fill(0);
        EXPECT_TRUE(gdi.StretchBlt(to.hdc(), expected.x, 0, expected.cx, 1, from.hdc(), expected.xSource, 0, expected.cxSource, 1,
                                   SRCCOPY));
        EXPECT_EQ(to.row(0), expected.row) << expected.cx << " from " << expected.cxSource;
    }
    // A plain copy takes both areas to the left.
    to.fill(0);
    EXPECT_TRUE(gdi.BitBlt(to.hdc(), 5, 0, -3, 1, from.hdc(), 4, 0, SRCCOPY));
    EXPECT_EQ(to.row(0), (Row{0, 0, 2, 3, 4, 0}));
}

TEST_F(PixelsContextsTest, copiesInTheUnitsOfEachContext) {
    Surface from(machine, 4, 4);
    Surface to(machine, 8, 8);
    from.number();
    to.state().viewportOrigin = {2, 1};
    to.state().stretchMode = COLORONCOLOR;
    from.state().windowOrigin = {-1, 0};
    EXPECT_TRUE(gdi.BitBlt(to.hdc(), 0, 0, 2, 1, from.hdc(), 0, 0, SRCCOPY));
    EXPECT_EQ(to.row(1), (Row{0, 0, 2, 3, 0, 0, 0, 0}));
    // Twice as large, and upwards.
    to.state().viewportOrigin = {0, 8};
    to.state().viewportExtent = {2, -2};
    EXPECT_TRUE(gdi.BitBlt(to.hdc(), 0, 0, 2, 2, from.hdc(), -1, 0, SRCCOPY));
    EXPECT_EQ(to.row(7), (Row{1, 1, 2, 2, 0, 0, 0, 0}));
    EXPECT_EQ(to.row(4), (Row{5, 5, 6, 6, 0, 0, 0, 0}));
    to.state().clip = host::Region(host::RECT{0, 0, 1, 8});
    EXPECT_TRUE(gdi.BitBlt(to.hdc(), 0, 0, 4, 4, 0, 0, 0, WHITENESS));
    EXPECT_EQ(to.row(7), (Row{0xFFFFFF, 1, 2, 2, 0, 0, 0, 0}));
    // Turned contexts are not copied between.
    from.state().world = {0, 1, -1, 0, 0, 0};
    EXPECT_FALSE(gdi.BitBlt(to.hdc(), 0, 0, 2, 2, from.hdc(), 0, 0, SRCCOPY));
    EXPECT_FALSE(gdi.BitBlt(from.hdc(), 0, 0, 2, 2, to.hdc(), 0, 0, SRCCOPY));
}

TEST_F(PixelsContextsTest, givesMonochromePixelsTheColoursOfTheContexts) {
    Surface color(machine, 4, 1);
    Surface mono(machine, 4, 1, 1);
    const Row pixels{0xFF0000, 0x00FF00, 0x4400FF00, 0xFFFFFF};
    color.bitmap().write(0, 0, pixels);
    gdi.SetBkColor(color.hdc(), 0x00FF00);
    EXPECT_TRUE(gdi.BitBlt(mono.hdc(), 0, 0, 4, 1, color.hdc(), 0, 0, SRCCOPY));
    EXPECT_EQ(mono.row(0), (Row{0, 0xFFFFFF, 0xFFFFFF, 0}));
    gdi.SetTextColor(color.hdc(), 0x000001);
    gdi.SetBkColor(color.hdc(), 0x000002);
    EXPECT_TRUE(gdi.BitBlt(color.hdc(), 0, 0, 4, 1, mono.hdc(), 0, 0, SRCCOPY));
    EXPECT_EQ(color.row(0), (Row{0x10000, 0x20000, 0x20000, 0x10000}));
    // A mask: the ground where it is 1, and black elsewhere; and then the other one.
    Surface inverse(machine, 4, 1, 1);
    EXPECT_TRUE(gdi.BitBlt(inverse.hdc(), 0, 0, 4, 1, mono.hdc(), 0, 0, NOTSRCCOPY));
    EXPECT_EQ(inverse.row(0), (Row{0xFFFFFF, 0, 0, 0xFFFFFF}));
    gdi.SetTextColor(color.hdc(), 0);
    gdi.SetBkColor(color.hdc(), 0xFFFFFF);
    color.bitmap().write(0, 0, pixels);
    EXPECT_TRUE(gdi.BitBlt(color.hdc(), 0, 0, 4, 1, inverse.hdc(), 0, 0, SRCAND));
    EXPECT_EQ(color.row(0), (Row{0xFF0000, 0, 0, 0xFFFFFF}));
}

TEST_F(PixelsContextsTest, usesTheBrushAndItsOrigin) {
    Surface from(machine, 4, 1);
    Surface to(machine, 4, 1);
    from.fill(0x0F0F0F);
    const Handle brush = gdi.CreateSolidBrush(0x0000FF);
    const Handle before = gdi.SelectObject(to.hdc(), brush);
    EXPECT_TRUE(gdi.BitBlt(to.hdc(), 1, 0, 2, 1, from.hdc(), 0, 0, MERGECOPY));
    EXPECT_EQ(to.row(0), (Row{0, 0x0F0000, 0x0F0000, 0}));
    const Handle bitmap = gdi.CreateBitmap(2, 1, 1, 1, std::vector{std::byte{0x40}, std::byte{0}});
    const Handle pattern = gdi.CreateBrushIndirect({BS_PATTERN, 0, bitmap});
    POINT origin;
    EXPECT_TRUE(gdi.SetBrushOrgEx(to.hdc(), 1, 0, origin));
    EXPECT_EQ(gdi.SelectObject(to.hdc(), pattern), brush);
    EXPECT_TRUE(gdi.BitBlt(to.hdc(), 0, 0, 3, 1, 0, 0, 0, PATCOPY));
    EXPECT_EQ(to.row(0), (Row{0xFFFFFF, 0, 0xFFFFFF, 0}));
    EXPECT_EQ(gdi.SelectObject(to.hdc(), before), pattern);
    for (const Handle object : {brush, bitmap, pattern}) {
        EXPECT_TRUE(gdi.DeleteObject(object));
    }
}

TEST_F(PixelsContextsTest, leavesOutOneColour) {
    Surface from(machine, 4, 1);
    Surface to(machine, 8, 1);
    from.bitmap().write(0, 0, Row{0xFF00FF, 0x99FF00FF, 0x123456, 0x77FF00FE});
    to.fill(0xAAAAAA);
    EXPECT_TRUE(msimg.TransparentBlt(to.hdc(), 0, 0, 8, 1, from.hdc(), 0, 0, 4, 1, 0xFF00FF));
    EXPECT_EQ(to.row(0), (Row{0xAAAAAA, 0xAAAAAA, 0xAAAAAA, 0xAAAAAA, 0x123456, 0x123456, 0x77FF00FE, 0x77FF00FE}));
    struct Refused {
        int cx, cy, cxSource, cySource;
    };
    for (const Refused& area : {Refused{-4, 1, 4, 1}, {4, -1, 4, 1}, {4, 1, -4, 1}, {4, 1, 4, -1}}) {
        EXPECT_FALSE(msimg.TransparentBlt(to.hdc(), 0, 0, area.cx, area.cy, from.hdc(), 0, 0, area.cxSource, area.cySource, 0));
        EXPECT_FALSE(msimg.AlphaBlend(to.hdc(), 0, 0, area.cx, area.cy, from.hdc(), 0, 0, area.cxSource, area.cySource, {}));
    }
    EXPECT_FALSE(msimg.TransparentBlt(to.hdc(), 0, 0, 4, 1, 0, 0, 0, 4, 1, 0));
    EXPECT_FALSE(msimg.TransparentBlt(0, 0, 0, 4, 1, from.hdc(), 0, 0, 4, 1, 0));
}

TEST_F(PixelsContextsTest, blendsByConstantAndOwnAlpha) {
    Surface from(machine, 4, 2);
    Surface to(machine, 4, 2);
    struct Case {
        BLENDFUNCTION blend;
        host::Pixel source, target, result;
    };
    const Case cases[] = {
        {{0, 0, 255, 0}, 0x11223344, 0xAABBCCDD, 0x11223344},
        {{0, 0, 0, 0}, 0x11223344, 0xAABBCCDD, 0xAABBCCDD},
        {{0, 0, 127, 0}, 0x00FF00FF, 0x0000FF00, 0x007F807F},
        {{0, 0, 128, 0}, 0x00FFFFFF, 0xFF000000, 0x7F808080},
        {{0, 0, 255, AC_SRC_ALPHA}, 0x80400000, 0x00FFFFFF, 0x80BF7F7F},
        {{0, 0, 128, AC_SRC_ALPHA}, 0xFF800000, 0x00FFFFFF, 0x80BF7F7F},
        {{0, 0, 255, AC_SRC_ALPHA}, 0x00FF0000, 0x00FFFFFF, 0x00FFFFFF}, // more colour than alpha
    };
    for (const Case& expected : cases) {
        from.fill(expected.source);
        to.fill(expected.target);
        EXPECT_TRUE(msimg.AlphaBlend(to.hdc(), 1, 1, 2, 1, from.hdc(), 0, 0, 4, 2, expected.blend));
        EXPECT_EQ(to.row(1), (Row{expected.target, expected.result, expected.result, expected.target}))
            << int{expected.blend.SourceConstantAlpha} << std::hex << ", " << expected.source;
    }
}

TEST_F(PixelsContextsTest, refusesToBlendWhatIsNotThere) {
    Surface from(machine, 4, 2);
    Surface deep(machine, 4, 2, 24);
    Surface to(machine, 4, 2);
    to.fill(7);
    struct Refused {
        int x, y, cx, cy;
    };
    for (const Refused& area :
         {Refused{-1, 0, 4, 2}, {0, -1, 4, 2}, {1, 0, 4, 2}, {0, 1, 4, 2}, {0, 0, 5, 2}, {0, 0, 4, 3}, {0x7FFFFFFF, 0, 4, 2}}) {
        EXPECT_FALSE(msimg.AlphaBlend(to.hdc(), 0, 0, 4, 2, from.hdc(), area.x, area.y, area.cx, area.cy, {})) << area.x;
    }
    for (const BLENDFUNCTION& blend : {BLENDFUNCTION{1, 0, 255, 0}, {0, 1, 255, 0}, {0, 0, 255, 2}}) {
        EXPECT_FALSE(msimg.AlphaBlend(to.hdc(), 0, 0, 4, 2, from.hdc(), 0, 0, 4, 2, blend));
    }
    EXPECT_FALSE(msimg.AlphaBlend(to.hdc(), 0, 0, 4, 2, deep.hdc(), 0, 0, 4, 2, {0, 0, 255, AC_SRC_ALPHA}));
    EXPECT_FALSE(msimg.AlphaBlend(to.hdc(), 0, 0, 2, 2, to.hdc(), 1, 0, 2, 2, {}));
    EXPECT_EQ(to.row(0), Row(4, 7));
    EXPECT_TRUE(msimg.AlphaBlend(to.hdc(), 0, 0, 2, 2, to.hdc(), 2, 0, 2, 2, {}));
    EXPECT_TRUE(msimg.TransparentBlt(to.hdc(), 0, 0, 2, 2, to.hdc(), 1, 0, 2, 2, 0xFFFFFF));
}

TEST_F(PixelsContextsTest, takesNothingFromAContextWithoutPixels) {
    const auto page = std::make_shared<PageCanvas>();
    const Handle hdc = gdi.CreateCompatibleDC(0);
    machine->graphics.context(hdc)->setCanvas(page);
    Surface to(machine, 4, 1);
    EXPECT_FALSE(gdi.BitBlt(to.hdc(), 0, 0, 4, 1, hdc, 0, 0, SRCCOPY));
    EXPECT_FALSE(gdi.StretchBlt(to.hdc(), 0, 0, 4, 1, hdc, 0, 0, 2, 1, SRCCOPY));
    EXPECT_FALSE(msimg.TransparentBlt(to.hdc(), 0, 0, 4, 1, hdc, 0, 0, 4, 1, 0));
    EXPECT_FALSE(msimg.AlphaBlend(to.hdc(), 0, 0, 4, 1, hdc, 0, 0, 4, 1, {}));
    // It is drawn on all the same.
    gdi.SetBkColor(to.hdc(), 0x123456);
    EXPECT_TRUE(gdi.StretchBlt(hdc, 1, 2, 30, 40, to.hdc(), 0, 0, 4, 1, SRCAND));
    EXPECT_EQ(page->last.target, (host::SignedRect{1, 2, 30, 40}));
    EXPECT_EQ(page->last.area, (host::SignedRect{0, 0, 4, 1}));
    EXPECT_EQ(page->last.rop, SRCAND);
    EXPECT_EQ(page->last.sourceBackColor, 0x123456U);
    EXPECT_EQ(page->last.source.get(), &to.bitmap());
    EXPECT_TRUE(gdi.DeleteDC(hdc));
}

TEST(PixelsFaultsTest, leaveNothingOpen) {
    sweepFaults([](FaultRun& run) {
        Gdi32& gdi = run.machine()->gdi32;
        const Handle hdc = gdi.CreateCompatibleDC(0);
        const Handle bitmap = gdi.CreateCompatibleBitmap(hdc, 4, 4);
        BITMAPINFO info;
        info.bmiHeader.biWidth = info.bmiHeader.biHeight = 4;
        info.bmiHeader.biBitCount = 32;
        std::byte* bits = nullptr;
        const Handle section = gdi.CreateDIBSection(hdc, info, DIB_RGB_COLORS, bits);
        EXPECT_EQ(section != 0, bits != nullptr);
        const Handle before = gdi.SelectObject(hdc, section);
        const bool isFilled = gdi.BitBlt(hdc, 0, 0, 4, 4, 0, 0, 0, WHITENESS);
        std::vector<std::byte> got(64);
        const std::int32_t rows = gdi.GetDIBits(hdc, section, 0, 4, got, info, DIB_RGB_COLORS);
        EXPECT_TRUE(run.faulted() || (isFilled && rows == 4 && got[62] == std::byte{0xFF}));
        EXPECT_TRUE(rows == 4 || got == std::vector<std::byte>(64));
        gdi.SelectObject(hdc, before);
        gdi.DeleteDC(hdc);
        gdi.DeleteObject(bitmap);
        gdi.DeleteObject(section);
    });
}

} // namespace

} // namespace mox::test
