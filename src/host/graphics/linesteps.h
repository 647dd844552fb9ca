// The pixels of a line that is one pixel wide.
#pragma once

#include "host/graphics/region.h"

#include <cstdint>

namespace mox::host {

/// Steps along the longer axis, one pixel each, from the first point up to the last one, which does not count. Of two pixels that
/// are equally near the upper or left one is taken, so that a line covers the same pixels in both directions.
class LineSteps {
public:
    LineSteps(POINT from, POINT to) noexcept;

    std::int64_t count() const noexcept { return major_; }

    struct Range {
        std::int64_t first = 0;
        std::int64_t end = 0;
    };
    /// The steps whose pixels are in the box, which has to have some. It costs the same for every length of line.
    Range within(const RECT& box) const noexcept;

    /// Calls `visit(x, y, step)` for each step of the range.
    template <class Visit> void walk(Range range, Visit&& visit) const {
        const std::int64_t crossed = 2 * minor_ * range.first + bias_;
        const std::int64_t unit = 2 * major_;
        std::int64_t rest = crossed % unit;
        auto along = static_cast<int>(start(isSteep_) + direction(isSteep_) * range.first);
        auto across = static_cast<int>(start(!isSteep_) + direction(!isSteep_) * (crossed / unit));
        const int stepAlong = direction(isSteep_);
        const int stepAcross = direction(!isSteep_);
        for (std::int64_t step = range.first; step < range.end; ++step) {
            isSteep_ ? visit(across, along, step) : visit(along, across, step);
            along += stepAlong;
            rest += 2 * minor_;
            if (rest >= unit) {
                rest -= unit;
                across += stepAcross;
            }
        }
    }

private:
    std::int64_t start(bool isY) const noexcept { return isY ? from_.y : from_.x; }
    int direction(bool isY) const noexcept { return isY ? directionY_ : directionX_; }
    /// The steps for which the longer axis is in the interval, and the same of the shorter one.
    Range alongWithin(std::int64_t low, std::int64_t end) const noexcept;
    Range acrossWithin(std::int64_t low, std::int64_t end) const noexcept;

    POINT from_;
    int directionX_;
    int directionY_;
    /// The line has more rows than columns.
    bool isSteep_;
    std::int64_t major_;
    std::int64_t minor_;
    /// After `i` steps the line has gone (2 * minor * i + bias) / (2 * major) pixels along the shorter axis.
    std::int64_t bias_;
};

} // namespace mox::host
