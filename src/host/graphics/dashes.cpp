#include "host/graphics/dashes.h"

#include "platform/gditypes.h"

#include <array>
#include <numeric>

namespace mox::host {

namespace {

constexpr std::array dash{18, 6};
constexpr std::array dot{3, 3};
constexpr std::array dashDot{9, 6, 3, 6};
constexpr std::array dashDotDot{9, 3, 3, 3, 3, 3};

} // namespace

std::span<const int> dashesOf(std::int32_t penStyle) noexcept {
    switch (penStyle) {
    case platform::PS_DASH:
        return dash;
    case platform::PS_DOT:
        return dot;
    case platform::PS_DASHDOT:
        return dashDot;
    case platform::PS_DASHDOTDOT:
        return dashDotDot;
    default:
        return {};
    }
}

DashWalk::DashWalk(std::span<const int> dashes, std::int64_t from) noexcept : dashes_(dashes), left_(dashes[0]) {
    auto rest = static_cast<int>(from % std::accumulate(dashes.begin(), dashes.end(), 0));
    while (rest >= dashes_[place_]) {
        rest -= dashes_[place_++];
    }
    left_ = dashes_[place_] - rest;
}

} // namespace mox::host
