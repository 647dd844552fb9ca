// Reading the fields of a record.
#pragma once

#include "host/graphics/transform.h"

#include "platform/gditypes.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <vector>

namespace mox::host {

using platform::POINT;
using platform::RECT;
using platform::SIZE;

/// Thrown for a record that says what cannot be; playing ends there.
struct BrokenRecord {};

/// Takes little-endian fields one behind another. Whatever lies beyond the end throws `BrokenRecord`, before memory is taken for
/// it.
class RecordReader {
public:
    explicit RecordReader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    std::size_t size() const noexcept { return bytes_.size(); }
    std::size_t left() const noexcept { return bytes_.size() - place_; }
    void seek(std::size_t place);
    void skip(std::size_t count) { take(count); }
    /// Bytes in front of the present place.
    std::size_t place() const noexcept { return place_; }

    std::uint8_t u8() { return value<std::uint8_t>(); }
    std::uint16_t u16() { return value<std::uint16_t>(); }
    std::int16_t i16() { return value<std::int16_t>(); }
    std::uint32_t u32() { return value<std::uint32_t>(); }
    std::int32_t i32() { return value<std::int32_t>(); }
    /// Of 32 bits; not-a-number and the infinities are broken.
    double real();

    POINT point();
    POINT point16();
    SIZE size32();
    RECT rect();
    Transform transform();
    std::vector<POINT> points(std::size_t count);
    std::vector<POINT> points16(std::size_t count);
    std::vector<std::uint32_t> numbers(std::size_t count);

    /// The next bytes.
    std::span<const std::byte> take(std::size_t count);
    /// Bytes anywhere in the record.
    std::span<const std::byte> part(std::size_t offset, std::size_t count) const;
    std::string text(std::size_t count);
    std::u16string wideText(std::size_t count);

private:
    template <class Value> Value value() {
        Value result;
        std::memcpy(&result, take(sizeof(Value)).data(), sizeof(Value));
        return result;
    }
    /// `count` things of `size` bytes each have to be left.
    void require(std::size_t count, std::size_t size) const;

    std::span<const std::byte> bytes_;
    std::size_t place_ = 0;
};

} // namespace mox::host
