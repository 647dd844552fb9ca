#include "host/pixels/copyaxis.h"

#include <algorithm>

namespace mox::host {

namespace {

/// The first place that the condition does not hold for; it holds up to some place and then no more.
template <class Condition> std::int64_t firstWithout(PlaceRange places, Condition holds) {
    while (places.begin < places.end) {
        const std::int64_t middle = places.begin + (places.end - places.begin) / 2;
        (holds(middle) ? places.begin : places.end) = holds(middle) ? middle + 1 : middle;
    }
    return places.begin;
}

} // namespace

PlaceRange CopyAxis::within(PlaceRange places, std::int64_t size) const noexcept {
    PlaceRange result{std::max(places.begin, target_), std::min(places.end, target_ + targetCount_)};
    if (isEmpty() || result.isEmpty()) {
        return {};
    }
    const auto isBefore = [&](std::int64_t place) { return isMirrored_ ? nearest(place) >= size : nearest(place) < 0; };
    const auto isNotBehind = [&](std::int64_t place) { return isMirrored_ ? nearest(place) >= 0 : nearest(place) < size; };
    const std::int64_t begin = firstWithout(result, isBefore);
    return {begin, firstWithout({begin, result.end}, isNotBehind)};
}

} // namespace mox::host
