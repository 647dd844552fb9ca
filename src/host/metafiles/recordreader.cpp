#include "host/metafiles/recordreader.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace mox::host {

static_assert(std::endian::native == std::endian::little, "fields are copied as they are");

void RecordReader::seek(std::size_t place) {
    if (place > bytes_.size()) {
        throw BrokenRecord();
    }
    place_ = place;
}

std::span<const std::byte> RecordReader::take(std::size_t count) {
    require(count, 1);
    const auto taken = bytes_.subspan(place_, count);
    place_ += count;
    return taken;
}

std::span<const std::byte> RecordReader::part(std::size_t offset, std::size_t count) const {
    if (offset > bytes_.size() || count > bytes_.size() - offset) {
        throw BrokenRecord();
    }
    return bytes_.subspan(offset, count);
}

void RecordReader::require(std::size_t count, std::size_t size) const {
    if (count > left() / size) {
        throw BrokenRecord();
    }
}

double RecordReader::real() {
    const auto number = value<float>();
    if (!std::isfinite(number)) {
        throw BrokenRecord();
    }
    return static_cast<double>(number);
}

POINT RecordReader::point() {
    // Devices have no places beyond these, and sums of them do not wrap.
    constexpr std::int32_t farthest = 1 << 27;
    const std::int32_t x = std::clamp(i32(), -farthest, farthest);
    return {x, std::clamp(i32(), -farthest, farthest)};
}

POINT RecordReader::point16() {
    const std::int32_t x = i16();
    return {x, i16()};
}

SIZE RecordReader::size32() {
    const POINT extents = point();
    return {extents.x, extents.y};
}

RECT RecordReader::rect() {
    const POINT first = point();
    const POINT second = point();
    return {first.x, first.y, second.x, second.y};
}

Transform RecordReader::transform() {
    Transform result;
    for (double* const part : {&result.m11, &result.m12, &result.m21, &result.m22, &result.dx, &result.dy}) {
        *part = real();
    }
    return result;
}

std::vector<POINT> RecordReader::points(std::size_t count) {
    require(count, 8);
    std::vector<POINT> result(count);
    for (POINT& place : result) {
        place = point();
    }
    return result;
}

std::vector<POINT> RecordReader::points16(std::size_t count) {
    require(count, 4);
    std::vector<POINT> result(count);
    for (POINT& place : result) {
        place = point16();
    }
    return result;
}

std::vector<std::uint32_t> RecordReader::numbers(std::size_t count) {
    require(count, 4);
    std::vector<std::uint32_t> result(count);
    for (std::uint32_t& number : result) {
        number = u32();
    }
    return result;
}

std::string RecordReader::text(std::size_t count) {
    const auto bytes = take(count);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::u16string RecordReader::wideText(std::size_t count) {
    require(count, 2);
    std::u16string result(count, u'\0');
    std::memcpy(result.data(), take(2 * count).data(), 2 * count);
    return result;
}

} // namespace mox::host
