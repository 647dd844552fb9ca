// The bytes that a value in a property bag is kept as: its variant type in 16 bits, and what the type takes.
//
// Numbers, dates and amounts are their own bytes. A text is its length in bytes (32 bits) and the bytes. An array of bytes is its
// lower bound (32 bits) and the bytes. An object is the kind, 0 for none, 1 for a picture, 2 for a font, and the object's bytes.
#pragma once

#include <mox/values.h>

#include <cstddef>
#include <span>
#include <vector>

namespace mox::runtime {

/// Run-time error 328 for arrays but those of bytes, 330 for objects that cannot be kept, 13 for values of other types.
std::vector<std::byte> encodeBagValue(const VARIANT& value);
/// Objects are new ones. Error 321 for bytes that are no value.
Variant decodeBagValue(std::span<const std::byte> bytes);
/// True if the bytes are a value, as far as can be seen without making an object of them.
bool isBagValue(std::span<const std::byte> bytes) noexcept;

/// True if a value is the same as a default: objects if they are one and the same, numbers and dates by what they amount to.
bool equalsDefault(const VARIANT& value, const VARIANT& defaultValue);

} // namespace mox::runtime
