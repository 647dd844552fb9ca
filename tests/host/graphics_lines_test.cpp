#include "host/graphics/linesteps.h"
#include "host/graphics/strokeoutline.h"

#include "graphics_support.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <span>

namespace mox::test {

namespace {

using namespace platform;
using host::Pen;
using host::Region;

struct GraphicsLinesTest : testing::Test {
    TestMachine machine;

    /// One line from point to point.
    std::string drawn(int width, int height, const Pen& pen, POINT from, POINT to) {
        Surface surface(machine.machine(), width, height);
        surface.setPen(pen);
        draw(surface, from, to);
        return surface.picture();
    }
    void draw(const Surface& surface, POINT from, POINT to) {
        POINT before;
        EXPECT_TRUE(machine->gdi32.MoveToEx(surface.hdc(), from.x, from.y, before));
        EXPECT_TRUE(machine->gdi32.LineTo(surface.hdc(), to.x, to.y));
    }
};

TEST_F(GraphicsLinesTest, leavesOutTheLastPointOfThinLines) {
    const struct {
        POINT from;
        POINT to;
        const char* expected;
    } cases[] = {
        {{1, 1}, {5, 1}, ".......\n.####..\n.......\n.......\n"},
        {{5, 1}, {1, 1}, ".......\n..####.\n.......\n.......\n"},
        {{2, 0}, {2, 3}, "..#....\n..#....\n..#....\n.......\n"},
        {{2, 3}, {2, 0}, ".......\n..#....\n..#....\n..#....\n"},
        {{0, 0}, {3, 3}, "#......\n.#.....\n..#....\n.......\n"},
        // Of two pixels that are equally near the upper or left one.
        {{0, 0}, {6, 3}, "##.....\n..##...\n....##.\n.......\n"},
        {{6, 3}, {0, 0}, ".#.....\n..##...\n....##.\n......#\n"},
        {{0, 3}, {6, 0}, ".....#.\n...##..\n.##....\n#......\n"},
        {{0, 0}, {1, 3}, "#......\n#......\n.#.....\n.......\n"},
        {{3, 2}, {3, 2}, ".......\n.......\n.......\n.......\n"},
    };
    for (const auto& [from, to, expected] : cases) {
        EXPECT_EQ(drawn(7, 4, {}, from, to), expected) << from.x << "," << from.y << " to " << to.x << "," << to.y;
    }
}

TEST_F(GraphicsLinesTest, keepsThePositionWhereverNothingIsDrawn) {
    Surface surface(machine.machine(), 4, 4);
    POINT position{7, 7};
    EXPECT_TRUE(machine->gdi32.MoveToEx(surface.hdc(), 3, 2, position));
    EXPECT_EQ(position, POINT());
    surface.setPen({.style = PS_NULL});
    EXPECT_TRUE(machine->gdi32.LineTo(surface.hdc(), 0, 1));
    EXPECT_TRUE(machine->gdi32.GetCurrentPositionEx(surface.hdc(), position));
    EXPECT_EQ(position, (POINT{0, 1}));
    EXPECT_EQ(surface.picture(), picture("....\n....\n....\n...."));
    for (const Handle none : {0, -1, machine->gdi32.GetStockObject(BLACK_PEN)}) {
        EXPECT_FALSE(machine->gdi32.MoveToEx(none, 0, 0, position));
        EXPECT_FALSE(machine->gdi32.LineTo(none, 0, 0));
        EXPECT_FALSE(machine->gdi32.GetCurrentPositionEx(none, position));
        EXPECT_FALSE(machine->gdi32.Rectangle(none, 0, 0, 1, 1));
        EXPECT_EQ(machine->gdi32.GetPixel(none, 0, 0), CLR_INVALID);
        EXPECT_EQ(machine->gdi32.SetPixel(none, 0, 0, 0), CLR_INVALID);
    }
}

TEST_F(GraphicsLinesTest, drawsDashesOfThinPensAlone) {
    const struct {
        std::int32_t style;
        const char* expected;
    } cases[] = {
        {PS_SOLID, "##################################################"},
        {PS_DASH, "##################......##################......##"},
        {PS_DOT, "###...###...###...###...###...###...###...###...##"},
        {PS_DASHDOT, "#########......###......#########......###......##"},
        {PS_DASHDOTDOT, "#########...###...###...#########...###...###...##"},
        {PS_NULL, ".................................................."},
        {PS_INSIDEFRAME, "##################################################"},
    };
    for (const auto& [style, expected] : cases) {
        for (const int width : {0, 1}) {
            Surface surface(machine.machine(), 50, 1);
            surface.setPen({.style = style, .width = width});
            surface.state().bkMode = TRANSPARENT;
            draw(surface, {0, 0}, {50, 0});
            EXPECT_EQ(surface.picture(), picture(expected)) << style;
            surface.clear();
            surface.state().bkMode = OPAQUE;
            surface.state().bkColor = pictureColors.at('g');
            draw(surface, {0, 0}, {50, 0});
            std::string opaque = picture(expected);
            std::ranges::replace(opaque, '.', style == PS_NULL ? '.' : 'g');
            EXPECT_EQ(surface.picture(), opaque) << style;
        }
        Surface wide(machine.machine(), 50, 5);
        wide.setPen({.style = style, .width = 3});
        draw(wide, {-5, 2}, {60, 2});
        const std::string row(50, style == PS_NULL ? '.' : '#');
        const std::string ground(50, '.');
        EXPECT_EQ(wide.picture(), picture(ground + "\n" + row + "\n" + row + "\n" + row + "\n" + ground)) << style;
    }
}

TEST_F(GraphicsLinesTest, goesOnWithDashesAcrossClippedParts) {
    Surface surface(machine.machine(), 20, 1);
    surface.setPen({.style = PS_DOT});
    surface.state().bkMode = TRANSPARENT;
    draw(surface, {-4, 0}, {100000, 0});
    EXPECT_EQ(surface.picture(), picture("..###...###...###..."));
    surface.clear();
    Region clip(RECT{1, 0, 4, 1});
    clip.unite(Region(RECT{8, 0, 10, 1}));
    surface.state().clip = clip;
    draw(surface, {-4, 0}, {100000, 0});
    EXPECT_EQ(surface.picture(), picture("..##....##.........."));
}

TEST_F(GraphicsLinesTest, drawsTheSamePixelsInPartsAndWhole) {
    std::mt19937 random(7);
    const auto coordinate = [&](int least, int most) { return std::uniform_int_distribution(least, most)(random); };
    for (int round = 0; round < 300; ++round) {
        const int reach = round % 3 == 0 ? 1 << 28 : 40;
        const POINT from{coordinate(-reach, reach), coordinate(-reach, reach)};
        const POINT to{coordinate(-reach, reach), coordinate(-reach, reach)};
        Surface whole(machine.machine(), 30, 30);
        draw(whole, from, to);
        Surface parts(machine.machine(), 30, 30);
        Region clip;
        for (int i = 0; i < 9; ++i) {
            clip.unite(Region(RECT{i % 3 * 10, i / 3 * 10, i % 3 * 10 + 9, i / 3 * 10 + 10}));
        }
        parts.state().clip = clip;
        draw(parts, from, to);
        std::string expected = whole.picture();
        for (std::size_t place = 0; place < expected.size(); ++place) {
            if (const std::size_t x = place % 31; x < 30 && x % 10 == 9) {
                expected[place] = '.';
            }
        }
        EXPECT_EQ(parts.picture(), expected) << from.x << "," << from.y << " to " << to.x << "," << to.y;
        // Back again it covers the same but for the ends.
        Surface back(machine.machine(), 30, 30);
        draw(back, to, from);
        for (int y = 0; y < 30; ++y) {
            for (int x = 0; x < 30; ++x) {
                if (const POINT place{x, y}; place != from && place != to) {
                    EXPECT_EQ(back.context().pixel(place), whole.context().pixel(place));
                }
            }
        }
    }
}

TEST_F(GraphicsLinesTest, centresWidePens) {
    const struct {
        int width;
        std::uint32_t endCap;
        POINT from;
        POINT to;
        const char* expected;
    } cases[] = {
        {3, host::endCapFlat, {2, 2}, {6, 2}, "........\n..####..\n..####..\n..####..\n........\n"},
        {2, host::endCapFlat, {2, 2}, {6, 2}, "........\n..####..\n..####..\n........\n........\n"},
        {3, host::endCapSquare, {3, 2}, {5, 2}, "........\n..#####.\n..#####.\n..#####.\n........\n"},
        {3, host::endCapRound, {3, 2}, {5, 2}, "........\n..#####.\n..#####.\n..#####.\n........\n"},
        {3, host::endCapFlat, {5, 0}, {5, 4}, "....###.\n....###.\n....###.\n....###.\n........\n"},
        {4, host::endCapFlat, {5, 0}, {5, 9}, "...####.\n...####.\n...####.\n...####.\n...####.\n"},
        {5, host::endCapRound, {3, 2}, {3, 2}, "..###...\n.#####..\n.#####..\n.#####..\n..###...\n"},
        {3, host::endCapSquare, {3, 2}, {3, 2}, "........\n..###...\n..###...\n..###...\n........\n"},
        {3, host::endCapFlat, {3, 2}, {3, 2}, "........\n........\n........\n........\n........\n"},
    };
    for (const auto& [width, endCap, from, to, expected] : cases) {
        EXPECT_EQ(drawn(8, 5, {.width = width, .endCap = endCap}, from, to), expected) << width << ", " << endCap;
    }
}

TEST_F(GraphicsLinesTest, coversWhatIsWithinHalfTheWidth) {
    std::mt19937 random(11);
    const auto number = [&](int least, int most) { return std::uniform_int_distribution(least, most)(random); };
    for (int round = 0; round < 100; ++round) {
        const int width = number(2, 14);
        const POINT points[] = {{number(0, 40), number(0, 40)}, {number(0, 40), number(0, 40)}, {number(0, 40), number(0, 40)}};
        Surface surface(machine.machine(), 40, 40);
        surface.setPen({.width = width});
        EXPECT_TRUE(surface.context().polyline(points));
        const auto distance = [&](int x, int y, POINT a, POINT b) {
            const double dx = b.x - a.x;
            const double dy = b.y - a.y;
            const double square = dx * dx + dy * dy;
            const double along = square == 0 ? 0 : std::clamp(((x - a.x) * dx + (y - a.y) * dy) / square, 0.0, 1.0);
            return std::hypot(x - a.x - along * dx, y - a.y - along * dy);
        };
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 40; ++x) {
                const double nearest = std::min(distance(x, y, points[0], points[1]), distance(x, y, points[1], points[2]));
                if (std::abs(nearest - width / 2.0) > 0.04) {
                    EXPECT_EQ(surface.context().pixel({x, y}) == 0, nearest < width / 2.0) << width << " at " << x << "," << y;
                }
            }
        }
    }
}

TEST_F(GraphicsLinesTest, joinsWideLines) {
    const POINT corner[] = {{1, 8}, {8, 8}, {8, 1}};
    const POINT sharp[] = {{1, 6}, {7, 6}, {1, 5}};
    const struct {
        std::uint32_t join;
        std::span<const POINT> points;
        POINT place;
        bool isCovered;
    } cases[] = {
        {host::joinMiter, corner, {10, 10}, true},  {host::joinBevel, corner, {10, 10}, false},
        {host::joinRound, corner, {10, 10}, false}, {host::joinRound, corner, {9, 9}, true},
        {host::joinBevel, corner, {9, 9}, true},    {host::joinRound, corner, {10, 9}, true},
        {host::joinBevel, corner, {10, 9}, false},  {host::joinMiter, sharp, {11, 6}, false}, // beyond the limit
    };
    for (const auto& [join, points, place, isCovered] : cases) {
        Surface surface(machine.machine(), 16, 16);
        surface.setPen({.width = 5, .endCap = host::endCapFlat, .join = join});
        EXPECT_TRUE(surface.context().polyline(points));
        EXPECT_EQ(surface.context().pixel(place) == 0, isCovered) << join << " at " << place.x << "," << place.y;
    }
    Surface unlimited(machine.machine(), 60, 16);
    unlimited.setPen({.width = 5, .endCap = host::endCapFlat, .join = host::joinMiter});
    unlimited.state().miterLimit = 100;
    EXPECT_TRUE(unlimited.context().polyline(sharp));
    EXPECT_EQ(unlimited.context().pixel({30, 8}), 0U);
}

TEST_F(GraphicsLinesTest, survivesAnyCoordinates) {
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    for (const int width : {1, 2, 999, most}) {
        for (const POINT from : {POINT{least, least}, POINT{most, least}, POINT{least, most}, POINT{0, 0}}) {
            Surface surface(machine.machine(), 8, 8);
            surface.setNoBrush();
            surface.setPen({.style = width == 1 ? PS_DASHDOT : PS_SOLID, .width = width});
            draw(surface, from, {most, most});
            draw(surface, {most, 3}, {least, 3});
            EXPECT_TRUE(machine->gdi32.Rectangle(surface.hdc(), from.x, from.y, most, 5));
            EXPECT_TRUE(surface.context().ellipse({least, from.y, most, most}));
            EXPECT_TRUE(surface.context().roundRect({from.x, least, most, most}, {most, least}));
            EXPECT_NE(surface.picture().find('#'), std::string::npos);
        }
    }
}

} // namespace

} // namespace mox::test
