#include "graphics_support.h"

#include <array>
#include <cmath>
#include <numbers>
#include <random>

namespace mox::test {

namespace {

using namespace platform;
using host::FillRule;
using host::Path;
using host::Transform;

constexpr COLORREF red = 0x0000FF;
constexpr COLORREF green = 0x00FF00;

struct GraphicsFiguresTest : testing::Test {
    TestMachine machine;
};

TEST_F(GraphicsFiguresTest, fillsPolygonsByTheirRule) {
    // A square in a square, both in the same direction.
    const std::array<POINT, 8> points{POINT{0, 0}, POINT{7, 0}, POINT{7, 7}, POINT{0, 7},
                                      POINT{2, 2}, POINT{5, 2}, POINT{5, 5}, POINT{2, 5}};
    const std::array<std::uint32_t, 2> counts{4, 4};
    for (const FillRule rule : {FillRule::alternate, FillRule::winding}) {
        Surface surface(machine.machine(), 8, 8);
        surface.state().fillRule = rule;
        surface.setPen({.style = PS_NULL});
        surface.setBrush({.color = green});
        EXPECT_TRUE(surface.context().polyPolygon(points, counts));
        EXPECT_EQ(surface.picture(),
                  rule == FillRule::alternate
                      ? picture("ggggggg.\nggggggg.\ngg...gg.\ngg...gg.\ngg...gg.\nggggggg.\nggggggg.\n........")
                      : picture("ggggggg.\nggggggg.\nggggggg.\nggggggg.\nggggggg.\nggggggg.\nggggggg.\n........"));
    }
    Surface surface(machine.machine(), 4, 4);
    EXPECT_FALSE(surface.context().polyPolygon(points, {}));
    EXPECT_FALSE(surface.context().polyPolygon(points, std::array<std::uint32_t, 1>{1}));
    EXPECT_FALSE(surface.context().polyPolygon(points, std::array<std::uint32_t, 2>{4, 5}));
    EXPECT_FALSE(surface.context().polyline(std::span(points).first(1)));
    EXPECT_FALSE(surface.context().polyBezier(std::span(points).first(5)));
    EXPECT_EQ(surface.picture(), picture("....\n....\n....\n...."));
}

TEST_F(GraphicsFiguresTest, leavesNoGapBetweenAreaAndOutline) {
    Surface surface(machine.machine(), 9, 6);
    surface.setBrush({.color = green});
    EXPECT_TRUE(surface.context().polygon(std::array<POINT, 3>{POINT{0, 0}, POINT{8, 0}, POINT{0, 4}}));
    EXPECT_EQ(surface.picture(), picture("#########\n#gggg##..\n#gg##....\n###......\n#........\n........."));
    surface.clear();
    EXPECT_TRUE(surface.context().polyline(std::array<POINT, 3>{POINT{0, 0}, POINT{4, 4}, POINT{8, 0}}));
    EXPECT_EQ(surface.picture(), picture("#........\n.#.....#.\n..#...#..\n...#.#...\n....#....\n........."));
}

TEST_F(GraphicsFiguresTest, coversThePixelsWhoseCentresAreInside) {
    std::mt19937 random(3);
    const auto number = [&] { return std::uniform_int_distribution(-10, 50)(random); };
    for (int round = 0; round < 60; ++round) {
        std::array<POINT, 7> points;
        for (POINT& point : points) {
            point = {number(), number()};
        }
        for (const FillRule rule : {FillRule::alternate, FillRule::winding}) {
            Surface surface(machine.machine(), 40, 40);
            surface.state().fillRule = rule;
            surface.setPen({.style = PS_NULL});
            surface.setBrush({.color = 0});
            EXPECT_TRUE(surface.context().polygon(points));
            for (int y = 0; y < 40; ++y) {
                for (int x = 0; x < 40; ++x) {
                    int winding = 0;
                    bool isOnEdge = false;
                    for (std::size_t i = 0; i < points.size(); ++i) {
                        const POINT a = points[i];
                        const POINT b = points[(i + 1) % points.size()];
                        const int side = (b.x - a.x) * (y - a.y) - (x - a.x) * (b.y - a.y);
                        isOnEdge = isOnEdge || side == 0;
                        if (a.y <= y && b.y > y && side < 0) {
                            ++winding;
                        } else if (b.y <= y && a.y > y && side > 0) {
                            --winding;
                        }
                    }
                    if (!isOnEdge) {
                        const bool isInside = rule == FillRule::winding ? winding != 0 : winding % 2 != 0;
                        EXPECT_EQ(surface.context().pixel({x, y}) == 0, isInside) << round << ": " << x << "," << y;
                    }
                }
            }
        }
    }
}

TEST_F(GraphicsFiguresTest, drawsRoundShapesWithinTheirBoxes) {
    Surface surface(machine.machine(), 9, 7);
    surface.setBrush({.color = green});
    EXPECT_TRUE(surface.context().ellipse({0, 0, 9, 7}));
    EXPECT_EQ(surface.picture(), picture("..#####..\n.#ggggg#.\n#ggggggg#\n#ggggggg#\n#ggggggg#\n.#ggggg#.\n..#####.."));
    surface.clear();
    EXPECT_TRUE(surface.context().roundRect({8, 6, 0, 0}, {4, 4}));
    EXPECT_EQ(surface.picture(), picture(".######..\n#gggggg#.\n#gggggg#.\n#gggggg#.\n#gggggg#.\n.######..\n........."));
    surface.clear();
    EXPECT_TRUE(surface.context().ellipse({2, 2, 2, 5}));
    EXPECT_EQ(surface.picture(), picture(".........\n.........\n.........\n.........\n.........\n.........\n........."));
    // A frame inside keeps out of the pixels around.
    Surface framed(machine.machine(), 24, 24);
    framed.setPen({.style = PS_INSIDEFRAME, .width = 4, .color = red});
    framed.setBrush({.color = green});
    EXPECT_TRUE(framed.context().ellipse({2, 2, 22, 22}));
    for (int y = 0; y < 24; ++y) {
        for (int x = 0; x < 24; ++x) {
            const double distance = std::hypot(x + 0.5 - 12, y + 0.5 - 12);
            if (distance > 10.6) {
                EXPECT_EQ(framed.context().pixel({x, y}), 0xFFFFFFU) << x << "," << y;
            } else if (distance < 5.4) {
                EXPECT_EQ(framed.context().pixel({x, y}), green) << x << "," << y;
            } else if (distance > 6.6 && distance < 9.4) {
                EXPECT_EQ(framed.context().pixel({x, y}), red) << x << "," << y;
            }
        }
    }
}

TEST_F(GraphicsFiguresTest, drawsCurvesThroughTheirEnds) {
    Surface surface(machine.machine(), 30, 30);
    EXPECT_TRUE(surface.context().polyBezier(std::array<POINT, 7>{POINT{2, 2}, POINT{2, 20}, POINT{20, 2}, POINT{20, 20},
                                                                  POINT{20, 25}, POINT{25, 25}, POINT{29, 25}}));
    EXPECT_EQ(surface.context().pixel({2, 2}), 0U);
    EXPECT_EQ(surface.context().pixel({11, 11}), 0U); // the middle of the first one
    EXPECT_EQ(surface.context().pixel({20, 20}), 0U);
    EXPECT_EQ(surface.context().pixel({28, 25}), 0U);
    EXPECT_EQ(surface.context().pixel({29, 25}), 0xFFFFFFU);
}

TEST_F(GraphicsFiguresTest, followsMappingsAndTransformations) {
    Surface surface(machine.machine(), 12, 8);
    surface.setBrush({.color = green});
    surface.state().viewportOrigin = {1, 7};
    surface.state().viewportExtent = {2, -2};
    EXPECT_TRUE(machine->gdi32.Rectangle(surface.hdc(), 0, 0, 4, 3)); // twice as large, upwards
    EXPECT_EQ(surface.picture(), picture("............\n.########...\n.#gggggg#...\n.#gggggg#...\n.#gggggg#...\n.#gggggg#...\n"
                                         ".########...\n............"));
    EXPECT_EQ(machine->gdi32.GetPixel(surface.hdc(), 1, 1), green);
    EXPECT_EQ(machine->gdi32.SetPixel(surface.hdc(), 2, 2, red), red);
    EXPECT_EQ(surface.context().canvas().pixel({5, 3}), red);
    surface.clear();
    surface.setPen({.width = 1});
    POINT before;
    EXPECT_TRUE(machine->gdi32.MoveToEx(surface.hdc(), 0, 2, before));
    EXPECT_TRUE(machine->gdi32.LineTo(surface.hdc(), 5, 2)); // as wide as a unit is
    EXPECT_EQ(surface.picture().substr(std::size_t{2} * 13, 13), ".##########.\n");
    // By a quarter around a point, which keeps the pixels of a rectangle.
    Surface turned(machine.machine(), 12, 8);
    turned.setPen({.style = PS_NULL});
    turned.state().world = {0, 1, -1, 0, 8, 1};
    EXPECT_TRUE(machine->user32.FillRect(turned.hdc(), {0, 0, 5, 3}, machine->gdi32.GetStockObject(BLACK_BRUSH)));
    EXPECT_EQ(turned.picture(), picture("............\n.....###....\n.....###....\n.....###....\n.....###....\n.....###....\n"
                                        "............\n............"));
    // By an eighth it is a square on its tip.
    Surface tip(machine.machine(), 40, 40);
    const double part = std::numbers::sqrt2 / 2;
    tip.state().world = Transform{part, part, -part, part, 20, 5};
    tip.setBrush({.color = green});
    EXPECT_TRUE(machine->gdi32.Rectangle(tip.hdc(), 0, 0, 20, 20));
    EXPECT_EQ(tip.context().canvas().pixel({20, 19}), green);
    EXPECT_EQ(tip.context().canvas().pixel({8, 19}), green);
    EXPECT_EQ(tip.context().canvas().pixel({8, 12}), 0xFFFFFFU);
    EXPECT_EQ(tip.context().canvas().pixel({20, 5}), 0U);
    EXPECT_TRUE(tip.context().ellipse({0, 0, 20, 20}));
}

TEST_F(GraphicsFiguresTest, survivesPathsThatAreNoPaths) {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    constexpr double endless = std::numeric_limits<double>::infinity();
    for (const int width : {1, 7}) {
        for (const host::PathPoint& odd : {host::PathPoint{none, 3}, {endless, none}, {1e300, -1e300}, {-endless, 2}}) {
            Surface surface(machine.machine(), 8, 8);
            surface.setPen({.width = width});
            surface.setBrush({.color = green});
            Path path;
            path.close();
            path.lineTo(odd);
            path.lineTo({4, 4});
            path.close();
            path.close();
            path.moveTo(odd);
            path.curveTo({1, 1}, odd, {7, 7});
            EXPECT_TRUE(surface.context().drawPath(path, true, true));
            EXPECT_NE(surface.picture().find('#'), std::string::npos);
        }
    }
}

} // namespace

} // namespace mox::test
