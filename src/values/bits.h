// Bits and ranges, the same for every value type.
#pragma once

#include <mox/values.h>

#include <type_traits>

namespace mox::server {

/// The mask of bit `BitNr`, counted from the least significant one; 0 beyond the type's last bit.
template <class Value> constexpr Value maskOfBit(Byte BitNr) {
    using Bits = std::make_unsigned_t<Value>;
    return BitNr < 8 * sizeof(Value) ? static_cast<Value>(static_cast<Bits>(Bits{1} << BitNr)) : Value{0};
}

template <class Value> constexpr Boolean bitOf(Value value, Byte BitNr) {
    return (value & maskOfBit<Value>(BitNr)) != 0;
}

/// Sets the bit for exactly True, clears it for anything else.
template <class Value> constexpr Value withBit(Value value, Byte BitNr, Boolean bSetBit) {
    const Value mask = maskOfBit<Value>(BitNr);
    return static_cast<Value>(bSetBit == True ? value | mask : value & ~mask);
}

/// The value within its bounds. The lower bound goes first, so with the bounds exchanged a value that is not below the one called
/// minimum becomes the one called maximum.
template <class Value> constexpr Value clamped(Value value, Value minimum, Value maximum) {
    if (value < minimum) {
        return minimum;
    }
    return value > maximum ? maximum : value;
}

} // namespace mox::server
