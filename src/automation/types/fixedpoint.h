// Exact numbers: what integers, Currency and Decimal values are while they turn into each other.
#pragma once

#include <mox/abi/basetypes.h>

#include <concepts>
#include <limits>
#include <optional>
#include <type_traits>

namespace mox::automation {

using Magnitude = unsigned __int128;

/// The number magnitude / 10^scale, with its sign apart.
struct FixedPoint {
    Magnitude magnitude = 0;
    int scale = 0; ///< 0 to 28
    bool negative = false;
};

inline constexpr int largestScale = 28;
inline constexpr int currencyScale = 4;
inline constexpr Magnitude largestDecimal = (Magnitude{1} << 96) - 1;

/// 10^power for powers from 0 to 38.
Magnitude powerOfTen(int power) noexcept;

template <std::integral Integer> constexpr FixedPoint fixedPoint(Integer value) noexcept {
    if constexpr (std::is_signed_v<Integer>) {
        const auto bits = static_cast<std::uint64_t>(static_cast<std::int64_t>(value));
        return {value < 0 ? 0 - bits : bits, 0, value < 0};
    } else {
        return {value, 0, false};
    }
}
FixedPoint fixedPoint(const CY& value) noexcept;
/// Nothing for a scale or a sign that no Decimal has.
std::optional<FixedPoint> fixedPoint(const DECIMAL& value) noexcept;

/// The nearest number with this scale, a tie to the even one; nothing if the magnitude has no place.
std::optional<FixedPoint> rescaled(const FixedPoint& number, int scale) noexcept;

// Conversions from any source (an exact number, a floating one, a text) have the same names, so that one table of target
// types serves all. They give `DISP_E_OVERFLOW` where the target has no such number.

template <std::integral Integer> HRESULT convert(const FixedPoint& source, Integer& target) noexcept {
    const std::optional<FixedPoint> whole = rescaled(source, 0);
    constexpr Magnitude largest = std::numeric_limits<Integer>::max();
    const bool negative = whole && whole->negative;
    if (!whole || whole->magnitude > (negative ? std::is_signed_v<Integer> ? largest + 1 : 0 : largest)) {
        return DISP_E_OVERFLOW;
    }
    const auto bits = static_cast<std::uint64_t>(whole->magnitude);
    target = static_cast<Integer>(negative ? 0 - bits : bits);
    return S_OK;
}
HRESULT convert(const FixedPoint& source, float& target) noexcept;
HRESULT convert(const FixedPoint& source, double& target) noexcept;
HRESULT convert(const FixedPoint& source, CY& target) noexcept;
HRESULT convert(const FixedPoint& source, DECIMAL& target) noexcept;
inline bool isZero(const FixedPoint& source) noexcept {
    return source.magnitude == 0;
}

} // namespace mox::automation
