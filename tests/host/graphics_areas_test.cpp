#include "graphics_support.h"

#include <array>
#include <limits>

namespace mox::test {

namespace {

using namespace platform;
using host::Bitmap;
using host::BitmapFormat;
using host::Brush;
using host::Pen;
using host::Pixel;
using host::Region;

struct GraphicsAreasTest : testing::Test {
    TestMachine machine;
    Gdi32& gdi = machine->gdi32;
    User32& user = machine->user32;

    void fill(const Surface& surface, const RECT& area, Brush brush) {
        const Handle handle = machine->graphics.add("brush", std::move(brush));
        EXPECT_TRUE(user.FillRect(surface.hdc(), area, handle));
        EXPECT_TRUE(gdi.DeleteObject(handle));
    }
};

constexpr COLORREF red = 0x0000FF;
constexpr COLORREF green = 0x00FF00;

TEST_F(GraphicsAreasTest, drawsRectanglesWithinTheirEdges) {
    const struct {
        const char* what;
        Pen pen;
        bool hasBrush;
        RECT area;
        const char* expected;
    } cases[] = {
        {"thin", {}, true, {1, 1, 7, 5}, "........\n.######.\n.#gggg#.\n.#gggg#.\n.######.\n........\n"},
        {"reversed", {}, true, {7, 5, 1, 1}, "........\n.######.\n.#gggg#.\n.#gggg#.\n.######.\n........\n"},
        {"no brush", {}, false, {1, 1, 7, 5}, "........\n.######.\n.#....#.\n.#....#.\n.######.\n........\n"},
        {"no pen", {.style = PS_NULL}, true, {1, 1, 7, 5}, "........\n.ggggg..\n.ggggg..\n.ggggg..\n........\n........\n"},
        {"neither", {.style = PS_NULL}, false, {1, 1, 7, 5}, "........\n........\n........\n........\n........\n........\n"},
        {"inside",
         {.style = PS_INSIDEFRAME, .width = 2},
         true,
         {0, 0, 8, 6},
         "########\n########\n##gggg##\n##gggg##\n########\n########\n"},
        {"inside, 1",
         {.style = PS_INSIDEFRAME, .width = 1},
         true,
         {1, 1, 7, 5},
         "........\n.######.\n.#gggg#.\n.#gggg#.\n.######.\n........\n"},
        {"all border",
         {.style = PS_INSIDEFRAME, .width = 3},
         true,
         {1, 0, 7, 6},
         ".######.\n.######.\n.######.\n.######.\n.######.\n.######.\n"},
        {"one pixel", {}, true, {3, 3, 4, 4}, "........\n........\n........\n...#....\n........\n........\n"},
        {"empty", {}, true, {3, 3, 3, 5}, "........\n........\n........\n........\n........\n........\n"},
        {"centred",
         {.width = 3, .join = 0x2000},
         true,
         {1, 1, 7, 5},
         "########\n########\n########\n########\n########\n########\n"},
        {"beyond", {}, true, {-3, -3, 4, 3}, "ggg#....\nggg#....\n####....\n........\n........\n........\n"},
    };
    for (const auto& [what, pen, hasBrush, area, expected] : cases) {
        Surface surface(machine.machine(), 8, 6);
        surface.setPen(pen);
        hasBrush ? surface.setBrush({.color = green}) : surface.setNoBrush();
        EXPECT_TRUE(gdi.Rectangle(surface.hdc(), area.left, area.top, area.right, area.bottom));
        EXPECT_EQ(surface.picture(), expected) << what;
    }
}

TEST_F(GraphicsAreasTest, putsWidePensOnTheEdges) {
    for (const int width : {2, 3, 4, 5}) {
        Surface surface(machine.machine(), 9, 9);
        surface.setPen({.width = width, .join = 0x2000});
        surface.setBrush({.color = green});
        EXPECT_TRUE(gdi.Rectangle(surface.hdc(), 2, 2, 8, 8));
        // Nothing of the ground shows between the border and the inside, and the border is as wide as the pen.
        for (int y = 0; y < 9; ++y) {
            for (int x = 0; x < 9; ++x) {
                const auto isNear = [&](int place) { return 2 * place >= 4 - width && 2 * place < 4 + width; };
                const auto isFar = [&](int place) { return 2 * place >= 14 - width && 2 * place < 14 + width; };
                const bool isOut = 2 * std::min(x, y) < 4 - width || 2 * std::max(x, y) >= 14 + width;
                const bool isBorder = !isOut && (isNear(x) || isNear(y) || isFar(x) || isFar(y));
                EXPECT_EQ(surface.context().pixel({x, y}), isOut      ? 0xFFFFFF
                                                           : isBorder ? 0
                                                                      : green)
                    << width << ": " << x << "," << y;
            }
        }
    }
}

TEST_F(GraphicsAreasTest, fillsRectanglesAsCopiesOfTheBrush) {
    Surface surface(machine.machine(), 6, 4);
    surface.state().rop2 = R2_XORPEN;
    fill(surface, {1, 1, 5, 3}, {.color = green});
    EXPECT_EQ(surface.picture(), picture("......\n.gggg.\n.gggg.\n......"));
    for (const RECT& empty : {RECT{5, 1, 1, 3}, RECT{1, 3, 5, 1}, RECT{1, 1, 1, 3}}) {
        fill(surface, empty, {.color = red});
    }
    fill(surface, {-100, -100, 100, 100}, {.style = BS_NULL});
    EXPECT_EQ(surface.picture(), picture("......\n.gggg.\n.gggg.\n......"));
    EXPECT_TRUE(user.FillRect(surface.hdc(), {0, 0, 6, 1}, 9)); // one more than the index of a colour
    EXPECT_EQ(surface.picture(), picture("######\n.gggg.\n.gggg.\n......"));
    EXPECT_FALSE(user.FillRect(surface.hdc(), {0, 0, 6, 1}, 0));
    EXPECT_FALSE(user.FillRect(surface.hdc(), {0, 0, 6, 1}, gdi.GetStockObject(BLACK_PEN)));
    EXPECT_FALSE(user.FillRect(0, {0, 0, 6, 1}, gdi.GetStockObject(BLACK_BRUSH)));
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    fill(surface, {least, least, most, most}, {.color = red});
    EXPECT_EQ(surface.picture(), picture("rrrrrr\nrrrrrr\nrrrrrr\nrrrrrr"));
}

TEST_F(GraphicsAreasTest, setsAndGetsPixels) {
    Surface surface(machine.machine(), 3, 2);
    EXPECT_EQ(gdi.SetPixel(surface.hdc(), 1, 1, red), red);
    EXPECT_EQ(surface.picture(), picture("...\n.r."));
    EXPECT_EQ(gdi.GetPixel(surface.hdc(), 1, 1), red);
    surface.state().clip = Region(RECT{0, 0, 1, 2});
    for (const POINT outside : {POINT{1, 1}, POINT{-1, 0}, POINT{0, 2}, POINT{3, 0}}) {
        EXPECT_EQ(gdi.GetPixel(surface.hdc(), outside.x, outside.y), CLR_INVALID);
        EXPECT_EQ(gdi.SetPixel(surface.hdc(), outside.x, outside.y, green), CLR_INVALID);
    }
    EXPECT_EQ(gdi.GetPixel(surface.hdc(), 0, 1), 0xFFFFFFU);
    EXPECT_EQ(surface.picture(), picture("...\n.r."));
}

TEST_F(GraphicsAreasTest, staysWithinTheClipping) {
    Surface surface(machine.machine(), 8, 4);
    Region clip(RECT{0, 0, 2, 4});
    clip.unite(Region(RECT{3, 1, 5, 2}));
    clip.unite(Region(RECT{6, 0, 20, 1}));
    surface.state().clip = clip;
    fill(surface, {-5, -5, 50, 50}, {.color = red});
    EXPECT_EQ(surface.picture(), picture("rr....rr\nrr.rr...\nrr......\nrr......"));
    surface.clear();
    surface.setNoBrush();
    EXPECT_TRUE(gdi.Rectangle(surface.hdc(), 1, 1, 7, 3));
    EXPECT_EQ(surface.picture(), picture("........\n.#.##...\n.#......\n........"));
    surface.clear();
    surface.setPen({.style = PS_NULL});
    surface.setBrush({.color = green});
    EXPECT_TRUE(surface.context().polygon(std::array<POINT, 4>{POINT{1, 0}, POINT{8, 0}, POINT{8, 3}, POINT{1, 3}}));
    EXPECT_EQ(surface.picture(), picture(".g....gg\n.g.gg...\n.g......\n........"));
    surface.state().clip = Region();
    fill(surface, {0, 0, 8, 4}, {.color = red});
    EXPECT_EQ(surface.picture(), picture(".g....gg\n.g.gg...\n.g......\n........"));
}

TEST_F(GraphicsAreasTest, mixesAsEachRasterModeSays) {
    // What becomes of a bit, by pen and target.
    const std::array<std::uint32_t (*)(std::uint32_t, std::uint32_t), 16> modes{
        [](std::uint32_t, std::uint32_t) { return 0U; },         [](std::uint32_t p, std::uint32_t d) { return ~(p | d); },
        [](std::uint32_t p, std::uint32_t d) { return d & ~p; }, [](std::uint32_t p, std::uint32_t) { return ~p; },
        [](std::uint32_t p, std::uint32_t d) { return p & ~d; }, [](std::uint32_t, std::uint32_t d) { return ~d; },
        [](std::uint32_t p, std::uint32_t d) { return p ^ d; },  [](std::uint32_t p, std::uint32_t d) { return ~(p & d); },
        [](std::uint32_t p, std::uint32_t d) { return p & d; },  [](std::uint32_t p, std::uint32_t d) { return ~(p ^ d); },
        [](std::uint32_t, std::uint32_t d) { return d; },        [](std::uint32_t p, std::uint32_t d) { return d | ~p; },
        [](std::uint32_t p, std::uint32_t) { return p; },        [](std::uint32_t p, std::uint32_t d) { return p | ~d; },
        [](std::uint32_t p, std::uint32_t d) { return p | d; },  [](std::uint32_t, std::uint32_t) { return ~0U; },
    };
    constexpr COLORREF ground = 0x3355F0;
    constexpr COLORREF color = 0x0F5AA5;
    const auto pattern = Bitmap::create(3, 1);
    pattern->write(0, 0, std::array<Pixel, 3>{host::toPixel(color), host::toPixel(color), host::toPixel(color)});
    for (std::int32_t rop2 = R2_BLACK; rop2 <= R2_WHITE; ++rop2) {
        const COLORREF expected = modes[static_cast<std::size_t>(rop2 - 1)](color, ground) & 0xFFFFFF;
        for (const int depth : {24, 32}) {
            Surface surface(machine.machine(), {.width = 20, .height = 8, .bitsPerPixel = depth});
            surface.clear(ground);
            EXPECT_NE(gdi.SetROP2(surface.hdc(), rop2), 0);
            surface.setPen({.color = color});
            surface.setNoBrush();
            EXPECT_TRUE(gdi.Rectangle(surface.hdc(), 0, 0, 12, 4)); // each pixel once
            EXPECT_TRUE(gdi.LineTo(surface.hdc(), 20, 8));
            surface.setPen({.style = PS_NULL});
            surface.setBrush({.color = color});
            EXPECT_TRUE(gdi.Rectangle(surface.hdc(), 13, 0, 16, 4));
            surface.setBrush({.style = BS_PATTERN, .pattern = pattern});
            EXPECT_TRUE(gdi.Rectangle(surface.hdc(), 0, 5, 9, 8));
            for (const POINT place :
                 {POINT{11, 0}, POINT{0, 3}, POINT{11, 3}, POINT{10, 4}, POINT{13, 0}, POINT{14, 2}, POINT{7, 6}}) {
                EXPECT_EQ(gdi.GetPixel(surface.hdc(), place.x, place.y), expected) << rop2 << " at " << place.x << "," << place.y;
            }
            EXPECT_EQ(gdi.GetPixel(surface.hdc(), 15, 0), ground);
        }
    }
}

TEST_F(GraphicsAreasTest, worksOnTheNumbersOfEachDepth) {
    const std::vector<Pixel> table{0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00};
    const BitmapFormat formats[] = {
        {.bitsPerPixel = 1, .isSection = true, .colors = {0x000000, 0xFFFFFF}},
        {.bitsPerPixel = 1},
        {.bitsPerPixel = 4, .isSection = true, .colors = table},
        {.bitsPerPixel = 8, .isSection = true, .isTopDown = false, .colors = table},
        {.bitsPerPixel = 16, .masks = host::masks565},
        {.bitsPerPixel = 24},
        {.bitsPerPixel = 32, .isSection = true, .isTopDown = false},
        {.bitsPerPixel = 32, .isSection = true, .masks = {0xFF, 0xFF00, 0xFF0000}},
    };
    for (BitmapFormat format : formats) {
        format.width = 11;
        format.height = 4;
        Surface surface(machine.machine(), format);
        EXPECT_TRUE(gdi.Rectangle(surface.hdc(), 1, 0, 10, 4));
        EXPECT_EQ(surface.picture(), picture(".#########.\n.#.......#.\n.#.......#.\n.#########.")) << format.bitsPerPixel;
        surface.state().rop2 = R2_NOT;
        surface.setPen({.style = PS_NULL});
        EXPECT_TRUE(gdi.Rectangle(surface.hdc(), 0, 0, 12, 5));
        EXPECT_TRUE(gdi.Rectangle(surface.hdc(), 0, 0, 12, 5));
        EXPECT_EQ(surface.picture(), picture(".#########.\n.#.......#.\n.#.......#.\n.#########.")) << format.bitsPerPixel;
    }
    // A table's numbers are mixed, not its colours.
    Surface indexed(machine.machine(), {.width = 2, .height = 1, .bitsPerPixel = 8, .isSection = true, .colors = table});
    indexed.bitmap().row(0)[0] = std::byte{1};
    indexed.state().rop2 = R2_XORPEN;
    indexed.setPen({.color = red});
    EXPECT_TRUE(gdi.LineTo(indexed.hdc(), 1, 0));
    EXPECT_EQ(indexed.bitmap().row(0)[0], std::byte{1 ^ 2});
    Surface plain(machine.machine(), 9, 1);
    for (int x = 0; x < 9; ++x) {
        plain.bitmap().pixels(0)[x] = 0xAB000000;
    }
    fill(plain, {0, 0, 9, 1}, {.color = red});
    EXPECT_EQ(plain.bitmap().pixels(0)[8], 0xABFF0000);
}

TEST_F(GraphicsAreasTest, hatchesFromTheOriginOn) {
    const char* const expected[] = {
        "........ ........ ........ ######## ........ ........ ........ ........",
        "....#... ....#... ....#... ....#... ....#... ....#... ....#... ....#...",
        "#....... .#...... ..#..... ...#.... ....#... .....#.. ......#. .......#",
        ".......# ......#. .....#.. ....#... ...#.... ..#..... .#...... #.......",
        "....#... ....#... ....#... ######## ....#... ....#... ....#... ....#...",
        "#......# .#....#. ..#..#.. ...##... ...##... ..#..#.. .#....#. #......#",
    };
    for (std::int32_t hatch = 0; hatch < 6; ++hatch) {
        std::string rows = expected[hatch];
        std::ranges::replace(rows, ' ', '\n');
        rows += '\n';
        for (const bool isTransparent : {false, true}) {
            Surface surface(machine.machine(), 8, 8);
            surface.clear(isTransparent ? 0xFFFFFF : red);
            surface.state().bkMode = isTransparent ? TRANSPARENT : OPAQUE;
            fill(surface, {0, 0, 8, 8}, {.style = BS_HATCHED, .hatch = hatch});
            EXPECT_EQ(surface.picture(), rows) << hatch;
        }
        // The same, moved: nine to the right and one up is one to the right and seven down.
        Surface moved(machine.machine(), 17, 15);
        POINT before;
        EXPECT_TRUE(gdi.SetBrushOrgEx(moved.hdc(), 9, -1, before));
        fill(moved, {0, 0, 17, 15}, {.style = BS_HATCHED, .hatch = hatch});
        for (int y = 0; y < 8; ++y) {
            for (int x = 0; x < 8; ++x) {
                EXPECT_EQ(moved.context().pixel({x + 1, y + 7}) == 0, rows[static_cast<std::size_t>(9 * y + x)] == '#') << hatch;
            }
        }
    }
}

TEST_F(GraphicsAreasTest, repeatsPatternsFromTheOriginOn) {
    const auto colors = Bitmap::create(3, 2);
    colors->write(0, 0, std::array<Pixel, 3>{0xFF0000, 0x00FF00, 0xFFFFFF});
    colors->write(0, 1, std::array<Pixel, 3>{0x000000, 0xFFFFFF, 0x0000FF});
    Surface surface(machine.machine(), 8, 5);
    fill(surface, {0, 0, 8, 5}, {.style = BS_PATTERN, .pattern = colors});
    EXPECT_EQ(surface.picture(), picture("rg.rg.rg\n#.b#.b#.\nrg.rg.rg\n#.b#.b#.\nrg.rg.rg"));
    surface.clear();
    surface.state().brushOrigin = {-2, 3};
    fill(surface, {1, 1, 7, 4}, {.style = BS_PATTERN, .pattern = colors});
    EXPECT_EQ(surface.picture(), picture("........\n.rg.rg..\n.#.b#.b.\n.rg.rg..\n........"));
    const auto bits = Bitmap::create({.width = 2, .height = 2, .bitsPerPixel = 1});
    bits->write(0, 0, std::array<Pixel, 2>{0, 0xFFFFFF});
    bits->write(0, 1, std::array<Pixel, 2>{0xFFFFFF, 0});
    for (const int depth : {32, 24}) {
        Surface target(machine.machine(), {.width = 5, .height = 2, .bitsPerPixel = depth});
        target.state().textColor = red;
        target.state().bkColor = green;
        fill(target, {0, 0, 5, 2}, {.style = BS_PATTERN, .pattern = bits});
        EXPECT_EQ(target.picture(), picture("rgrgr\ngrgrg"));
    }
    // Wider than any part that is done at once.
    const auto wide = Bitmap::create(300, 1);
    wide->pixels(0)[299] = 0xFFFFFF;
    Surface row(machine.machine(), 600, 1);
    fill(row, {0, 0, 600, 1}, {.style = BS_PATTERN, .pattern = wide});
    for (int x = 0; x < 600; ++x) {
        EXPECT_EQ(row.context().pixel({x, 0}) != 0, x % 300 == 299) << x;
    }
}

} // namespace

} // namespace mox::test
