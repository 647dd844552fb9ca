// Writing the fields of a record.
#pragma once

#include "host/graphics/transform.h"

#include "platform/gditypes.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

namespace mox::host {

using platform::POINT;
using platform::RECT;
using platform::SIZE;

/// Builds one record, little-endian, field by field.
class RecordWriter {
public:
    /// Begins with the type and a place for the size.
    explicit RecordWriter(std::uint32_t type) { u32(type).u32(0); }

    RecordWriter& u8(std::uint8_t value) { return put(value); }
    RecordWriter& u16(std::uint32_t value) { return put(static_cast<std::uint16_t>(value)); }
    RecordWriter& u32(std::integral auto value) { return put(static_cast<std::uint32_t>(value)); }
    RecordWriter& i32(std::int32_t value) { return put(value); }
    RecordWriter& real(double value) { return put(static_cast<float>(value)); }
    RecordWriter& point(POINT value) { return i32(value.x).i32(value.y); }
    RecordWriter& size(SIZE value) { return i32(value.cx).i32(value.cy); }
    RecordWriter& rect(const RECT& value) { return i32(value.left).i32(value.top).i32(value.right).i32(value.bottom); }
    RecordWriter& transform(const Transform& value) {
        return real(value.m11).real(value.m12).real(value.m21).real(value.m22).real(value.dx).real(value.dy);
    }
    RecordWriter& bytes(std::span<const std::byte> value) {
        bytes_.insert(bytes_.end(), value.begin(), value.end());
        return *this;
    }
    RecordWriter& zeros(std::size_t count) {
        bytes_.resize(bytes_.size() + count);
        return *this;
    }
    RecordWriter& text(std::u16string_view value) { return bytes(std::as_bytes(std::span(value))); }
    /// Fills up to a multiple of 4 bytes.
    RecordWriter& align() { return zeros((4 - bytes_.size() % 4) % 4); }

    std::size_t place() const noexcept { return bytes_.size(); }
    /// The whole record with its size, a multiple of 4. Nothing may be added after that.
    std::span<const std::byte> finish() {
        align();
        const auto size = static_cast<std::uint32_t>(bytes_.size());
        std::memcpy(bytes_.data() + 4, &size, 4);
        return bytes_;
    }

private:
    template <class Value> RecordWriter& put(Value value) { return bytes(std::as_bytes(std::span(&value, 1))); }

    std::vector<std::byte> bytes_;
};

} // namespace mox::host
