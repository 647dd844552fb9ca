// From logical to device coordinates.
#pragma once

#include "host/graphics/path.h"

namespace mox::host {

/// x' = x * m11 + y * m21 + dx, y' = x * m12 + y * m22 + dy.
struct Transform {
    double m11 = 1;
    double m12 = 0;
    double m21 = 0;
    double m22 = 1;
    double dx = 0;
    double dy = 0;
    bool operator==(const Transform&) const = default;

    PathPoint apply(PathPoint point) const noexcept {
        return {point.x * m11 + point.y * m21 + dx, point.x * m12 + point.y * m22 + dy};
    }
    /// This one first, then `next`.
    Transform then(const Transform& next) const noexcept {
        return {m11 * next.m11 + m12 * next.m21,         m11 * next.m12 + m12 * next.m22,
                m21 * next.m11 + m22 * next.m21,         m21 * next.m12 + m22 * next.m22,
                dx * next.m11 + dy * next.m21 + next.dx, dx * next.m12 + dy * next.m22 + next.dy};
    }
    bool isIdentity() const noexcept { return *this == Transform(); }
    /// True if lines along the axes stay along them.
    bool keepsAxes() const noexcept { return m12 == 0 && m21 == 0; }
};

} // namespace mox::host
