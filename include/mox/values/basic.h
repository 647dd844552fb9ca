// The plain value types of the interfaces, under the names that their clients use.
#pragma once

#include <mox/abi/basetypes.h>

#include <concepts>

namespace mox {

using Long = std::int32_t;
using Integer = std::int16_t;
using Byte = std::uint8_t;
using Single = float;
using Double = double;

/// The Automation boolean: 16 bits, True is -1. Any other value than 0 counts as true in a condition, but only -1
/// equals `True`.
struct Boolean {
    VARIANT_BOOL value = VARIANT_FALSE;

    constexpr Boolean() = default;
    template <std::same_as<bool> Flag> constexpr Boolean(Flag flag) : value(flag ? VARIANT_TRUE : VARIANT_FALSE) {}

    /// A boolean with exactly these bits, also others than True and False.
    static constexpr Boolean ofBits(VARIANT_BOOL bits) {
        Boolean result;
        result.value = bits;
        return result;
    }
    constexpr explicit operator bool() const { return value != VARIANT_FALSE; }
    friend constexpr bool operator==(Boolean, Boolean) = default;
};
inline constexpr Boolean True{true};
inline constexpr Boolean False{false};

/// A date: whole days since 1899-12-30, the time of day as the fraction (also for negative days, where the fraction
/// counts forward from the day). Local time, no time zone.
struct Date {
    double days = 0;
    friend constexpr bool operator==(Date, Date) = default;
};

/// An amount in ten-thousandths.
struct Currency {
    std::int64_t tenThousandths = 0;
    friend constexpr bool operator==(Currency, Currency) = default;
};

static_assert(sizeof(Boolean) == 2 && sizeof(Date) == 8 && sizeof(Currency) == 8);

} // namespace mox
