#include "automation/types/decimaldigits.h"

#include <charconv>
#include <cmath>

namespace mox::automation {

namespace {

template <std::floating_point Real> HRESULT toReal(const DecimalDigits& source, Real& target) {
    if (source.count() == 0) {
        target = 0;
        return S_OK;
    }
    std::array<char, DecimalDigits::capacity + 16> text;
    char* end = std::ranges::copy(source.text(), text.data()).out;
    int exponent = source.point - source.count();
    if (source.hasMore()) {
        *end++ = '1';
        --exponent;
    }
    *end++ = 'e';
    end = std::to_chars(end, text.data() + text.size(), exponent).ptr;
    Real value = 0;
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (result.ec == std::errc::result_out_of_range) {
        if (source.point > 0) {
            return DISP_E_OVERFLOW;
        }
        value = 0; // smaller than the smallest number
    }
    target = source.negative ? -value : value;
    return S_OK;
}

} // namespace

DecimalDigits decimalDigits(const FixedPoint& number) noexcept {
    std::array<char, 40> reversed;
    std::size_t count = 0;
    Magnitude rest = number.magnitude;
    for (; rest > std::numeric_limits<std::uint64_t>::max(); rest /= 10) {
        reversed[count++] = static_cast<char>(rest % 10);
    }
    // Most numbers are no longer than this, for which the machine divides much faster.
    for (auto shortRest = static_cast<std::uint64_t>(rest); shortRest != 0; shortRest /= 10) {
        reversed[count++] = static_cast<char>(shortRest % 10);
    }
    DecimalDigits digits;
    digits.negative = number.negative;
    digits.point = static_cast<int>(count) - number.scale;
    while (count > 0) {
        digits.append(reversed[--count]);
    }
    return digits;
}

DecimalDigits decimalDigits(double number, int significant) noexcept {
    DecimalDigits digits;
    digits.negative = std::signbit(number);
    if (number == 0) {
        return digits;
    }
    // The form is d.ddde-dd.
    std::array<char, 32> text;
    const std::to_chars_result end =
        std::to_chars(text.data(), text.data() + text.size(), std::fabs(number), std::chars_format::scientific, significant - 1);
    const char* exponent = std::find(text.data(), end.ptr, 'e');
    for (const char* place = text.data(); place != exponent; ++place) {
        if (*place != '.') {
            digits.append(*place - '0');
        }
    }
    ++exponent;
    if (*exponent == '+') {
        ++exponent; // which from_chars does not take
    }
    std::from_chars(exponent, end.ptr, digits.point);
    ++digits.point;
    digits.dropTrailingZeros();
    return digits;
}

std::optional<FixedPoint> fixedPoint(const DecimalDigits& digits, int scale) noexcept {
    constexpr int longest = 38; // digits that surely have a place
    FixedPoint number{0, scale, digits.negative};
    const int wanted = digits.point + scale;
    if (digits.count() == 0 || wanted < 0) {
        return number;
    }
    if (wanted > longest) {
        return std::nullopt;
    }
    for (int place = 0; place < wanted; ++place) {
        number.magnitude = number.magnitude * 10 + static_cast<Magnitude>(digits.at(place));
    }
    const int next = digits.at(wanted);
    const bool odd = number.magnitude % 2 != 0;
    if (next > 5 || (next == 5 && (odd || digits.anyFrom(wanted + 1)))) {
        ++number.magnitude;
    }
    return number;
}

HRESULT convert(const DecimalDigits& source, float& target) noexcept {
    return toReal(source, target);
}

HRESULT convert(const DecimalDigits& source, double& target) noexcept {
    return toReal(source, target);
}

HRESULT convert(const DecimalDigits& source, CY& target) noexcept {
    const std::optional<FixedPoint> number = fixedPoint(source, currencyScale);
    return number ? convert(*number, target) : DISP_E_OVERFLOW;
}

HRESULT convert(const DecimalDigits& source, DECIMAL& target) noexcept {
    const int places = std::clamp(source.count() - source.point, 0, largestScale);
    for (int scale = places; scale >= 0; --scale) {
        const std::optional<FixedPoint> number = fixedPoint(source, scale);
        if (number && number->magnitude <= largestDecimal) {
            return convert(*number, target);
        }
    }
    return DISP_E_OVERFLOW;
}

} // namespace mox::automation
