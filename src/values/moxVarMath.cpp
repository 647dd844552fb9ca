#include "values/moxVarMath.h"

#include "automation/objects/convert.h"
#include "automation/objects/errormodes.h"

#include <algorithm>
#include <cmath>

namespace mox::server {

namespace {

constexpr Long fullTurn = 360;
constexpr Long fullTurnTenths = 3600;

// Fifteen digits, as the tables are defined: what should be 0 in them is only near it.
constexpr Double pi = 3.14159265358979;
constexpr Double piTenth = 0.314159265358979;

Long normalised(Long angle, Long turn) {
    const Long rest = angle % turn;
    return rest < 0 ? rest + turn : rest;
}

Double lookUp(std::vector<Double>& table, Long angle, Long turn, Double piOfUnit, Double (*function)(Double)) {
    if (table.empty()) {
        table.resize(static_cast<std::size_t>(turn));
        for (Long i = 0; i < turn; ++i) {
            table[static_cast<std::size_t>(i)] = function((turn - i) * piOfUnit / 180);
        }
    }
    return table[static_cast<std::size_t>(normalised(angle, turn))];
}

struct Point {
    Single x;
    Single y;
};

/// The point turned around the centre; coordinates are kept in single precision, products in double.
Point turned(const POINTAPI& point, Point center, Double cosine, Double sine) {
    const Single dx = toSingle(static_cast<Double>(point.X) - center.x);
    const Single dy = toSingle(static_cast<Double>(point.Y) - center.y);
    const Single nx = toSingle(dx * cosine - dy * sine);
    const Single ny = toSingle(dy * cosine + dx * sine);
    return {checked(nx + center.x), checked(ny + center.y)};
}

Point centerOf(const RECT& rc) {
    return {toSingle(rc.Left + static_cast<Double>(rc.Right - rc.Left) / 2),
            toSingle(rc.Top + static_cast<Double>(rc.Bottom - rc.Top) / 2)};
}

/// Fills `ptRotated` with the turned corners, and `rcRotatedBoundaries` with the smallest rectangle around them.
template <class Rotate>
void rotateCorners(const RECT& rc, Array<POINTAPI>& ptRotated, RECT& rcRotatedBoundaries, Rotate&& rotate) {
    // Both may be the rectangle's own variable.
    const POINTAPI corners[] = {{rc.Left, rc.Top}, {rc.Right, rc.Top}, {rc.Right, rc.Bottom}, {rc.Left, rc.Bottom}};
    ptRotated.redim(0, 3);
    std::ranges::copy(corners, ptRotated.begin());
    std::ranges::for_each(ptRotated, rotate);
    RECT bounds{ptRotated[0].X, ptRotated[0].Y, ptRotated[0].X, ptRotated[0].Y};
    for (const POINTAPI& point : ptRotated) {
        bounds = {std::min(bounds.Left, point.X), std::min(bounds.Top, point.Y), std::max(bounds.Right, point.X),
                  std::max(bounds.Bottom, point.Y)};
    }
    rcRotatedBoundaries = bounds;
}

} // namespace

void moxVarMath::RotateRect(const RECT& rcRotate, Integer Degree, Array<POINTAPI>& ptRotated, RECT& rcRotatedBoundaries) {
    const Point center = centerOf(rcRotate);
    RotateRectEx(rcRotate, Degree, center.x, center.y, ptRotated, rcRotatedBoundaries);
}

void moxVarMath::RotatePoint(POINTAPI& ptRotate, Single xCenter, Single yCenter, Integer Degree) {
    trapAndLeave([&] {
        const auto angle = static_cast<Integer>(normalised(Degree, fullTurn));
        const Point result = turned(ptRotate, {xCenter, yCenter}, Cosinus(angle), Sinus(angle));
        ptRotate = {toLong(std::trunc(result.x)), toLong(std::trunc(result.y))};
    });
}

void moxVarMath::RotatePointTenthsDegree(POINTAPI& ptRotate, Single xCenter, Single yCenter, Integer TenthsDegree) {
    trapAndLeave([&] {
        const auto angle = static_cast<Integer>(normalised(TenthsDegree, fullTurnTenths));
        const Point result = turned(ptRotate, {xCenter, yCenter}, CosinusTenths(angle), SinusTenths(angle));
        ptRotate = {toLong(result.x), toLong(result.y)};
    });
}

Double moxVarMath::Cosinus(Integer Degree) {
    return lookUp(cosines_, Degree, fullTurn, pi, std::cos);
}

Double moxVarMath::CosinusTenths(Integer TenthsDegree) {
    return lookUp(cosinesTenths_, TenthsDegree, fullTurnTenths, piTenth, std::cos);
}

void moxVarMath::RotateRectEx(const RECT& rcRotate, Integer Degree, Single xOrigin, Single yOrigin, Array<POINTAPI>& ptRotated,
                              RECT& rcRotatedBoundaries) {
    rotateCorners(rcRotate, ptRotated, rcRotatedBoundaries,
                  [&](POINTAPI& corner) { RotatePoint(corner, xOrigin, yOrigin, Degree); });
}

void moxVarMath::RotateRectTenthsDegree(const RECT& rcRotate, Integer TenthsDegree, Array<POINTAPI>& ptRotated,
                                        RECT& rcRotatedBoundaries) {
    const Point center = centerOf(rcRotate);
    rotateCorners(rcRotate, ptRotated, rcRotatedBoundaries,
                  [&](POINTAPI& corner) { RotatePointTenthsDegree(corner, center.x, center.y, TenthsDegree); });
}

Double moxVarMath::Sinus(Integer Degree) {
    return lookUp(sines_, Degree, fullTurn, pi, std::sin);
}

Double moxVarMath::SinusTenths(Integer TenthsDegree) {
    return lookUp(sinesTenths_, TenthsDegree, fullTurnTenths, piTenth, std::sin);
}

} // namespace mox::server
