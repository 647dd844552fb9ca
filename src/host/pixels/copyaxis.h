// One direction of a copy that may stretch and mirror.
#pragma once

#include <cstdint>
#include <cstdlib>

namespace mox::host {

/// Places from `begin` on, `end` left out.
struct PlaceRange {
    std::int64_t begin = 0;
    std::int64_t end = 0;
    bool isEmpty() const noexcept { return begin >= end; }
};

/// Which places of the source each place of the target shows. Places and extents up to 2^29; an extent below 0 reaches from the
/// first place downwards, without that place.
class CopyAxis {
public:
    CopyAxis(std::int64_t target, std::int64_t targetExtent, std::int64_t source, std::int64_t sourceExtent) noexcept
        : target_(targetExtent < 0 ? target + targetExtent : target), source_(sourceExtent < 0 ? source + sourceExtent : source),
          targetCount_(std::abs(targetExtent)), sourceCount_(std::abs(sourceExtent)),
          isMirrored_((targetExtent < 0) != (sourceExtent < 0)) {}

    PlaceRange target() const noexcept { return {target_, target_ + targetCount_}; }
    PlaceRange source() const noexcept { return {source_, source_ + sourceCount_}; }
    bool isEmpty() const noexcept { return targetCount_ == 0 || sourceCount_ == 0; }
    std::int64_t targetCount() const noexcept { return targetCount_; }
    std::int64_t sourceCount() const noexcept { return sourceCount_; }
    bool isMirrored() const noexcept { return isMirrored_; }
    /// Each place is moved by one distance.
    bool isShift() const noexcept { return targetCount_ == sourceCount_ && !isMirrored_; }

    /// The source's place at the centre of a place of the target.
    std::int64_t nearest(std::int64_t place) const noexcept {
        return source_ + (2 * index(place) + 1) * sourceCount_ / (2 * targetCount_);
    }
    /// How many places the target's place is from the first one that shows the source's first.
    std::int64_t index(std::int64_t place) const noexcept {
        return isMirrored_ ? target_ + targetCount_ - 1 - place : place - target_;
    }
    /// All places of the source that are left out between this and the next place, and the one that stays; one if it enlarges.
    PlaceRange merged(std::int64_t place) const noexcept {
        if (sourceCount_ <= targetCount_) {
            return {nearest(place), nearest(place) + 1};
        }
        const std::int64_t number = index(place);
        return {source_ + number * sourceCount_ / targetCount_, source_ + (number + 1) * sourceCount_ / targetCount_};
    }
    /// The target's places among `places` whose nearest one is from 0 to `size` - 1.
    PlaceRange within(PlaceRange places, std::int64_t size) const noexcept;

private:
    std::int64_t target_;
    std::int64_t source_;
    std::int64_t targetCount_;
    std::int64_t sourceCount_;
    bool isMirrored_;
};

} // namespace mox::host
