// Dashes of lines that are one pixel wide.
#pragma once

#include <cstdint>
#include <span>

namespace mox::host {

/// The lengths in pixels of dashes and gaps in turn, over and over; empty for a line without gaps.
std::span<const int> dashesOf(std::int32_t penStyle) noexcept;

/// Goes along a line and tells what is in a dash.
class DashWalk {
public:
    /// From so many pixels after the beginning on.
    DashWalk(std::span<const int> dashes, std::int64_t from) noexcept;

    bool isInDash() const noexcept { return place_ % 2 == 0; }
    void next() noexcept {
        if (--left_ == 0) {
            place_ = place_ + 1 < dashes_.size() ? place_ + 1 : 0;
            left_ = dashes_[place_];
        }
    }

private:
    std::span<const int> dashes_;
    std::size_t place_ = 0;
    int left_;
};

} // namespace mox::host
