#include "host/graphics/linesteps.h"

#include <algorithm>
#include <cstdlib>

namespace mox::host {

namespace {

/// Rounded up; the divisor is above 0.
std::int64_t dividedUp(std::int64_t value, std::int64_t divisor) noexcept {
    return value / divisor + (value % divisor > 0 ? 1 : 0);
}

} // namespace

LineSteps::LineSteps(POINT from, POINT to) noexcept
    : from_(from), directionX_(to.x < from.x ? -1 : 1), directionY_(to.y < from.y ? -1 : 1) {
    const std::int64_t width = std::abs(std::int64_t{to.x} - from.x);
    const std::int64_t height = std::abs(std::int64_t{to.y} - from.y);
    isSteep_ = height > width;
    major_ = std::max(width, height);
    minor_ = std::min(width, height);
    bias_ = direction(!isSteep_) > 0 ? std::max<std::int64_t>(major_ - 1, 0) : major_;
}

LineSteps::Range LineSteps::alongWithin(std::int64_t low, std::int64_t end) const noexcept {
    const std::int64_t from = start(isSteep_);
    return direction(isSteep_) > 0 ? Range{low - from, end - from} : Range{from - end + 1, from - low + 1};
}

LineSteps::Range LineSteps::acrossWithin(std::int64_t low, std::int64_t end) const noexcept {
    const std::int64_t from = start(!isSteep_);
    // Pixels crossed: from the first that is inside up to the first that is not any more.
    const std::int64_t entry = direction(!isSteep_) > 0 ? low - from : from - end + 1;
    const std::int64_t leave = direction(!isSteep_) > 0 ? end - from : from - low + 1;
    if (minor_ == 0) {
        return entry <= 0 && leave > 0 ? Range{0, major_} : Range{};
    }
    const auto stepAt = [&](std::int64_t crossed) { return dividedUp(2 * major_ * crossed - bias_, 2 * minor_); };
    return {entry <= 0 ? 0 : stepAt(entry), leave <= 0 ? 0 : stepAt(leave)};
}

LineSteps::Range LineSteps::within(const RECT& box) const noexcept {
    const Range along = isSteep_ ? alongWithin(box.top, box.bottom) : alongWithin(box.left, box.right);
    const Range across = isSteep_ ? acrossWithin(box.left, box.right) : acrossWithin(box.top, box.bottom);
    const std::int64_t first = std::max({std::int64_t{0}, along.first, across.first});
    return {first, std::max(first, std::min({major_, along.end, across.end}))};
}

} // namespace mox::host
