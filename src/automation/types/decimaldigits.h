// Numbers as decimal digits: what stands between a text and a number, in both directions.
#pragma once

#include "automation/types/fixedpoint.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace mox::automation {

/// The number 0.d1d2d3... times 10^point; no digits are zero. The first digit is not 0.
class DecimalDigits {
public:
    /// No floating number has more digits halfway to its neighbour, so more never change what a text is rounded to,
    /// except by not being zero.
    static constexpr int capacity = 800;

    bool negative = false;
    int point = 0;

    void append(int digit) noexcept {
        if (count_ < capacity) {
            digits_[static_cast<std::size_t>(count_++)] = static_cast<char>('0' + digit);
        } else {
            more_ = more_ || digit != 0;
        }
    }
    int count() const noexcept { return count_; }
    std::string_view text() const noexcept { return {digits_.data(), static_cast<std::size_t>(count_)}; }
    /// The digit at a place, 0 behind the last one.
    int at(int place) const noexcept { return place < count_ ? digits_[static_cast<std::size_t>(place)] - '0' : 0; }
    /// Whether there are digits other than 0 from this place on.
    bool anyFrom(int place) const noexcept {
        return more_ || (place < count_ && std::any_of(digits_.begin() + std::max(place, 0), digits_.begin() + count_,
                                                       [](char digit) { return digit != '0'; }));
    }
    bool hasMore() const noexcept { return more_; }
    void dropTrailingZeros() noexcept {
        while (count_ > 0 && at(count_ - 1) == 0) {
            --count_;
        }
    }

private:
    int count_ = 0;
    bool more_ = false;
    std::array<char, capacity> digits_;
};

DecimalDigits decimalDigits(const FixedPoint& number) noexcept;
/// A finite number, rounded to `significant` digits, without trailing zeros.
DecimalDigits decimalDigits(double number, int significant) noexcept;

/// The nearest number with this scale, a tie to the even one; nothing if the magnitude has no place.
std::optional<FixedPoint> fixedPoint(const DecimalDigits& digits, int scale) noexcept;

template <std::integral Integer> HRESULT convert(const DecimalDigits& source, Integer& target) noexcept {
    const std::optional<FixedPoint> number = fixedPoint(source, 0);
    return number ? convert(*number, target) : DISP_E_OVERFLOW;
}
HRESULT convert(const DecimalDigits& source, float& target) noexcept;
HRESULT convert(const DecimalDigits& source, double& target) noexcept;
HRESULT convert(const DecimalDigits& source, CY& target) noexcept;
/// Keeps as many decimal places as the number has and a Decimal can hold.
HRESULT convert(const DecimalDigits& source, DECIMAL& target) noexcept;
inline bool isZero(const DecimalDigits& source) noexcept {
    return source.count() == 0;
}

} // namespace mox::automation
