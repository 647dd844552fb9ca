#include "values/values_support.h"

#include <cmath>
#include <random>

namespace mox::test {

namespace {

constexpr Double pi15 = 3.14159265358979;

class Rotation : public Values {
protected:
    moxVarMath object = vars.vMath();
};

TEST_F(Rotation, TablesRunBackwards) {
    for (const int degree : {0, 1, 45, 89, 90, 91, 180, 270, 359, 360, 720, -1, -90, -360, 32767, -32768}) {
        const int index = ((degree % 360) + 360) % 360;
        const auto argument = static_cast<Integer>(degree);
        expectBoth<&moxVarMath::Cosinus>(object, u"Cosinus", std::cos((360 - index) * pi15 / 180), argument);
        expectBoth<&moxVarMath::Sinus>(object, u"Sinus", std::sin((360 - index) * pi15 / 180), argument);
        const int tenths = ((degree % 3600) + 3600) % 3600;
        expectBoth<&moxVarMath::CosinusTenths>(object, u"CosinusTenths", std::cos((3600 - tenths) * (pi15 / 10) / 180), argument);
        expectBoth<&moxVarMath::SinusTenths>(object, u"SinusTenths", std::sin((3600 - tenths) * (pi15 / 10) / 180), argument);
    }
    EXPECT_EQ(object.Cosinus(0), 1);
    EXPECT_EQ(object.Sinus(90), -1);
    EXPECT_EQ(object.Sinus(270), 1);
    EXPECT_EQ(object.Sinus(-90), 1);
    EXPECT_NE(object.Cosinus(90), 0);
    EXPECT_NEAR(object.Cosinus(90), 0, 1e-14);
    EXPECT_NE(object.Sinus(0), 0);
    EXPECT_EQ(object.Sinus(720), object.Sinus(0));
}

TEST_F(Rotation, PointsTurnCounterClockwiseOnTheScreen) {
    struct Row {
        POINTAPI point;
        Single x, y;
        Integer degree;
        POINTAPI result;
    };
    const Row rows[] = {
        {{10, 0}, 0, 0, 90, {0, -10}},   {{10, 0}, 0, 0, -90, {0, 10}},    {{10, 0}, 0, 0, 180, {-10, 0}},
        {{10, 0}, 0, 0, 360, {10, 0}},   {{20, 10}, 10, 10, 90, {10, 0}},  {{7, 7}, 7, 7, 33, {7, 7}},
        {{100, 0}, 0, 0, 45, {70, -70}}, {{-100, 0}, 0, 0, 45, {-70, 70}}, {{1, 1}, 0.5f, 0.5f, 180, {0, 0}},
    };
    for (const Row& row : rows) {
        POINTAPI point = row.point;
        object.RotatePoint(point, row.x, row.y, row.degree);
        EXPECT_EQ(point, row.result) << row.point.X << "," << row.point.Y << " by " << row.degree << " gives " << point.X << ","
                                     << point.Y;
    }
    POINTAPI tenth{100, 0};
    object.RotatePointTenthsDegree(tenth, 0, 0, 450);
    EXPECT_EQ(tenth, (POINTAPI{71, -71})) << "tenths of a degree round, whole degrees cut";
}

TEST_F(Rotation, RoundingAndCuttingAgreeWithAModel) {
    std::mt19937 random(7);
    std::uniform_int_distribution<Long> coordinate(-3000, 3000);
    std::uniform_int_distribution<int> angle(-32768, 32767);
    for (int i = 0; i < 2000; ++i) {
        const POINTAPI start{coordinate(random), coordinate(random)};
        const auto x = static_cast<Single>(coordinate(random)) / 2;
        const auto y = static_cast<Single>(coordinate(random)) / 2;
        const auto degree = static_cast<Integer>(angle(random));
        const auto model = [&](int turn, Double unit) {
            const int index = ((degree % turn) + turn) % turn;
            const Double c = std::cos((turn - index) * unit / 180);
            const Double s = std::sin((turn - index) * unit / 180);
            const auto dx = static_cast<Single>(start.X - static_cast<Double>(x));
            const auto dy = static_cast<Single>(start.Y - static_cast<Double>(y));
            return std::pair{static_cast<Single>(dx * c - dy * s) + x, static_cast<Single>(dy * c + dx * s) + y};
        };
        POINTAPI point = start;
        object.RotatePoint(point, x, y, degree);
        const auto [wholeX, wholeY] = model(360, pi15);
        ASSERT_EQ(point, (POINTAPI{static_cast<Long>(wholeX), static_cast<Long>(wholeY)})) << i;
        point = start;
        object.RotatePointTenthsDegree(point, x, y, degree);
        const auto [tenthX, tenthY] = model(3600, pi15 / 10);
        ASSERT_EQ(point, (POINTAPI{static_cast<Long>(std::nearbyint(tenthX)), static_cast<Long>(std::nearbyint(tenthY))})) << i;
    }
}

TEST_F(Rotation, AnOverflowLeavesThePoint) {
    POINTAPI point{2147483647, 2147483647};
    object.RotatePoint(point, -2e9f, 0, 0);
    EXPECT_EQ(point, (POINTAPI{2147483647, 2147483647}));
    object.RotatePointTenthsDegree(point, 3e38f, -3e38f, 5);
    EXPECT_EQ(point, (POINTAPI{2147483647, 2147483647}));
}

TEST_F(Rotation, RectanglesGiveFourCornersAndTheirBounds) {
    struct Row {
        RECT rect;
        Integer degree;
        std::array<POINTAPI, 4> corners;
        RECT bounds;
    };
    const Row rows[] = {
        {{0, 0, 10, 20}, 0, {{{0, 0}, {10, 0}, {10, 20}, {0, 20}}}, {0, 0, 10, 20}},
        {{0, 0, 10, 20}, 180, {{{10, 20}, {0, 20}, {0, 0}, {10, 0}}}, {0, 0, 10, 20}},
        {{0, 0, 20, 10}, 90, {{{5, 15}, {5, -5}, {15, -5}, {15, 15}}}, {5, -5, 15, 15}},
        {{3, 3, 3, 3}, 45, {{{3, 3}, {3, 3}, {3, 3}, {3, 3}}}, {3, 3, 3, 3}},
    };
    for (const Row& row : rows) {
        RECT rect = row.rect;
        Array<POINTAPI> corners(5, 6); // new bounds are given
        RECT bounds;
        object.RotateRect(rect, row.degree, corners, bounds);
        EXPECT_EQ(rect, row.rect);
        ASSERT_EQ(corners.lower(), 0);
        ASSERT_EQ(corners.upper(), 3);
        EXPECT_TRUE(std::ranges::equal(corners, row.corners)) << row.degree;
        EXPECT_EQ(bounds, row.bounds) << row.degree;
        object.RotateRectTenthsDegree(rect, static_cast<Integer>(row.degree * 10), corners, bounds);
        EXPECT_TRUE(std::ranges::equal(corners, row.corners)) << row.degree;
        EXPECT_EQ(bounds, row.bounds) << row.degree;
    }
    RECT rect{0, 0, 10, 10};
    Array<POINTAPI> corners;
    object.RotateRectEx(rect, 180, 100, 100, corners, rect); // the boundaries may go where the rectangle was
    EXPECT_EQ(rect, (RECT{190, 190, 200, 200}));
    EXPECT_EQ(corners[0], (POINTAPI{200, 200}));
}

TEST_F(Rotation, RefusesArraysOfOtherThings) {
    RECT rect{0, 0, 1, 1};
    RECT bounds;
    Array<RECT> rects(0, 1);
    EXPECT_EQ(errorOf([&] { object.RotateRect(rect, 0, reinterpret_cast<Array<POINTAPI>&>(rects), bounds); }), 13);
    EXPECT_EQ(rects.size(), 2);
    Array<POINTAPI> locked(0, 1);
    SafeArrayLock(locked.get());
    EXPECT_EQ(errorOf([&] { object.RotateRect(rect, 0, locked, bounds); }), 10);
    SafeArrayUnlock(locked.get());
    EXPECT_EQ(locked.size(), 2);
}

} // namespace
} // namespace mox::test
