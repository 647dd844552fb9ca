#include "automation/types/fixedpoint.h"

#include "automation/types/decimaldigits.h"

#include <array>

namespace mox::automation {

namespace {

constexpr auto powersOfTen = [] {
    std::array<Magnitude, 39> powers{1};
    for (std::size_t power = 1; power < powers.size(); ++power) {
        powers[power] = powers[power - 1] * 10;
    }
    return powers;
}();

Magnitude divideHalfEven(Magnitude value, Magnitude divisor) {
    const Magnitude quotient = value / divisor;
    const Magnitude twice = value % divisor * 2; // divisors are powers of ten up to 10^28, so this has a place
    return twice > divisor || (twice == divisor && quotient % 2 != 0) ? quotient + 1 : quotient;
}

template <std::floating_point Real> HRESULT toReal(const FixedPoint& source, Real& target) {
    // Both are exact as Real up to these limits, and then one division is rounded only once.
    constexpr int exactPower = std::is_same_v<Real, float> ? 10 : 19;
    constexpr Magnitude exactMagnitude = Magnitude{1} << std::numeric_limits<Real>::digits;
    Real value = 0;
    if (source.magnitude <= exactMagnitude && source.scale <= exactPower) {
        value = static_cast<Real>(static_cast<std::uint64_t>(source.magnitude)) /
                static_cast<Real>(static_cast<std::uint64_t>(powerOfTen(source.scale)));
    } else if (source.scale == 0) {
        value = static_cast<Real>(source.magnitude);
    } else {
        return convert(decimalDigits(source), target);
    }
    target = source.negative && value != 0 ? -value : value;
    return S_OK;
}

} // namespace

Magnitude powerOfTen(int power) noexcept {
    return powersOfTen[static_cast<std::size_t>(power)];
}

FixedPoint fixedPoint(const CY& value) noexcept {
    FixedPoint number = fixedPoint(value.int64);
    number.scale = currencyScale;
    return number;
}

std::optional<FixedPoint> fixedPoint(const DECIMAL& value) noexcept {
    constexpr BYTE negativeSign = 0x80;
    if (value.scale > largestScale || (value.sign & ~negativeSign) != 0) {
        return std::nullopt;
    }
    const Magnitude magnitude = Magnitude{value.Hi32} << 64 | Magnitude{value.Mid32} << 32 | value.Lo32;
    return FixedPoint{magnitude, value.scale, value.sign != 0};
}

std::optional<FixedPoint> rescaled(const FixedPoint& number, int scale) noexcept {
    FixedPoint result{number.magnitude, scale, number.negative};
    if (scale < number.scale) {
        result.magnitude = divideHalfEven(number.magnitude, powerOfTen(number.scale - scale));
    } else if (scale > number.scale &&
               __builtin_mul_overflow(number.magnitude, powerOfTen(scale - number.scale), &result.magnitude)) {
        return std::nullopt;
    }
    return result;
}

HRESULT convert(const FixedPoint& source, float& target) noexcept {
    return toReal(source, target);
}

HRESULT convert(const FixedPoint& source, double& target) noexcept {
    return toReal(source, target);
}

HRESULT convert(const FixedPoint& source, CY& target) noexcept {
    std::optional<FixedPoint> number = rescaled(source, currencyScale);
    if (!number) {
        return DISP_E_OVERFLOW;
    }
    number->scale = 0; // counts ten-thousandths from here on
    return convert(*number, target.int64);
}

HRESULT convert(const FixedPoint& source, DECIMAL& target) noexcept {
    if (source.magnitude > largestDecimal) {
        return DISP_E_OVERFLOW;
    }
    target.scale = static_cast<BYTE>(source.scale);
    target.sign = source.negative && source.magnitude != 0 ? 0x80 : 0;
    target.Hi32 = static_cast<ULONG>(source.magnitude >> 64);
    target.Mid32 = static_cast<ULONG>(source.magnitude >> 32);
    target.Lo32 = static_cast<ULONG>(source.magnitude);
    return S_OK;
}

} // namespace mox::automation
