#include "icons_support.h"

#include "host/desktop/desktop.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace mox::test {

namespace {

using namespace platform;

constexpr host::Pixel white = 0xFFFFFF;
constexpr host::Pixel red = 0xFF0000;
constexpr host::Pixel green = 0x00FF00;
constexpr host::Pixel blue = 0x0000FF;

/// A memory context on a bitmap.
class Surface {
public:
    Surface(TestMachine& machine, host::BitmapFormat format, host::Pixel ground)
        : machine_(machine), hdc_(machine->gdi32.CreateCompatibleDC(0)),
          handle_(addBitmap(machine, format, Pixels(static_cast<std::size_t>(format.width * format.height), ground))),
          first_(machine->gdi32.SelectObject(hdc_, handle_)) {}
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;
    ~Surface() {
        machine_->gdi32.SelectObject(hdc_, first_);
        EXPECT_TRUE(machine_->gdi32.DeleteObject(handle_));
        EXPECT_TRUE(machine_->gdi32.DeleteDC(hdc_));
    }

    Handle hdc() const { return hdc_; }
    host::DeviceState& state() const { return machine_->graphics.context(hdc_)->state(); }
    /// Colours alone.
    Pixels pixels() const {
        Pixels pixels = pixelsOf(*machine_->graphics.bitmap(handle_));
        std::ranges::for_each(pixels, [](host::Pixel& pixel) { pixel &= white; });
        return pixels;
    }

private:
    TestMachine& machine_;
    const Handle hdc_;
    const Handle handle_;
    const Handle first_;
};

/// Alpha, and the colours multiplied by it, of what an icon of `width` pixels shows between two places in x and y, in whole
/// pixels of the icon: the mean, by area.
std::array<double, 4> meanOf(const Pixels& icon, int width, double left, double top, double right, double bottom) {
    std::array<double, 4> sums{};
    for (std::size_t i = 0; i < icon.size(); ++i) {
        const int x = static_cast<int>(i) % width;
        const int y = static_cast<int>(i) / width;
        const double part = std::max(0.0, std::min(right, x + 1.0) - std::max(left, x + 0.0)) *
                            std::max(0.0, std::min(bottom, y + 1.0) - std::max(top, y + 0.0)) / ((right - left) * (bottom - top));
        const double alpha = (icon[i] >> 24) / 255.0;
        for (std::size_t channel = 0; channel < 3; ++channel) {
            sums[channel] += (icon[i] >> (8 * channel) & 0xFF) * alpha * part;
        }
        sums[3] += alpha * part;
    }
    return sums;
}

/// Places and values of one expectation: each channel may be off by so much from rounding.
void expectNear(host::Pixel found, const std::array<double, 4>& light, host::Pixel ground, double tolerance, int place) {
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const double expected = light[channel] + (ground >> (8 * channel) & 0xFF) * (1 - light[3]);
        EXPECT_NEAR(found >> (8 * channel) & 0xFF, expected, tolerance) << "pixel " << place << ", channel " << channel;
    }
}

struct IconDrawingTest : testing::Test {
    TestMachine machine;
    User32& user = machine->user32;
    const Pixels mask{0, white, 0, white, white, 0};
    const Pixels color{red, 0, white, white, green, blue};

    Handle makeMasked() { return makeIcon(machine, 3, mask, color); }
};

TEST_F(IconDrawingTest, drawsMaskAndImageOnEveryDepth) {
    const std::vector<host::Pixel> colors{0, white, red, green, blue, 0xFF00FF, 0xFFFF00, 0x00FFFF};
    const host::BitmapFormat formats[] = {
        {.width = 5, .height = 4},
        {.width = 5, .height = 4, .bitsPerPixel = 24},
        {.width = 5, .height = 4, .bitsPerPixel = 16, .isSection = true, .isTopDown = false},
        {.width = 5, .height = 4, .bitsPerPixel = 8, .isSection = true, .colors = colors},
        {.width = 5, .height = 4, .bitsPerPixel = 1},
    };
    const Handle icon = makeMasked();
    for (const auto& format : formats) {
        for (const host::Pixel ground : {green, host::Pixel{0xFF00FF}, host::Pixel{0}, white}) {
            const bool isMonochrome = format.bitsPerPixel == 1;
            const host::Pixel kept = isMonochrome ? (ground == white ? white : 0) : ground;
            for (const std::uint32_t flags : {DI_NORMAL, DI_MASK, DI_IMAGE}) {
                const Surface surface(machine, format, kept);
                EXPECT_TRUE(user.DrawIconEx(surface.hdc(), 1, 1, icon, 0, 0, 0, 0, flags));
                Pixels expected(20, kept);
                for (std::size_t i = 0; i < mask.size(); ++i) {
                    // Among colours, only white is 1 in a monochrome bitmap.
                    const host::Pixel shown = isMonochrome && color[i] != white ? 0 : color[i];
                    expected[(i / 3 + 1) * 5 + i % 3 + 1] = flags == DI_NORMAL ? (kept & mask[i]) ^ shown
                                                            : flags == DI_MASK ? mask[i]
                                                                               : shown;
                }
                EXPECT_EQ(surface.pixels(), expected) << format.bitsPerPixel << " bits, ground " << ground << ", flags " << flags;
            }
        }
    }
    EXPECT_TRUE(user.DestroyIcon(icon));
}

TEST_F(IconDrawingTest, drawsBlackAndWhiteIcons) {
    const Handle icon = makeIcon(machine, 4, {0, 0, white, white, 0, white, 0, white}, {});
    const Surface surface(machine, {.width = 4, .height = 1}, 0x123456);
    surface.state().textColor = 0x778899; // which must not show
    EXPECT_TRUE(user.DrawIconEx(surface.hdc(), 0, 0, icon, 0, 0, 0, 0, DI_NORMAL));
    EXPECT_EQ(surface.pixels(), (Pixels{0, white, 0x123456, 0xEDCBA9}));
    EXPECT_TRUE(user.DestroyIcon(icon));
}

TEST_F(IconDrawingTest, stretchesMasksPixelByPixel) {
    const Handle icon = makeMasked();
    struct {
        SIZE size;
        POINT place;
        Pixels expected;
    } const cases[] = {
        {{6, 2}, {0, 0}, {red, red, 0x10, 0x10, white, white, 0xFFFFEF, 0xFFFFEF, 0x00FF10, 0x00FF10, blue, blue}},
        {{3, 1}, {0, 0}, {}},
        {{-3, 2}, {3, 0}, {white, 0x10, red, 0x10, 0x10, 0x10, blue, 0x00FF10, 0xFFFFEF, 0x10, 0x10, 0x10}},
        {{3, -2}, {0, 2}, {0xFFFFEF, 0x00FF10, blue, 0x10, 0x10, 0x10, red, 0x10, white, 0x10, 0x10, 0x10}},
    };
    for (const auto& [size, place, expected] : cases) {
        const Surface surface(machine, {.width = 6, .height = 2}, 0x10);
        EXPECT_TRUE(user.DrawIconEx(surface.hdc(), place.x, place.y, icon, size.cx, size.cy, 0, 0, DI_NORMAL));
        if (!expected.empty()) {
            EXPECT_EQ(surface.pixels(), expected) << size.cx << " x " << size.cy;
        }
    }
    EXPECT_TRUE(user.DestroyIcon(icon));
}

TEST_F(IconDrawingTest, mixesAlphaInEverySizeSmoothly) {
    const Pixels image{0xFFFF0000, 0x0000FF00, 0x80FFFFFF, 0x40102030, 0x01FF00FF, 0xFF0000FF,
                       0xC0808080, 0x00FFFFFF, 0xFE010203, 0xFF445566, 0x7F7F7F7F, 0x20FFEE00};
    const Handle icon = makeIcon(machine, 4, Pixels(12), image);
    constexpr host::Pixel ground = 0x3399CC;
    for (const SIZE size : {SIZE{4, 3}, SIZE{2, 1}, SIZE{3, 2}, SIZE{1, 1}, SIZE{-3, 2}, SIZE{2, -3}}) {
        const Surface surface(machine, {.width = 4, .height = 3}, ground);
        const int width = std::abs(size.cx);
        const int height = std::abs(size.cy);
        EXPECT_TRUE(user.DrawIconEx(surface.hdc(), size.cx < 0 ? width : 0, size.cy < 0 ? height : 0, icon, size.cx, size.cy, 0,
                                    0, DI_NORMAL));
        const Pixels found = surface.pixels();
        for (int place = 0; place < 12; ++place) {
            const int x = size.cx < 0 ? width - 1 - place % 4 : place % 4;
            const int y = size.cy < 0 ? height - 1 - place / 4 : place / 4;
            const bool isInside = place % 4 < width && place / 4 < height;
            const auto light =
                isInside ? meanOf(image, 4, x * 4.0 / width, y * 3.0 / height, (x + 1) * 4.0 / width, (y + 1) * 3.0 / height)
                         : std::array<double, 4>{};
            expectNear(found[static_cast<std::size_t>(place)], light, ground, 1.01, place);
        }
    }
    EXPECT_TRUE(user.DestroyIcon(icon));
}

TEST_F(IconDrawingTest, enlargesAlphaByMixingNeighbors) {
    const Handle icon = makeIcon(machine, 2, Pixels(2), {0xFF000000, 0xFFC80000});
    const Surface surface(machine, {.width = 8, .height = 1}, green);
    EXPECT_TRUE(user.DrawIconEx(surface.hdc(), 0, 0, icon, 8, 1, 0, 0, DI_NORMAL));
    // Centres of the icon's pixels are at 2 and 6; 200 falls into eighths between them.
    EXPECT_EQ(surface.pixels(), (Pixels{0, 0, 0x190000, 0x4B0000, 0x7D0000, 0xAF0000, 0xC80000, 0xC80000}));
    EXPECT_TRUE(user.DestroyIcon(icon));
}

TEST_F(IconDrawingTest, followsMappingAndClipping) {
    const Handle icon = makeIcon(machine, 1, {0}, {0xFFFF0000});
    const Handle masked = makeIcon(machine, 1, {0}, {red});
    for (const Handle drawn : {icon, masked}) {
        const Surface surface(machine, {.width = 6, .height = 2}, 0);
        surface.state().windowExtent = {1, 1};
        surface.state().viewportExtent = {2, 1};
        surface.state().viewportOrigin = {1, -1};
        surface.state().clip = host::Region(RECT{0, 0, 3, 2});
        EXPECT_TRUE(user.DrawIconEx(surface.hdc(), 0, 2, drawn, 2, 1, 0, 0, DI_NORMAL)); // device pixels 1 to 4 of row 1
        EXPECT_EQ(surface.pixels(), (Pixels{0, 0, 0, 0, 0, 0, 0, red, red, 0, 0, 0}));
    }
    // Only what is seen is made.
    const Surface surface(machine, {.width = 2, .height = 1}, 0);
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    EXPECT_TRUE(user.DrawIconEx(surface.hdc(), -100000000, -100000000, icon, 200000000, 200000000, 0, 0, DI_NORMAL));
    EXPECT_EQ(surface.pixels(), (Pixels{red, red}));
    EXPECT_TRUE(user.DrawIconEx(surface.hdc(), most, most, icon, most, most, 0, 0, DI_NORMAL));
    EXPECT_TRUE(user.DestroyIcon(icon));
    EXPECT_TRUE(user.DestroyIcon(masked));
}

TEST_F(IconDrawingTest, takesSizesOfTheIconAndOfTheSystem) {
    const Handle icon = makeIcon(machine, 2, {0, 0}, {0xFFFF0000, 0xFFFF0000});
    struct {
        SIZE size;
        std::uint32_t flags;
        SIZE drawn;
    } const cases[] = {{{0, 0}, DI_NORMAL, {2, 1}},
                       {{5, 0}, DI_NORMAL, {5, 1}},
                       {{0, 0}, DI_NORMAL | DI_DEFAULTSIZE, {32, 32}},
                       {{0, 3}, DI_NORMAL | DI_DEFAULTSIZE, {32, 3}}};
    for (const auto& [size, flags, drawn] : cases) {
        const Surface surface(machine, {.width = 40, .height = 40}, 0);
        EXPECT_TRUE(user.DrawIconEx(surface.hdc(), 0, 0, icon, size.cx, size.cy, 0, 0, flags));
        const Pixels found = surface.pixels();
        EXPECT_EQ(std::ranges::count(found, red), drawn.cx * drawn.cy) << size.cx << " x " << size.cy;
        EXPECT_EQ(found[static_cast<std::size_t>((drawn.cy - 1) * 40 + drawn.cx - 1)], red);
    }
    EXPECT_TRUE(user.DestroyIcon(icon));
}

TEST_F(IconDrawingTest, drawsOnABrushFirstAndLeavesTheContextAsItWas) {
    const Handle icon = makeMasked();
    const Handle brush = machine->gdi32.CreateSolidBrush(0x800000); // blue
    const Surface surface(machine, {.width = 4, .height = 2}, green);
    surface.state().stretchMode = HALFTONE;
    surface.state().textColor = 0x10203;
    surface.state().bkColor = 0x40506;
    EXPECT_TRUE(user.DrawIconEx(surface.hdc(), 0, 0, icon, 0, 0, 0, brush, DI_NORMAL));
    EXPECT_EQ(surface.pixels(), (Pixels{red, 0x80, white, green, 0xFFFF7F, 0x00FF80, blue, green}));
    EXPECT_EQ(surface.state().stretchMode, HALFTONE);
    EXPECT_EQ(surface.state().textColor, 0x10203U);
    EXPECT_EQ(surface.state().bkColor, 0x40506U);
    EXPECT_FALSE(user.DrawIconEx(surface.hdc(), 0, 0, icon, 0, 0, 0, 0, 0)) << "nothing to draw";
    EXPECT_TRUE(machine->gdi32.DeleteObject(brush));
    EXPECT_TRUE(user.DestroyIcon(icon));
}

/// Takes copies down instead of drawing them.
struct PageCanvas : host::Canvas {
    std::vector<host::ImageCopy> copies;

    RECT bounds() const override { return {0, 0, 1000, 1000}; }
    bool fill(const host::Region&, const host::Paint&, const host::Region&) override { return true; }
    bool fill(const host::Path&, host::FillRule, const host::Paint&, const host::Region&) override { return true; }
    bool stroke(const host::Path&, const host::Stroke&, const host::Region&) override { return true; }
    bool text(const host::TextRun&, const host::Region&) override { return true; }
    COLORREF pixel(POINT) const override { return CLR_INVALID; }
    COLORREF setPixel(POINT, COLORREF) override { return CLR_INVALID; }
    bool copy(const host::ImageCopy& copy, const host::Region&) override {
        copies.push_back(copy);
        return true;
    }
};

TEST_F(IconDrawingTest, givesPagesTheIconAsItIs) {
    const auto page = std::make_shared<PageCanvas>();
    const Handle hdc = machine->graphics.open(std::make_shared<host::DeviceContext>(
        machine->graphics, host::DeviceContext::Kind::printer, machine->desktop.device(), page));
    const Handle icon = makeIcon(machine, 2, {0, 0}, {0xFFFF0000, 0x800000FF});
    EXPECT_TRUE(user.DrawIconEx(hdc, 10, 20, icon, 300, 400, 0, 0, DI_NORMAL));
    EXPECT_TRUE(user.DrawIconEx(hdc, 310, 20, icon, -300, 400, 0, 0, DI_NORMAL));
    ASSERT_EQ(page->copies.size(), 2U);
    for (const host::ImageCopy& copy : page->copies) {
        EXPECT_EQ(copy.kind, host::ImageCopy::Kind::blend);
        EXPECT_EQ(copy.target, (host::SignedRect{10, 20, 300, 400}));
        EXPECT_EQ(copy.blend.AlphaFormat, AC_SRC_ALPHA);
    }
    EXPECT_EQ(pixelsOf(*page->copies[0].source), (Pixels{0xFFFF0000, 0x80000080}));
    EXPECT_EQ(pixelsOf(*page->copies[1].source), (Pixels{0x80000080, 0xFFFF0000}));
    EXPECT_TRUE(user.DestroyIcon(icon));
    const Handle masked = makeMasked();
    page->copies.clear();
    EXPECT_TRUE(user.DrawIconEx(hdc, 10, 20, masked, 300, 400, 0, 0, DI_NORMAL));
    ASSERT_EQ(page->copies.size(), 2U);
    EXPECT_EQ(page->copies[0].rop, SRCAND);
    EXPECT_EQ(page->copies[1].rop, SRCINVERT);
    EXPECT_TRUE(user.DestroyIcon(masked));
    EXPECT_TRUE(machine->gdi32.DeleteDC(hdc));
}

} // namespace

} // namespace mox::test
